#include <QElapsedTimer>
#include <QSemaphore>
#include <QTest>
#include <QThread>
#include <atomic>
#include <csignal>
#include <thread>

#include "Dispatch.h"
#include "Exceptions.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestDispatch final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }
  void mainBlocksRunInOrderAfterTheHandler();
  void mainBlocksComeFromAnyThread();
  void syncMainRunsAtOnceOnMain();
  void syncMainFromAWorkerWaits();
  void syncMainCarriesExceptions();
  void afterMainIsNeverEarly_data();
  void afterMainIsNeverEarly();
  void asyncBackRunsElsewhere();
  void signalsComeToTheMainThread();
  void syncBackWaits();
  void syncBackCarriesExceptions();
  void nestedSyncBackNeverStarves();
  void waitingWorkersDoNotStarveOthers();
  void afterBackRunsElsewhere();
  void afterBackDoesNotNeedMain();
  void timeoutTimesOut();
  void timeoutEndsInTime();
};

void TestDispatch::mainBlocksRunInOrderAfterTheHandler() {
  QList<int> order;
  for (int number = 0; number < 5; ++number) {
    dispatch_async_main([&order, number] {
      QVERIFY(onMainThread());
      order.append(number);
    });
  }
  QVERIFY(order.isEmpty());
  QTRY_COMPARE_WITH_TIMEOUT(order, (QList<int>{0, 1, 2, 3, 4}), 20000);
}

void TestDispatch::mainBlocksComeFromAnyThread() {
  std::atomic<bool> ran{false};
  std::thread([&ran] {
    QVERIFY(!onMainThread());
    dispatch_async_main([&ran] { ran = onMainThread(); });
  }).join();
  QVERIFY(!ran);
  QTRY_VERIFY_WITH_TIMEOUT(ran.load(), 20000);
}

void TestDispatch::syncMainRunsAtOnceOnMain() {
  bool ran = false;
  dispatch_sync_main([&ran] { dispatch_sync_main([&ran] { ran = true; }); });
  QVERIFY(ran);
}

void TestDispatch::syncMainFromAWorkerWaits() {
  std::atomic<bool> ranOnMain{false};
  std::atomic<bool> sawIt{false};
  std::atomic<bool> done{false};
  dispatch_async_back([&] {
    dispatch_sync_main([&] { ranOnMain = onMainThread(); });
    sawIt = ranOnMain.load();
    done = true;
  });
  QTRY_VERIFY_WITH_TIMEOUT(done.load(), 20000);
  QVERIFY(sawIt);
}

void TestDispatch::syncMainCarriesExceptions() {
  std::atomic<bool> caught{false};
  dispatch_async_back([&] {
    try {
      dispatch_sync_main([] { throw RangeError(u"on main"_s); });
    } catch (const RangeError &) {
      caught = true;
    }
  });
  QTRY_VERIFY_WITH_TIMEOUT(caught.load(), 20000);
}

void TestDispatch::afterMainIsNeverEarly_data() {
  QTest::addColumn<float>("seconds");
  QTest::newRow("a quarter") << 0.25F;
  QTest::newRow("no whole milliseconds") << 0.0107F;
  QTest::newRow("none") << 0.0F;
  QTest::newRow("less than none") << -3.0F;
}

void TestDispatch::afterMainIsNeverEarly() {
  QFETCH(float, seconds);
  QElapsedTimer since;
  qint64 elapsed = -1;
  bool onMain = false;
  since.start();
  dispatch_after_main(
      [&] {
        elapsed = since.nsecsElapsed();
        onMain = onMainThread();
      },
      seconds);
  QCOMPARE(elapsed, -1);
  QTRY_VERIFY_WITH_TIMEOUT(elapsed >= 0, 20000);
  QVERIFY(elapsed >= static_cast<qint64>(static_cast<double>(seconds) * 1e9));
  QVERIFY(onMain);
}

