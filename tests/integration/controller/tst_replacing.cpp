#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTest>
#include <QUrl>
#include <csignal>

#include "ControllerTest.h"
#include "File.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What the user has agreed to replace is there until the job that replaces it starts.
class TestReplacing final : public ControllerTest {
  Q_OBJECT

 private Q_SLOTS:
  void init();

  void theStartReplaces();
  void aJobTakenOffHasReplacedNothing();
  void anObstacleAtTheStartReplacesNothing_data();
  void anObstacleAtTheStartReplacesNothing();
  void whatCameInItsPlaceIsNotReplaced();
  void aFullDiskIsNoObstacle();
  void whatComesLaterIsNotReplaced();
  void whatCannotMakeWayIsRefused_data();
  void whatCannotMakeWayIsRefused();
  void aSourceIsRefused();

 private:
  // Queues a movie for "old/out.m4v", which is there, as after the question about replacing it.
  void queueReplacing(const QString &movie = u"a.mkv"_s);
  [[nodiscard]] QString target() const { return m_p->path(u"old/out.m4v"_s); }
  [[nodiscard]] QByteArray found() const { return wholefile::read(target()); }
};

void TestReplacing::init() {
  ControllerTest::init();
  AppServices services = m_p->services();
  services.destination = [this](const MKVFileInfo &, const ClaimedNames &,
                                const DestinationAnswer &answer) {
    answer(Destination{QUrl::fromLocalFile(target()), {}, true});
  };
  m_p->restart(services);
  pauseClick();
  QVERIFY(QDir().mkpath(m_p->path(u"old"_s)));
  QVERIFY(wholefile::write(target(), "old"));
}

