#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QListWidget>
#include <QPushButton>
#include <QStringList>
#include <QTabWidget>
#include <QTest>
#include <QWidget>

#include "Defaults.h"
#include "PreferencesWindow.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The two destination menus and the list of folders.
class TestWindowDestinations final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void fourItemsWithoutFolders();
  void addingFromTheMainWindowOnlySelects();
  void emptyListSaysSo();
  void addingFromThePreferencesIsTheDefault();
  void buttonOfThePreferencesAddsToo();
  void cancelledAdditionKeepsTheSelection();
  void duplicateGoesBackToTheFirst_data();
  void duplicateGoesBackToTheFirst();
  void additionKeepsWhatIsPickedForTheShownFile();
  void removalKeepsWhatIsPicked();
  void newFileGoesBackToTheDefault();
  void preferencesMenuSetsTheDefault();
  void removal_data();
  void removal();
  void launchDropsWhatIsGone();
  void launchRepairsTheIndex_data();
  void launchRepairsTheIndex();

 private:
  [[nodiscard]] QComboBox &menu() { return *m_b->find<QComboBox>(u"destinationPopUp"_s); }
  [[nodiscard]] QComboBox &preferencesMenu() {
    return *m_b->find<QComboBox>(u"preferencesDestinationPopUp"_s);
  }
  [[nodiscard]] static QStringList texts(const QComboBox &menu) {
    QStringList found;
    for (int i = 0; i < menu.count(); ++i)
      found.append(menu.itemData(i, Qt::AccessibleDescriptionRole).toString() == "separator"_L1
                       ? u"-"_s
                       : menu.itemText(i));
    return found;
  }
  [[nodiscard]] static qint64 stored() { return ostrak::defaultInt(u"DefaultDestination"_s); }
};

void TestWindowDestinations::fourItemsWithoutFolders() {
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  for (const QComboBox *each : {&menu(), &preferencesMenu()}) {
    QCOMPARE(each->count(), 4);
    QCOMPARE(texts(*each),
             QStringList({u"Ask Each Time"_s, u"Next to Source File"_s, u"-"_s, u"Add Folder…"_s}));
    QCOMPARE(each->currentIndex(), 0);
  }
}

void TestWindowDestinations::addingFromTheMainWindowOnlySelects() {
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(m_b->pick(u"destinationPopUp"_s, 3));
  QTRY_VERIFY(m_b->panel());
  QCOMPARE(m_b->panel()->parentWidget(), &m_b->window());
  QCOMPARE(m_b->panel()->fileMode(), QFileDialog::Directory);
  QVERIFY(m_b->panel()->testOption(QFileDialog::ShowDirsOnly));
  QCOMPARE(menu().currentIndex(), 0);
  QVERIFY(m_b->answerPanel(m_b->folder(u"one"_s)));
  QCOMPARE(texts(menu()), QStringList({u"Ask Each Time"_s, u"Next to Source File"_s, u"-"_s,
                                       u"one"_s, u"-"_s, u"Add Folder…"_s}));
  QCOMPARE(menu().currentIndex(), menu().count() - 3);
  QCOMPARE(stored(), 0);
  QVERIFY(m_b->addFolder(u"destinationPopUp"_s, u"two"_s));
  QCOMPARE(menu().currentText(), u"two"_s);
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->click(u"addButton"_s));
  QCOMPARE(m_b->queue().taskArray().value(0)->fileInfo().destinationURL.toLocalFile(),
           m_b->path(u"two/Film.m4v"_s));
}

void TestWindowDestinations::emptyListSaysSo() {
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  const auto *words = m_b->find<QLabel>(u"noDestinations"_s);
  QVERIFY(words && !words->isHidden());
  QVERIFY(m_b->addFolder(u"preferencesDestinationPopUp"_s, u"one"_s));
  QVERIFY(words->isHidden());
}

void TestWindowDestinations::addingFromThePreferencesIsTheDefault() {
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  QVERIFY(m_b->pick(u"preferencesDestinationPopUp"_s, 3));
  QTRY_VERIFY(m_b->panel());
  QCOMPARE(m_b->panel()->parentWidget(), m_b->find<QWidget>(u"preferencesWindow"_s));
  QVERIFY(m_b->answerPanel(m_b->folder(u"one"_s)));
  QCOMPARE(stored(), 3);
  QCOMPARE(preferencesMenu().currentIndex(), 3);
  QVERIFY(m_b->addFolder(u"preferencesDestinationPopUp"_s, u"two"_s));
  QCOMPARE(stored(), 4);
  QCOMPARE(preferencesMenu().currentIndex(), preferencesMenu().count() - 3);
  QCOMPARE(m_b->find<QListWidget>(u"destinationList"_s)->count(), 2);
}

void TestWindowDestinations::buttonOfThePreferencesAddsToo() {
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  m_b->find<QTabWidget>(u"preferencesTabs"_s)
      ->setCurrentWidget(m_b->find<QWidget>(u"destinationsPage"_s));
  QVERIFY(m_b->click(u"addDestinationButton"_s));
  QVERIFY(m_b->answerPanel(m_b->folder(u"one"_s)));
  QCOMPARE(stored(), 3);
  QCOMPARE(preferencesMenu().currentText(), u"one"_s);
}

void TestWindowDestinations::cancelledAdditionKeepsTheSelection() {
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(m_b->pick(u"destinationPopUp"_s, 1));
  QVERIFY(m_b->pick(u"destinationPopUp"_s, 3));
  QVERIFY(m_b->cancelPanel());
  QCOMPARE(menu().currentIndex(), 1);
  QCOMPARE(menu().count(), 4);
}

