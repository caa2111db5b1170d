#include <QComboBox>
#include <QDir>
#include <QStringList>
#include <QTest>

#include "Defaults.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

using State = Intake::State;

// Where jobs go by the destination menu, and what happens when they cannot.
class TestDestinationJobs final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void sandboxAsksForTheFolder();
  void sandboxWithoutAnAnswerKeepsTheFileShown();
  void intoAFolder();
  void renamedFolderIsFollowed();
  void goneFolderIsReportedAndTheQueueGoesOn();
  void refusedJobGivesItsAccessBack();

 private:
  [[nodiscard]] QComboBox &menu() { return *m_b->find<QComboBox>(u"destinationPopUp"_s); }
};

void TestDestinationJobs::sandboxAsksForTheFolder() {
  m_b->close();
  m_b->sandbox.active = true;
  ostrak::setDefaultInt(u"HasUpgradedFromPre13"_s, 1);
  ostrak::setDefaultInt(u"DefaultDestination"_s, 1);
  QVERIFY(m_b->open());
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->show(u"in/Film.mkv"_s));
  QVERIFY(m_b->click(u"addButton"_s));
  QTRY_VERIFY(m_b->panel());
  QCOMPARE(m_b->presented().size(), 1);
  QVERIFY(m_b->told().first().startsWith(u"You've chosen the 'Next to' default destination"_s));
  QVERIFY(m_b->answerPanel(m_b->path(u"in"_s)));
  QCOMPARE(m_b->names(), QStringList{u"Film.mkv"_s});
  QVERIFY(m_b->show(u"in/Next.mkv"_s));
  QVERIFY(m_b->click(u"addButton"_s));
  QCOMPARE(m_b->names().size(), 2);
  QCOMPARE(m_b->presented().size(), 1);
}

void TestDestinationJobs::sandboxWithoutAnAnswerKeepsTheFileShown() {
  m_b->close();
  m_b->sandbox.active = true;
  ostrak::setDefaultInt(u"HasUpgradedFromPre13"_s, 1);
  ostrak::setDefaultInt(u"DefaultDestination"_s, 1);
  QVERIFY(m_b->open());
  QVERIFY(m_b->show(u"in/Film.mkv"_s));
  QVERIFY(m_b->click(u"addButton"_s));
  QVERIFY(m_b->cancelPanel());
  QCOMPARE(m_b->intake().state(), State::Showing);
  QVERIFY(m_b->click(u"addButton"_s));
  QVERIFY(m_b->answerPanel(m_b->folder(u"elsewhere"_s)));
  QTRY_COMPARE(m_b->presented().size(), 3);
  QCOMPARE(m_b->told().last(), u"You did not seem to select a folder that contains your MKV."_s);
  QVERIFY(m_b->names().isEmpty());
  QCOMPARE(m_b->intake().state(), State::Showing);
}

void TestDestinationJobs::intoAFolder() {
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->addThreeFolders());
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(m_b->pick(u"destinationPopUp"_s, 4));
  QVERIFY(m_b->click(u"addButton"_s));
  QCOMPARE(m_b->queue().taskArray().value(0)->fileInfo().destinationURL.toLocalFile(),
           m_b->path(u"b/Film.m4v"_s));
  QCOMPARE(m_b->sandbox.open, 1);
  m_b->queue().taskArray().value(0)->remove();
  QTRY_COMPARE(m_b->sandbox.open, 0);
}

void TestDestinationJobs::renamedFolderIsFollowed() {
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->addThreeFolders());
  QVERIFY(QDir(m_b->program.root()).rename(u"c"_s, u"d"_s));
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(m_b->click(u"addButton"_s));
  QCOMPARE(m_b->queue().taskArray().value(0)->fileInfo().destinationURL.toLocalFile(),
           m_b->path(u"d/Film.m4v"_s));
}

void TestDestinationJobs::goneFolderIsReportedAndTheQueueGoesOn() {
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  QVERIFY(m_b->addThreeFolders());
  QVERIFY(QDir().rmdir(m_b->path(u"c"_s)));
  m_b->program.presenter().answer(ostrak::secondButton);
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(m_b->click(u"addButton"_s));
  QTRY_COMPARE(m_b->presented().size(), 1);
  QVERIFY(m_b->presented().first().problemReport);
  QVERIFY(m_b->told().first().contains(u"Bookmark Problem: URLByResolvingBookmarkData"_s));
  QCOMPARE(m_b->count(JobStateConverting), 1);
  QCOMPARE(m_b->intake().state(), State::Showing);
  QVERIFY(m_b->pick(u"destinationPopUp"_s, 1));
  QVERIFY(m_b->click(u"addButton"_s));
  QCOMPARE(m_b->names(), QStringList({u"slow.mkv"_s, u"Film.mkv"_s}));
  m_b->letGo();
  QTRY_COMPARE(m_b->count(JobStateFinished), 2);
}

void TestDestinationJobs::refusedJobGivesItsAccessBack() {
  // A folder in which nobody can make a file.
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(m_b->pick(u"destinationPopUp"_s, 3));
  QVERIFY(m_b->answerPanel(u"/proc"_s));
  QCOMPARE(menu().currentText(), u"proc"_s);
  QVERIFY(m_b->click(u"addButton"_s));
  QTRY_COMPARE(m_b->presented().size(), 1);
  QVERIFY(m_b->told().first().startsWith(u"You don't seem to have write access"_s));
  QVERIFY(m_b->names().isEmpty());
  QTRY_COMPARE(m_b->sandbox.open, 0);
}

int main(int argc, char **argv) {
  return runWindowTest<TestDestinationJobs>(argc, argv);
}
#include "tst_destinationjobs.moc"