void TestReplacing::queueReplacing(const QString &movie) {
  m_p->intake().openFiles({m_p->movie(movie)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  (void)m_p->controller->addToQueue();
}

void TestReplacing::theStartReplaces() {
  queueReplacing();
  QCOMPARE(m_p->count(JobStateQueued), 1);
  QCOMPARE(found(), "old");
  pauseClick();
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QCOMPARE(QDir(m_p->path(u"old"_s)).entryList(QDir::Files), QStringList(u"out.m4v"_s));
  QVERIFY(!found().isEmpty());
  QVERIFY(found() != "old");
}

void TestReplacing::aJobTakenOffHasReplacedNothing() {
  queueReplacing();
  QCOMPARE(m_p->count(JobStateQueued), 1);
  m_p->queue().taskArray().first()->remove();
  QCOMPARE(found(), "old");
}

void TestReplacing::anObstacleAtTheStartReplacesNothing_data() {
  QTest::addColumn<QString>("obstacle");
  QTest::addColumn<JobState>("state");
  QTest::newRow("source gone") << u"source"_s << JobStateFailed;
  QTest::newRow("tool missing") << u"tool"_s << JobStateFailed;
  QTest::newRow("no room") << u"room"_s << JobStateQueued;
}

void TestReplacing::anObstacleAtTheStartReplacesNothing() {
  QFETCH(const QString, obstacle);
  QFETCH(const JobState, state);
  queueReplacing();
  QCOMPARE(m_p->count(JobStateQueued), 1);
  if (obstacle == "source"_L1) QVERIFY(QFile::remove(m_p->path(u"a.mkv"_s)));
  if (obstacle == "tool"_L1) m_p->program.setTool({});
  if (obstacle == "room"_L1) m_p->volumes.free = 0;
  pauseClick();
  QCOMPARE(m_p->count(state), 1);
  QTRY_COMPARE(m_p->program.presenter().presented.size(), 1);
  QCOMPARE(found(), "old");
}

// The agreement was about the file that was there.
void TestReplacing::whatCameInItsPlaceIsNotReplaced() {
  queueReplacing();
  QCOMPARE(m_p->count(JobStateQueued), 1);
  QVERIFY(QFile::remove(target()));
  QVERIFY(wholefile::write(target(), "another program's"));
  pauseClick();
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QCOMPARE(found(), "another program's");
  QVERIFY(QFile::exists(m_p->path(u"old/out-0.m4v"_s)));
}

// A full disk is a reason to replace: nothing may have to be written before.
void TestReplacing::aFullDiskIsNoObstacle() {
  m_p->intake().openFiles({m_p->movie(u"a.mkv"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  struct rlimit before {};
  QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const struct rlimit nothing { 0, before.rlim_max };
  const auto handler = ::signal(SIGXFSZ, SIG_IGN);
  QCOMPARE(::setrlimit(RLIMIT_FSIZE, &nothing), 0);
  const bool canWrite = ostrak::isWriteablePath(m_p->path(u"old/probe"_s));
  const std::optional<Admission> admission = m_p->controller->addToQueue();
  QCOMPARE(::setrlimit(RLIMIT_FSIZE, &before), 0);
  (void)::signal(SIGXFSZ, handler);
  QVERIFY(!canWrite);
  QCOMPARE(admission, Admission::added);
  QCOMPARE(found(), "old");
}

// A name that was free when it was chosen is made unique again like every other.
void TestReplacing::whatComesLaterIsNotReplaced() {
  QVERIFY(QFile::remove(target()));
  queueReplacing();
  QVERIFY(wholefile::write(target(), "another program's"));
  pauseClick();
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QCOMPARE(found(), "another program's");
  QVERIFY(QFile::exists(m_p->path(u"old/out-0.m4v"_s)));
}

void TestReplacing::whatCannotMakeWayIsRefused_data() {
  QTest::addColumn<QString>("what");
  QTest::newRow("a folder") << u"folder"_s;
  QTest::newRow("a file in a folder without permission") << u"locked"_s;
  // Somebody else's file can only be made by who may do everything.
  if (::geteuid() == 0) QTest::newRow("another's file in a shared folder") << u"sticky"_s;
}

void TestReplacing::whatCannotMakeWayIsRefused() {
  QFETCH(const QString, what);
  const QByteArray folder = QFile::encodeName(m_p->path(u"old"_s));
  const QString movie = m_p->movie(u"a.mkv"_s);
  m_p->intake().openFiles({movie});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  if (what == "folder"_L1) QVERIFY(QFile::remove(target()) && QDir().mkpath(target()));
  const mode_t mode = what == "locked"_L1 ? 0555 : what == "sticky"_L1 ? 01777 : 0777;
  QCOMPARE(::chmod(folder.constData(), mode), 0);
  // The scratch folder is its owner's alone.
  QCOMPARE(::chmod(QFile::encodeName(m_p->program.root()).constData(), 0755), 0);
  const uid_t user = ::geteuid();
  constexpr uid_t nobody = 65534;
  if (user == 0) QCOMPARE(::seteuid(nobody), 0);
  const std::optional<Admission> admission = m_p->controller->addToQueue();
  if (user == 0) QCOMPARE(::seteuid(user), 0);
  QCOMPARE(::chmod(folder.constData(), 0755), 0);
  QCOMPARE(admission, Admission::notWritable);
  QVERIFY(m_p->queue().taskArray().isEmpty());
  QCOMPARE(found(), what == "folder"_L1 ? QByteArray() : "old");
  QCOMPARE(QDir(m_p->path(u"old"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
           QStringList(u"out.m4v"_s));
  QTRY_COMPARE(m_p->program.presenter().presented.size(), 1);
}

void TestReplacing::aSourceIsRefused() {
  auto job = m_p->job(target(), m_p->path(u"b.m4v"_s));
  QCOMPARE(m_p->controller->addJob(std::move(job)), Admission::added);
  queueReplacing();
  QCOMPARE(m_p->queue().taskArray().size(), 1);
  QCOMPARE(found(), "old");
  QTRY_COMPARE(m_p->program.presenter().presented.size(), 1);
  QCOMPARE(m_p->program.presenter().presented.first().buttons, QStringList(u"D'oh"_s));
}

QTEST_GUILESS_MAIN(TestReplacing)
#include "tst_replacing.moc"