void TestDispatch::asyncBackRunsElsewhere() {
  QSemaphore ran;
  std::atomic<bool> onMain{true};
  dispatch_async_back([&] {
    onMain = onMainThread();
    ran.release();
  });
  QVERIFY(ran.tryAcquire(1, 20000));
  QVERIFY(!onMain);
}

// A worker that takes a signal has not noted it yet when the main thread already goes on.
void TestDispatch::signalsComeToTheMainThread() {
  sigset_t ofWorker{};
  sigset_t ofMain{};
  dispatch_sync_back([&ofWorker] { pthread_sigmask(SIG_SETMASK, nullptr, &ofWorker); });
  pthread_sigmask(SIG_SETMASK, nullptr, &ofMain);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGCHLD}) {
    QCOMPARE(sigismember(&ofWorker, signal), 1);
    QCOMPARE(sigismember(&ofMain, signal), 0);
  }
  QCOMPARE(sigismember(&ofWorker, SIGSEGV), 0);
}

void TestDispatch::syncBackWaits() {
  bool ran = false;
  dispatch_sync_back([&] { ran = !onMainThread(); });
  QVERIFY(ran);
}

void TestDispatch::syncBackCarriesExceptions() {
  QVERIFY_THROWS_EXCEPTION(RangeError,
                           dispatch_sync_back([] { throw RangeError(u"in the back"_s); }));
}

void TestDispatch::nestedSyncBackNeverStarves() {
  std::function<int(int)> dive = [&dive](int depth) {
    int reached = depth;
    if (depth < 1000) dispatch_sync_back([&] { reached = dive(depth + 1); });
    return reached;
  };
  QCOMPARE(dive(0), 1000);
}

void TestDispatch::waitingWorkersDoNotStarveOthers() {
  constexpr int waiting = 64;
  QSemaphore goAhead;
  QSemaphore done;
  for (int worker = 0; worker < waiting; ++worker) {
    dispatch_async_back([&] {
      goAhead.acquire();
      done.release();
    });
  }
  dispatch_sync_back([&] { goAhead.release(waiting); });
  QVERIFY(done.tryAcquire(waiting, 20000));
}

void TestDispatch::afterBackRunsElsewhere() {
  QElapsedTimer since;
  since.start();
  std::atomic<qint64> elapsed{-1};
  std::atomic<bool> onMain{true};
  dispatch_after_back(
      [&] {
        onMain = onMainThread();
        elapsed = since.elapsed();
      },
      0.05F);
  QTRY_VERIFY_WITH_TIMEOUT(elapsed >= 0, 20000);
  QVERIFY(elapsed >= 50);
  QVERIFY(!onMain);
}

void TestDispatch::afterBackDoesNotNeedMain() {
  QSemaphore early;
  QSemaphore late;
  bool ordered = false;
  dispatch_after_back([] {}, 3600.0F);
  dispatch_after_back(
      [&] {
        ordered = early.tryAcquire(1, 20000);
        late.release();
      },
      0.05F);
  dispatch_after_back([&early] { early.release(); }, 0.01F);
  QVERIFY(late.tryAcquire(1, 20000));
  QVERIFY(ordered);
}

void TestDispatch::timeoutTimesOut() {
  const auto goAhead = std::make_shared<QSemaphore>();
  const auto done = std::make_shared<QSemaphore>();
  QElapsedTimer since;
  since.start();
  QVERIFY(dispatch_sync_back_timeout(
      [goAhead, done] {
        goAhead->acquire();
        done->release();
      },
      0.25F));
  QVERIFY(since.elapsed() >= 250);
  QVERIFY(!done->tryAcquire());
  goAhead->release();
  QVERIFY(done->tryAcquire(1, 20000));
}

void TestDispatch::timeoutEndsInTime() {
  bool ran = false;
  QVERIFY(!dispatch_sync_back_timeout([&ran] { ran = true; }, 60.0F));
  QVERIFY(ran);
}

QTEST_GUILESS_MAIN(TestDispatch)
#include "tst_dispatch.moc"
