#include <QAbstractItemModel>
#include <QComboBox>
#include <QStringList>
#include <QTest>
#include <QWidget>

#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The file panel and the keyboard.
class TestFilePanelFocus final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void hiddenPanelIsOutOfReach();
  void addingGivesTheFocusToTheList();
  void skippingGivesTheFocusToTheList();
  void focusElsewhereStaysThere();
  void audioMenuIsNotFilledByItsOwnChoice();

 private:
  void furnish() override {
    m_b->app().pauseContinueClicked(true);
    QVERIFY(m_b->queueUp({u"first.mkv"_s}));
  }
  [[nodiscard]] QWidget &list() { return *m_b->find<QWidget>(u"jobList"_s); }
};

void TestFilePanelFocus::hiddenPanelIsOutOfReach() {
  auto &panel = *m_b->find<QWidget>(u"filePanel"_s);
  auto &skip = *m_b->find<QWidget>(u"skipButton"_s);
  QTRY_VERIFY(!panel.isVisible());
  QVERIFY(!skip.isEnabled());
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(panel.isVisible());
  QVERIFY(skip.isEnabled());
  QVERIFY(m_b->click(u"skipButton"_s));
  QVERIFY(!skip.isEnabled());
  QTRY_VERIFY(!panel.isVisible());
}

void TestFilePanelFocus::addingGivesTheFocusToTheList() {
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(m_b->pick(u"destinationPopUp"_s, 1));
  auto &add = *m_b->find<QWidget>(u"addButton"_s);
  add.setFocus();
  QTest::keyClick(&add, Qt::Key_Space);
  QCOMPARE(m_b->names().size(), 2);
  QVERIFY(list().hasFocus());
}

void TestFilePanelFocus::skippingGivesTheFocusToTheList() {
  QVERIFY(m_b->show(u"Film.mkv"_s));
  auto &skip = *m_b->find<QWidget>(u"skipButton"_s);
  skip.setFocus();
  QTest::keyClick(&skip, Qt::Key_Space);
  QVERIFY(list().hasFocus());
}

void TestFilePanelFocus::focusElsewhereStaysThere() {
  QVERIFY(m_b->show(u"Film.mkv"_s));
  auto &style = *m_b->find<QWidget>(u"styleFast"_s);
  style.setFocus();
  QVERIFY(m_b->click(u"skipButton"_s));
  QVERIFY(style.hasFocus());
}

void TestFilePanelFocus::audioMenuIsNotFilledByItsOwnChoice() {
  m_b->prober.tracks = QStringList{u"#1: ger (aac)"_s, u"#2: eng (ac3)"_s};
  QVERIFY(m_b->show(u"Film.mkv"_s));
  auto &menu = *m_b->find<QComboBox>(u"audioPopUp"_s);
  QCOMPARE(menu.count(), 2);
  int resets = 0;
  connect(menu.model(), &QAbstractItemModel::rowsRemoved, this, [&] { ++resets; });
  connect(menu.model(), &QAbstractItemModel::modelReset, this, [&] { ++resets; });
  const int other = menu.currentIndex() == 0 ? 1 : 0;
  QVERIFY(m_b->pick(u"audioPopUp"_s, other));
  QCOMPARE(m_b->intake().audioTrackIndex(), static_cast<quint64>(other));
  QCOMPARE(menu.currentIndex(), other);
  QCOMPARE(resets, 0);
}

int main(int argc, char **argv) {
  return runWindowTest<TestFilePanelFocus>(argc, argv);
}
#include "tst_filepanelfocus.moc"
