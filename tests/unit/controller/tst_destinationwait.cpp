#include <QCoreApplication>
#include <QDir>
#include <QList>
#include <QSemaphore>
#include <QStringList>
#include <QTest>
#include <QUrl>

#include "Defaults.h"
#include "DestinationFolders.h"
#include "DestinationRoad.h"
#include "Destinations.h"
#include "Dispatch.h"
#include "Exceptions.h"
#include "FakePanels.h"
#include "GuardedApplication.h"
#include "Patience.h"
#include "ProgramTest.h"
#include "Sandbox.h"

using namespace Qt::StringLiterals;
using namespace decant;

namespace {

class RecordingPatience final : public ostrak::PatiencePresenter {
 public:
  void begin(const QString &title) override { seen.append(title); }
  void end() override { seen.append(u"end"_s); }
  QStringList seen;
};

}  // namespace

// Folders that take their time: nothing waits for them but the worker that looks.
class TestDestinationWait final : public ProgramTest {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();

  void slowFolderIsWaitedFor_data();
  void slowFolderIsWaitedFor();
  void goneFolderAnswersNothing();
  void lookThatFailsAnswersNothing_data();
  void lookThatFailsAnswersNothing();
  void lookThatFailsAtOnceAfterAPanel();
  void folderTakenOffTheListAnswersNothing();
  void anotherFolderTakenOffTheListDoesNotMatter();
  void roadThatGoesAnswersNobody();
  void looksIntoTheFolder_data();
  void looksIntoTheFolder();

 private:
  enum Entry { askEachTime = 0, nextToSource = 1, folder = 3 };
  void choose(int index);
  bool open() { return m_looked.tryAcquire(1, 20000); }

  FakeSandbox m_sandbox;
  std::unique_ptr<FakePanels> m_panels;
  std::unique_ptr<ClaimedNames> m_claimed;
  std::unique_ptr<DestinationFolders> m_folders;
  std::unique_ptr<DestinationRoad> m_road;
  RecordingPatience m_patience;
  QList<std::optional<Destination>> m_answers;
  QSemaphore m_looked;  // looks that have begun
  QSemaphore m_go;      // looks that may end
  QString m_place;      // what the last look was at
};

void TestDestinationWait::init() {
  ProgramTest::init();
  m_panels = std::make_unique<FakePanels>();
  m_claimed = std::make_unique<ClaimedNames>();
  m_sandbox.active = false;
  m_answers.clear();
  m_patience.seen.clear();
  ostrak::setPatiencePresenter(&m_patience);
  m_folders = std::make_unique<DestinationFolders>(m_sandbox);
  QDir(m_program->root()).mkpath(u"movies"_s);
  QDir(m_program->root()).mkpath(u"slow"_s);
  m_sandbox.granted.insert(m_program->path(u"slow"_s));
  QCOMPARE(m_folders->add(m_program->path(u"slow"_s)), DestinationFolders::Addition::added);
  m_road = std::make_unique<DestinationRoad>(*m_folders, *m_panels, [this](const QString &place) {
    m_place = place;
    m_looked.release();
    m_go.acquire();
  });
}

void TestDestinationWait::cleanup() {
  ostrak::setPatiencePresenter(nullptr);
  m_go.release(10);
  ostrak::dispatch_end();
  while (m_go.tryAcquire()) {
  }
  while (m_looked.tryAcquire()) {
  }
  m_road.reset();
  m_folders.reset();
  ProgramTest::cleanup();
}

void TestDestinationWait::choose(int index) {
  MKVFileInfo record;
  record.fileName = u"Film.mkv"_s;
  record.fileURL = QUrl::fromLocalFile(m_program->path(u"movies/Film.mkv"_s));
  m_road->setMenuIndex(index);
  m_road->choose(record, *m_claimed,
                 [this](const std::optional<Destination> &answer) { m_answers.append(answer); });
}

void TestDestinationWait::slowFolderIsWaitedFor_data() {
  QTest::addColumn<int>("entry");
  QTest::addColumn<QString>("place");
  QTest::newRow("asked for") << int{askEachTime} << u"slow"_s;
  QTest::newRow("next to the source") << int{nextToSource} << u"movies"_s;
  QTest::newRow("a folder of the menu") << int{folder} << u"slow"_s;
}

void TestDestinationWait::slowFolderIsWaitedFor() {
  QFETCH(const int, entry);
  QFETCH(const QString, place);
  choose(entry);
  const QString target = m_program->path(place + u"/Film.m4v"_s);
  if (entry == askEachTime) QVERIFY(m_panels->reply(target));
  QVERIFY(open());
  QCOMPARE(m_place, m_program->path(place));
  QVERIFY(m_answers.isEmpty());
  QTRY_COMPARE(m_patience.seen, QStringList{u"Checking the Destination"_s});
  QVERIFY(m_answers.isEmpty());
  m_go.release();
  QTRY_COMPARE(m_answers.size(), 1);
  QVERIFY(m_answers.first());
  QCOMPARE(m_answers.first()->url.toLocalFile(), target);
  QCOMPARE(m_patience.seen.last(), u"end"_s);
}

