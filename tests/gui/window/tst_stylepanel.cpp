#include <QAbstractButton>
#include <QCheckBox>
#include <QColor>
#include <QList>
#include <QPalette>
#include <QStringList>
#include <QTest>
#include <QWidget>

#include "Defaults.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The control of the conversion style and its three panels.
class TestStylePanel final : public WindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void storedStyleIsShown_data();
  void storedStyleIsShown();
  void choosing_data();
  void choosing();
  void choosingByKeys();
  void theChosenOneStandsOut();
  void optionsFoldOutAndIn();
  void nameOfTheFastStyle();
  void nextJobUsesTheStyle();
  void optionsAreSharedWithThePreferences();

 private:
  // The panels that are not hidden, by their index.
  [[nodiscard]] QList<int> panels() {
    QList<int> shown;
    const QStringList names{u"containerCompatible"_s, u"containerFast"_s, u"containerCustom"_s};
    for (int i = 0; i < names.size(); ++i)
      if (!m_b->find<QWidget>(names.at(i))->isHidden()) shown.append(i);
    return shown;
  }
  [[nodiscard]] QList<int> checked() {
    QList<int> found;
    const QStringList names{u"styleCompatible"_s, u"styleFast"_s, u"styleCustom"_s};
    for (int i = 0; i < names.size(); ++i)
      if (m_b->find<QAbstractButton>(names.at(i))->isChecked()) found.append(i);
    return found;
  }
};

void TestStylePanel::storedStyleIsShown_data() {
  QTest::addColumn<int>("stored");
  QTest::addColumn<int>("shown");
  QTest::newRow("compatible") << 0 << 0;
  QTest::newRow("fast") << 1 << 1;
  QTest::newRow("custom") << 2 << 2;
  QTest::newRow("beyond the list") << 7 << 1;
}

void TestStylePanel::storedStyleIsShown() {
  QFETCH(const int, stored);
  QFETCH(const int, shown);
  ostrak::setDefaultInt(u"ConversionPreset"_s, stored);
  QVERIFY(m_b->open());
  QCOMPARE(panels(), QList{shown});
  QCOMPARE(checked(), QList{shown});
}

void TestStylePanel::choosing_data() {
  QTest::addColumn<QString>("button");
  QTest::addColumn<int>("style");
  QTest::newRow("compatible") << u"styleCompatible"_s << 0;
  QTest::newRow("fast") << u"styleFast"_s << 1;
  QTest::newRow("custom") << u"styleCustom"_s << 2;
}

void TestStylePanel::choosing() {
  QFETCH(const QString, button);
  QFETCH(const int, style);
  for (int before = 0; before < 3; ++before) {
    ostrak::setDefaultInt(u"ConversionPreset"_s, before);
    QVERIFY(m_b->open());
    QVERIFY(m_b->click(button));
    QCOMPARE(static_cast<int>(ostrak::defaultInt(u"ConversionPreset"_s)), style);
    QCOMPARE(panels(), QList{style});
    QCOMPARE(checked(), QList{style});
    // Once more changes nothing.
    QVERIFY(m_b->click(button));
    QCOMPARE(checked(), QList{style});
    m_b->close();
  }
}

void TestStylePanel::choosingByKeys() {
  QVERIFY(m_b->open());
  auto *custom = m_b->find<QAbstractButton>(u"styleCustom"_s);
  custom->setFocus();
  QTest::keyClick(custom, Qt::Key_Space);
  QCOMPARE(static_cast<int>(ostrak::defaultInt(u"ConversionPreset"_s)), 2);
  QCOMPARE(panels(), QList{2});
}

void TestStylePanel::theChosenOneStandsOut() {
  QVERIFY(m_b->open());
  const auto colour = [this](const QString &name) {
    return m_b->find<QWidget>(name)->palette().color(QPalette::Active, QPalette::Button);
  };
  QVERIFY(m_b->click(u"styleFast"_s));
  QCOMPARE(colour(u"styleFast"_s), m_b->window().palette().color(QPalette::Highlight));
  QCOMPARE(colour(u"styleCompatible"_s), m_b->window().palette().color(QPalette::Button));
  // The desktop turns dark while the window is open.
  QPalette dark = m_b->window().palette();
  dark.setColor(QPalette::Highlight, QColor(0x20, 0x60, 0xa0));
  m_b->window().setPalette(dark);
  QCOMPARE(colour(u"styleFast"_s), QColor(0x20, 0x60, 0xa0));
}

void TestStylePanel::optionsFoldOutAndIn() {
  QVERIFY(m_b->open());
  auto *container = m_b->find<QWidget>(u"customContainer"_s);
  QVERIFY(!container->isVisible());
  QVERIFY(m_b->click(u"styleOptionsButton"_s));
  QVERIFY(container->isVisible());
  QVERIFY(m_b->find<QWidget>(u"containerCompatible"_s)->isVisible());
  QVERIFY(m_b->click(u"styleCustom"_s));
  QVERIFY(m_b->find<QWidget>(u"containerCustom"_s)->isVisible());
  QVERIFY(!m_b->find<QWidget>(u"containerCompatible"_s)->isVisible());
  QVERIFY(m_b->click(u"styleOptionsButton"_s));
  QVERIFY(!container->isVisible());
}

void TestStylePanel::nameOfTheFastStyle() {
  QVERIFY(m_b->open());
  // Two ampersands show as one.
  QCOMPARE(m_b->find<QAbstractButton>(u"styleFast"_s)->text().replace(u"&&"_s, u"&"_s),
           u"High Speed & Quality"_s);
}

void TestStylePanel::nextJobUsesTheStyle() {
  m_b->prober.tracks = QStringList{u"#1: eng (ac3)"_s};
  QVERIFY(m_b->open());
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->queueUp({u"1.mkv"_s}));
  QVERIFY(m_b->click(u"styleFast"_s));
  QVERIFY(m_b->queueUp({u"2.mkv"_s}));
  const auto jobs = m_b->queue().taskArray();
  QVERIFY(!jobs.at(0)->fastmode());
  QVERIFY(jobs.at(1)->fastmode());
}

void TestStylePanel::optionsAreSharedWithThePreferences() {
  QVERIFY(m_b->open());
  QVERIFY(m_b->click(u"styleFast"_s));
  QVERIFY(m_b->click(u"styleOptionsButton"_s));
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  auto *here = m_b->find<QCheckBox>(u"ac3Downmix"_s);
  auto *there = m_b->find<QCheckBox>(u"prefAC3Downmix"_s);
  QVERIFY(here && there && !here->isChecked() && !there->isChecked());
  here->click();
  QVERIFY(there->isChecked());
  QCOMPARE(ostrak::defaultInt(u"AC3Downmix"_s), 1);
  there->click();
  QVERIFY(!here->isChecked());
  QCOMPARE(ostrak::defaultInt(u"AC3Downmix"_s), 0);
}

int main(int argc, char **argv) {
  return runWindowTest<TestStylePanel>(argc, argv);
}
#include "tst_stylepanel.moc"
