#include <sched.h>
#include <sys/resource.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>
#include <cstdio>

#include "DirectoryObserving.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

constexpr int notAllowed = 77;

// A user of its own, who may have eight watches.
bool limitWatches() {
  if (::unshare(CLONE_NEWUSER) != 0) return false;
  QFile limit(u"/proc/sys/user/max_inotify_watches"_s);
  return limit.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && limit.write("8") == 1;
}

// Prints what is logged.
int playLimited(int &argc, char **argv) {
  if (!limitWatches()) return notAllowed;
  const QCoreApplication application(argc, argv);
  ScratchProgram program;
  const QString folder = program.path(u"home/watched"_s);
  for (int i = 0; i < 20; ++i)
    QDir().mkpath(folder + u"/sub%1"_s.arg(i));
  auto countdown = std::make_unique<ManualCountdown>();
  const ManualCountdown *seen = countdown.get();
  const FolderObservation observation = startObserving(
      folder, [] {}, std::move(countdown));
  if (!observation.isRunning()) return 2;
  if (!QTest::qWaitFor([&] { return !program.logged().isEmpty(); }, 30'000)) return 3;
  if (seen->isRunning()) return 4;
  // One more that there is no room for, and a change in what is watched all the same.
  QDir().mkdir(folder + u"/late"_s);
  if (!QTest::qWaitFor([seen] { return seen->isRunning(); }, 30'000)) return 5;
  stopObserving(observation);
  std::fputs(program.logged().join(u'\n').toUtf8().constData(), stdout);
  return 0;
}

}  // namespace

// A folder that is to be watched where the system has no room for it.
class TestDirectoryLimits final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void noDescriptorsLeft();
  void limitOfWatches();
};

void TestDirectoryLimits::noDescriptorsLeft() {
  const ScratchProgram program;
  const QString watched = program.path(u"watched"_s);
  QVERIFY(QDir().mkpath(watched));
  // A sanitizer opens what it needs for looking at an object's type the first time it meets one.
  stopObserving(startObserving(watched, [] {}));
  rlimit before{};
  QCOMPARE(::getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit none{0, before.rlim_max};
  QCOMPARE(::setrlimit(RLIMIT_NOFILE, &none), 0);
  const FolderObservation observation = startObserving(watched, [] {});
  QCOMPARE(::setrlimit(RLIMIT_NOFILE, &before), 0);
  QVERIFY(!observation.isRunning());
  QCOMPARE(program.logged(),
           QStringList{
               u"Warning: the folder %1 cannot be watched, the system's limits are reached"_s.arg(
                   watched)});
}

void TestDirectoryLimits::limitOfWatches() {
  QProcess process;
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process.start(QCoreApplication::applicationFilePath(), {u"--role"_s, u"limited"_s});
  QVERIFY(process.waitForFinished(60'000));
  QCOMPARE(process.exitStatus(), QProcess::NormalExit);
  if (process.exitCode() == notAllowed) {
    qInfo("no limit may be set here");
    return;
  }
  QCOMPARE(process.exitCode(), 0);
  const QString told = QString::fromUtf8(process.readAllStandardOutput());
  QVERIFY2(told.startsWith(u"Warning: not every folder in /"_s), qPrintable(told));
  QCOMPARE(told.count(u'\n'), 0);
}

int main(int argc, char **argv) {
  if (argc == 3 && qstrcmp(argv[1], "--role") == 0) return playLimited(argc, argv);
  const QCoreApplication application(argc, argv);
  TestDirectoryLimits test;
  return QTest::qExec(&test, argc, argv);
}
#include "tst_directorylimits.moc"
