#include <QComboBox>
#include <QCoreApplication>
#include <QListWidget>
#include <QPointF>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

#include "Defaults.h"
#include "DestinationPopUp.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The destination menus under keys and wheel, and what tells their folders apart.
class TestDestinationMenus final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void keysAndWheelPassTheCommandBy();
  void commandIsTakenFromTheOpenedMenu();
  void wheelNeedsTheFocus_data();
  void wheelNeedsTheFocus();
  void separatorIsNoDestination();
  void foldersOfOneNameAreToldApart();

 private:
  [[nodiscard]] QComboBox &menu() { return *m_b->find<QComboBox>(u"destinationPopUp"_s); }
  // One notch; negative ones go down the menu.
  static void turnWheel(QWidget &widget, int notches) {
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, notches * 120}, {}, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
  }
  // The tab that holds the control comes to the front, when the preferences do.
  void openPreferencesAt(const QWidget &control) {
    auto *tabs = m_b->find<QTabWidget>(u"preferencesTabs"_s);
    for (int i = 0; tabs && i < tabs->count(); ++i)
      if (tabs->widget(i)->isAncestorOf(&control)) tabs->setCurrentIndex(i);
  }
};

void TestDestinationMenus::keysAndWheelPassTheCommandBy() {
  QVERIFY(m_b->show(u"Film.mkv"_s));
  menu().setFocus();
  QVERIFY(menu().hasFocus());
  QTest::keyClick(&menu(), Qt::Key_Down);
  QCOMPARE(menu().currentIndex(), 1);
  QTest::keyClick(&menu(), Qt::Key_Down);
  QCOMPARE(menu().currentIndex(), 1);
  QTest::keyClick(&menu(), Qt::Key_End);
  QCOMPARE(menu().currentIndex(), 1);
  turnWheel(menu(), -1);
  QCOMPARE(menu().currentIndex(), 1);
  turnWheel(menu(), 1);
  QCOMPARE(menu().currentIndex(), 0);
  QCoreApplication::processEvents();
  QVERIFY(!m_b->panel());
}

void TestDestinationMenus::commandIsTakenFromTheOpenedMenu() {
  QVERIFY(m_b->show(u"Film.mkv"_s));
  menu().setFocus();
  QTest::keyClick(&menu(), Qt::Key_Space);
  QTRY_VERIFY(menu().view()->isVisible());
  QTest::keyClick(menu().view(), Qt::Key_End);
  QTest::keyClick(menu().view(), Qt::Key_Return);
  QTRY_VERIFY(m_b->panel());
  QCOMPARE(menu().currentIndex(), 0);
  QVERIFY(m_b->cancelPanel());
}

void TestDestinationMenus::wheelNeedsTheFocus_data() {
  QTest::addColumn<QString>("name");
  QTest::newRow("destination") << u"preferencesDestinationPopUp"_s;
  QTest::newRow("menu") << u"AACBitrate"_s;
  QTest::newRow("number") << u"AudioVolume"_s;
  QTest::newRow("main window") << u"CustomAC3Handling"_s;
}

void TestDestinationMenus::wheelNeedsTheFocus() {
  QFETCH(const QString, name);
  ostrak::setDefaultInt(u"ConversionPreset"_s, 2);
  m_b->close();
  QVERIFY(m_b->open());
  if (name == u"CustomAC3Handling"_s)
    QVERIFY(m_b->click(u"styleOptionsButton"_s));
  else
    QVERIFY(m_b->trigger(u"preferencesAction"_s));
  auto &control = *m_b->find<QWidget>(name);
  openPreferencesAt(control);
  QTRY_VERIFY(control.window()->isActiveWindow());
  const auto value = [&control] {
    const auto *list = qobject_cast<QComboBox *>(&control);
    return list ? list->currentIndex() : qobject_cast<QSpinBox *>(&control)->value();
  };
  const int before = value();
  control.clearFocus();
  for (const int notch : {1, -1}) {
    turnWheel(control, notch);
    QCOMPARE(value(), before);
  }
  QVERIFY(!control.hasFocus());
  control.setFocus();
  QTRY_VERIFY(control.hasFocus());
  turnWheel(control, -1);
  if (value() == before) turnWheel(control, 1);
  QVERIFY(value() != before);
}

void TestDestinationMenus::separatorIsNoDestination() {
  QVERIFY(m_b->addThreeFolders());
  for (const int separator : {2, 6}) {
    ostrak::setDefaultInt(u"DefaultDestination"_s, separator);
    QVERIFY(m_b->show(u"Film.mkv"_s));
    QCOMPARE(menu().currentIndex(), 0);
    QVERIFY(m_b->click(u"skipButton"_s));
  }
}

void TestDestinationMenus::foldersOfOneNameAreToldApart() {
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  QVERIFY(m_b->addFolder(u"preferencesDestinationPopUp"_s, u"one/Movies"_s));
  QVERIFY(m_b->addFolder(u"preferencesDestinationPopUp"_s, u"two/Movies"_s));
  auto &other = *m_b->find<QComboBox>(u"preferencesDestinationPopUp"_s);
  auto &list = *m_b->find<QListWidget>(u"destinationList"_s);
  for (const int role : {int(Qt::ToolTipRole), int(Qt::AccessibleDescriptionRole)}) {
    for (const QComboBox *each : {&menu(), &other}) {
      QCOMPARE(each->itemData(3, role).toString(), m_b->path(u"one/Movies"_s));
      QCOMPARE(each->itemData(4, role).toString(), m_b->path(u"two/Movies"_s));
    }
    QCOMPARE(list.item(0)->data(role).toString(), m_b->path(u"one/Movies"_s));
    QCOMPARE(list.item(1)->data(role).toString(), m_b->path(u"two/Movies"_s));
  }
}

int main(int argc, char **argv) {
  return runWindowTest<TestDestinationMenus>(argc, argv);
}
#include "tst_destinationmenus.moc"