void TestWindowDestinations::duplicateGoesBackToTheFirst_data() {
  QTest::addColumn<QString>("from");
  QTest::newRow("main window") << u"destinationPopUp"_s;
  QTest::newRow("preferences") << u"preferencesDestinationPopUp"_s;
}

void TestWindowDestinations::duplicateGoesBackToTheFirst() {
  QFETCH(const QString, from);
  QVERIFY(m_b->addThreeFolders());
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QCOMPARE(menu().currentIndex(), 5);
  QVERIFY(m_b->addFolder(from, u"b"_s));
  QTRY_COMPARE(m_b->presented().size(), 1);
  QCOMPARE(m_b->told().first(),
           u"This destination is already bookmarked. You can not add it again."_s);
  QCOMPARE(stored(), 0);
  QCOMPARE(menu().currentIndex(), 0);
  QCOMPARE(preferencesMenu().currentIndex(), 0);
  QCOMPARE(menu().count(), 8);
}

void TestWindowDestinations::additionKeepsWhatIsPickedForTheShownFile() {
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(m_b->pick(u"destinationPopUp"_s, 1));
  QVERIFY(m_b->addFolder(u"preferencesDestinationPopUp"_s, u"one"_s));
  QCOMPARE(menu().currentIndex(), 1);
  QCOMPARE(menu().count(), 6);
}

void TestWindowDestinations::removalKeepsWhatIsPicked() {
  QVERIFY(m_b->addThreeFolders());
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(m_b->pick(u"destinationPopUp"_s, 4));
  m_b->find<QListWidget>(u"destinationList"_s)->setCurrentRow(0);
  m_b->find<QPushButton>(u"removeDestinationButton"_s)->click();
  QCOMPARE(menu().currentText(), u"b"_s);
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->click(u"addButton"_s));
  QCOMPARE(m_b->queue().taskArray().value(0)->fileInfo().destinationURL.toLocalFile(),
           m_b->path(u"b/Film.m4v"_s));
}

void TestWindowDestinations::newFileGoesBackToTheDefault() {
  ostrak::setDefaultInt(u"DefaultDestination"_s, 1);
  QVERIFY(m_b->show(u"1.mkv"_s));
  QCOMPARE(menu().currentIndex(), 1);
  QVERIFY(m_b->pick(u"destinationPopUp"_s, 0));
  QVERIFY(m_b->click(u"skipButton"_s));
  QVERIFY(m_b->show(u"2.mkv"_s));
  QCOMPARE(menu().currentIndex(), 1);
}

void TestWindowDestinations::preferencesMenuSetsTheDefault() {
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  QVERIFY(m_b->pick(u"preferencesDestinationPopUp"_s, 1));
  QCOMPARE(stored(), 1);
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QCOMPARE(menu().currentIndex(), 1);
}

void TestWindowDestinations::removal_data() {
  QTest::addColumn<int>("row");
  QTest::addColumn<int>("after");
  QTest::addColumn<QString>("selected");
  QTest::newRow("below the default") << 0 << 3 << u"b"_s;
  QTest::newRow("the default") << 1 << 0 << u"Ask Each Time"_s;
  QTest::newRow("above the default") << 2 << 4 << u"b"_s;
}

void TestWindowDestinations::removal() {
  QFETCH(const int, row);
  QVERIFY(m_b->addThreeFolders());
  QVERIFY(m_b->pick(u"preferencesDestinationPopUp"_s, 4));
  auto &list = *m_b->find<QListWidget>(u"destinationList"_s);
  auto &button = *m_b->find<QPushButton>(u"removeDestinationButton"_s);
  list.setCurrentRow(-1);
  QVERIFY(!button.isEnabled());
  list.setCurrentRow(row);
  QVERIFY(button.isEnabled());
  button.click();
  QCOMPARE(list.count(), 2);
  QTEST(static_cast<int>(stored()), "after");
  QTEST(preferencesMenu().currentText(), "selected");
  QCOMPARE(preferencesMenu().count(), 7);
  QCOMPARE(menu().count(), 7);
}

void TestWindowDestinations::launchDropsWhatIsGone() {
  QVERIFY(m_b->addThreeFolders());
  m_b->close();
  QVERIFY(QDir().rmdir(m_b->path(u"b"_s)));
  QVERIFY(m_b->open());
  QCOMPARE(texts(menu()).mid(3, 2), QStringList({u"a"_s, u"c"_s}));
  QCOMPARE(menu().count(), 7);
  // The index is looked at after that: the last folder's is now beyond the list.
  QCOMPARE(stored(), 3);
  QCOMPARE(menu().currentIndex(), 3);
  QVERIFY(m_b->program.logged().contains(u"Info: going to delete 1 invalid bookmarks"_s));
}

void TestWindowDestinations::launchRepairsTheIndex_data() {
  QTest::addColumn<int>("before");
  QTest::addColumn<int>("after");
  QTest::newRow("separator") << 2 << 0;
  QTest::newRow("far beyond") << 5 << 1;
  QTest::newRow("next to the source") << 1 << 1;
}

void TestWindowDestinations::launchRepairsTheIndex() {
  QFETCH(const int, before);
  m_b->close();
  ostrak::setDefaultInt(u"HasUpgradedFromPre13"_s, 1);
  ostrak::setDefaultInt(u"DefaultDestination"_s, before);
  QVERIFY(m_b->open());
  QTEST(static_cast<int>(stored()), "after");
  QTEST(menu().currentIndex(), "after");
}

int main(int argc, char **argv) {
  return runWindowTest<TestWindowDestinations>(argc, argv);
}
#include "tst_windowdestinations.moc"
