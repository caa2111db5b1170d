#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include "DirectoryObserving.h"
#include "ScratchProgram.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;
using std::chrono::milliseconds;

// A watched folder as its users meet it. The two seconds are the test's to give, but for one test.
class TestDirectoryObserving final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void tenFilesAreOneCall();
  void tenFilesInRealTime();
  void changesBelow();
  void eachWindowHasItsCall();
  void stopped();
  void stoppedWhileTheWindowRuns();
  void stoppedFromInside();
  void stoppedTwiceAndNever();
  void secondLeavesTheFirst();
  void tilde();
  void throughALink();
  void unusablePaths_data();
  void unusablePaths();
  void ofAnotherThread();
  void withoutAnEventLoop();

 private:
  struct Watched {
    FolderObservation observation;
    ManualCountdown *countdown = nullptr;  // lives as long as the watch
  };
  [[nodiscard]] QString path(const QString &name) const { return m_program->path(name); }
  void make(const QString &name) const { QVERIFY(QDir().mkpath(path(name))); }
  void write(const QString &name) const { QVERIFY(wholefile::write(path(name), "x")); }
  Watched watch(const QString &folder, const std::function<void()> &also = {}) {
    auto countdown = std::make_unique<ManualCountdown>();
    ManualCountdown *seen = countdown.get();
    const auto changed = [this, also] {
      ++m_calls;
      if (also) also();
    };
    return {startObserving(folder, changed, std::move(countdown)), seen};
  }

  std::unique_ptr<ScratchProgram> m_program;
  int m_calls = 0;
};

void TestDirectoryObserving::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_program = std::make_unique<ScratchProgram>();
  m_calls = 0;
  make(u"watched/sub"_s);
}

void TestDirectoryObserving::cleanup() {
  m_program.reset();
}

void TestDirectoryObserving::tenFilesAreOneCall() {
  const Watched watched = watch(path(u"watched"_s));
  QVERIFY(watched.observation.isRunning());
  for (int i = 0; i < 10; ++i)
    write(u"watched/file%1"_s.arg(i));
  QTRY_VERIFY(watched.countdown->isRunning());
  QCOMPARE(watched.countdown->lastSpan, milliseconds(2000));
  QCOMPARE(m_calls, 0);
  watched.countdown->elapse();
  QCOMPARE(m_calls, 1);
  QCOMPARE(watched.countdown->starts, 1);
  stopObserving(watched.observation);
}