void TestDestinationWait::goneFolderAnswersNothing() {
  choose(folder);
  QVERIFY(open());
  QVERIFY(QDir(m_program->path(u"slow"_s)).removeRecursively());
  m_go.release();
  QTRY_COMPARE(m_answers.size(), 1);
  QVERIFY(!m_answers.first());
  // Whoever guards the event loop tells why.
  QTRY_COMPARE(m_program->presenter().presented.size(), 1);
  QVERIFY(m_program->presenter().presented.first().problemReport);
}

void TestDestinationWait::lookThatFailsAnswersNothing_data() {
  QTest::addColumn<int>("entry");
  QTest::newRow("asked for") << int{askEachTime};
  QTest::newRow("next to the source") << int{nextToSource};
  QTest::newRow("a folder of the menu") << int{folder};
}

// The record stays shown, and whoever guards the event loop tells what happened.
void TestDestinationWait::lookThatFailsAnswersNothing() {
  QFETCH(const int, entry);
  m_road = std::make_unique<DestinationRoad>(*m_folders, *m_panels, [this](const QString &) {
    m_looked.release();
    m_go.acquire();
    throw ostrak::Exception(u"Look"_s, u"no"_s);
  });
  choose(entry);
  if (entry == askEachTime) QVERIFY(m_panels->reply(m_program->path(u"slow/Film.m4v"_s)));
  QVERIFY(open());
  m_go.release();
  QTRY_COMPARE(m_answers.size(), 1);
  QVERIFY(!m_answers.first());
  QTRY_COMPARE(m_program->presenter().presented.size(), 1);
}

// The panel's answer comes from the event loop, long after the choice.
void TestDestinationWait::lookThatFailsAtOnceAfterAPanel() {
  m_road = std::make_unique<DestinationRoad>(
      *m_folders, *m_panels, [](const QString &) { throw ostrak::Exception(u"Look"_s, u"no"_s); });
  choose(askEachTime);
  ostrak::dispatch_async_main([this] { m_panels->reply(m_program->path(u"slow/Film.m4v"_s)); });
  QTRY_COMPARE(m_program->presenter().presented.size(), 1);
  QCOMPARE(m_answers.size(), 1);
  QVERIFY(!m_answers.first());
}

// The list is changed in the preferences while the folder is looked at.
void TestDestinationWait::folderTakenOffTheListAnswersNothing() {
  choose(folder);
  QVERIFY(open());
  m_folders->removeAt(0);
  m_go.release();
  QTRY_COMPARE(m_answers.size(), 1);
  QVERIFY(!m_answers.first());
  QVERIFY(m_program->presenter().presented.isEmpty());
}

void TestDestinationWait::anotherFolderTakenOffTheListDoesNotMatter() {
  QDir(m_program->root()).mkpath(u"second"_s);
  m_sandbox.granted.insert(m_program->path(u"second"_s));
  QCOMPARE(m_folders->add(m_program->path(u"second"_s)), DestinationFolders::Addition::added);
  choose(folder + 1);
  QVERIFY(open());
  m_folders->removeAt(0);
  m_go.release();
  QTRY_COMPARE(m_answers.size(), 1);
  QVERIFY(m_answers.first());
  QCOMPARE(m_answers.first()->url.toLocalFile(), m_program->path(u"second/Film.m4v"_s));
}

void TestDestinationWait::roadThatGoesAnswersNobody() {
  choose(nextToSource);
  QVERIFY(open());
  m_road.reset();
  m_go.release();
  bool later = false;
  QTRY_COMPARE(m_go.available(), 0);
  ostrak::dispatch_after_main([&] { later = true; }, 0.7F);
  QTRY_VERIFY(later);
  QVERIFY(m_answers.isEmpty());
}

void TestDestinationWait::looksIntoTheFolder_data() {
  QTest::addColumn<QString>("name");
  QTest::newRow("a folder") << u"slow"_s;
  QTest::newRow("none") << u"missing"_s;
}

void TestDestinationWait::looksIntoTheFolder() {
  QFETCH(const QString, name);
  const QString place = m_program->path(name);
  lookIntoFolder(place);
  QVERIFY(QDir(place).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty());
}

int main(int argc, char **argv) {
  const ostrak::GuardedApplication<QCoreApplication> application(argc, argv);
  TestDestinationWait test;
  return QTest::qExec(&test, argc, argv);
}
#include "tst_destinationwait.moc"