void TestDirectoryObserving::tenFilesInRealTime() {
  const FolderObservation observation = startObserving(path(u"watched"_s), [this] { ++m_calls; });
  for (int i = 0; i < 10; ++i)
    write(u"watched/file%1"_s.arg(i));
  QTRY_COMPARE_WITH_TIMEOUT(m_calls, 1, 30'000);
  write(u"watched/sub/file"_s);
  // A call too many for the files would be seen by now.
  QTRY_COMPARE_WITH_TIMEOUT(m_calls, 2, 30'000);
  stopObserving(observation);
}

void TestDirectoryObserving::changesBelow() {
  const Watched watched = watch(path(u"watched"_s));
  write(u"watched/sub/file"_s);
  QTRY_VERIFY(watched.countdown->isRunning());
  watched.countdown->elapse();
  make(u"watched/new/deep"_s);
  QTRY_VERIFY(watched.countdown->isRunning());
  watched.countdown->elapse();
  QCOMPARE(m_calls, 2);
  stopObserving(watched.observation);
}

void TestDirectoryObserving::eachWindowHasItsCall() {
  const Watched watched = watch(path(u"watched"_s));
  for (int round = 1; round <= 3; ++round) {
    write(u"watched/file"_s);
    QTRY_VERIFY(watched.countdown->isRunning());
    watched.countdown->elapse();
    QCOMPARE(m_calls, round);
    QVERIFY(!watched.countdown->isRunning());
  }
  stopObserving(watched.observation);
}

void TestDirectoryObserving::stopped() {
  const Watched watched = watch(path(u"watched"_s));
  const Watched other = watch(path(u"watched"_s));
  stopObserving(watched.observation);
  QVERIFY(!watched.observation.isRunning());
  write(u"watched/file"_s);
  QTRY_VERIFY(other.countdown->isRunning());
  other.countdown->elapse();
  QCOMPARE(m_calls, 1);
  stopObserving(other.observation);
}

void TestDirectoryObserving::stoppedWhileTheWindowRuns() {
  const Watched watched = watch(path(u"watched"_s));
  write(u"watched/file"_s);
  QTRY_VERIFY(watched.countdown->isRunning());
  stopObserving(watched.observation);
  QVERIFY(!watched.countdown->isRunning());
  QCOMPARE(m_calls, 0);
}

void TestDirectoryObserving::stoppedFromInside() {
  FolderObservation observation;
  const Watched watched = watch(path(u"watched"_s), [&] { stopObserving(observation); });
  observation = watched.observation;
  write(u"watched/file"_s);
  QTRY_VERIFY(watched.countdown->isRunning());
  watched.countdown->elapse();
  QCOMPARE(m_calls, 1);
  QVERIFY(!observation.isRunning());
}

void TestDirectoryObserving::stoppedTwiceAndNever() {
  stopObserving(FolderObservation());
  QVERIFY(!FolderObservation().isRunning());
  const Watched watched = watch(path(u"watched"_s));
  stopObserving(watched.observation);
  stopObserving(watched.observation);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  stopObserving(watched.observation);
  QVERIFY(!watched.observation.isRunning());
}

void TestDirectoryObserving::secondLeavesTheFirst() {
  Watched watched = watch(path(u"watched"_s));
  const Watched first = watched;
  watched = watch(path(u"watched"_s));
  stopObserving(watched.observation);
  write(u"watched/file"_s);
  QTRY_VERIFY(first.countdown->isRunning());
  first.countdown->elapse();
  QCOMPARE(m_calls, 1);
  stopObserving(first.observation);
}

void TestDirectoryObserving::tilde() {
  const QByteArray home = qgetenv("HOME");
  const auto restore = qScopeGuard([&] { qputenv("HOME", home); });
  qputenv("HOME", QFile::encodeName(m_program->root()));
  const Watched watched = watch(u"~/watched"_s);
  write(u"watched/file"_s);
  QTRY_VERIFY(watched.countdown->isRunning());
  stopObserving(watched.observation);
}

void TestDirectoryObserving::throughALink() {
  QVERIFY(QFile::link(path(u"watched"_s), path(u"link"_s)));
  const Watched watched = watch(path(u"link/"_s));
  write(u"watched/sub/file"_s);
  QTRY_VERIFY(watched.countdown->isRunning());
  stopObserving(watched.observation);
}

void TestDirectoryObserving::unusablePaths_data() {
  QTest::addColumn<QString>("folder");
  QTest::newRow("none") << QString();
  QTest::newRow("no name") << u"/tmp/\0/x"_s;
}

void TestDirectoryObserving::unusablePaths() {
  QFETCH(const QString, folder);
  const FolderObservation observation = startObserving(folder, [] {});
  QVERIFY(!observation.isRunning());
  QCOMPARE(m_program->logged().size(), 1);
  stopObserving(observation);
}

void TestDirectoryObserving::ofAnotherThread() {
  std::atomic<QThread *> calledOn = nullptr;
  QSemaphore started;
  FolderObservation observation;
  QThread thread;
  QObject inside;
  inside.moveToThread(&thread);
  thread.start();
  QMetaObject::invokeMethod(&inside, [&] {
    auto countdown = std::make_unique<ManualCountdown>();
    ManualCountdown *seen = countdown.get();
    observation = startObserving(
        path(u"watched"_s), [&] { calledOn = QThread::currentThread(); }, std::move(countdown));
    write(u"watched/file"_s);
    const bool told = QTest::qWaitFor([seen] { return seen->isRunning(); }, 30'000);
    if (told) seen->elapse();
    started.release();
  });
  started.acquire();
  QCOMPARE(calledOn.load(), &thread);
  QVERIFY(observation.isRunning());
  thread.quit();
  QVERIFY(thread.wait());
  // It has ended with the thread's event loop.
  QVERIFY(!observation.isRunning());
}

void TestDirectoryObserving::withoutAnEventLoop() {
  bool isRunning = true;
  std::thread([&] { isRunning = startObserving(path(u"watched"_s), [] {}).isRunning(); }).join();
  QVERIFY(!isRunning);
  QCOMPARE(m_program->logged().size(), 1);
}

QTEST_GUILESS_MAIN(TestDirectoryObserving)
#include "tst_directoryobserving.moc"
