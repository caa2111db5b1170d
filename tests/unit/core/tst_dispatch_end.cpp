#include <QCoreApplication>
#include <QSemaphore>
#include <QTest>
#include <atomic>
#include <thread>

#include "Dispatch.h"
#include "Ostrak.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// What becomes of waiting work when the application object goes; each case has one of its own.
class TestDispatchEnd final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void withoutAnApplication();
  void waitingBlocksAreDropped();
  void aWaitingWorkerIsLetGo();
  void aSecondApplicationStartsAfresh();
  void withoutAnApplicationNothingIsDelayed();
  void theLibraryWaitsForWorkers();
};

namespace {

int argumentCount = 1;
char programName[] = "tst_dispatch_end";
char *argumentTexts[] = {programName, nullptr};

}  // namespace

void TestDispatchEnd::withoutAnApplication() {
  QVERIFY(onMainThread());
  bool ran = false;
  dispatch_sync_main([&ran] { ran = true; });
  QVERIFY(ran);
  std::thread([&ran] {
    QVERIFY(!onMainThread());
    dispatch_sync_main([&ran] { ran = false; });
  }).join();
  QVERIFY(ran);
}

void TestDispatchEnd::waitingBlocksAreDropped() {
  const auto witness = std::make_shared<int>(0);
  bool ran = false;
  {
    const QCoreApplication application(argumentCount, argumentTexts);
    dispatch_async_main([&ran, witness] { ran = true; });
    dispatch_after_main([&ran, witness] { ran = true; }, 0.001F);
    dispatch_after_back([&ran, witness] { ran = true; }, 3600.0F);
    QCOMPARE(witness.use_count(), 4);
  }
  QCOMPARE(witness.use_count(), 1);
  QVERIFY(!ran);
}

void TestDispatchEnd::aWaitingWorkerIsLetGo() {
  std::atomic<bool> ran{false};
  QSemaphore asking;
  std::thread worker;
  {
    const QCoreApplication application(argumentCount, argumentTexts);
    // The application's end is known from the first block on.
    dispatch_async_main([] {});
    worker = std::thread([&] {
      asking.release();
      dispatch_sync_main([&ran] { ran = true; });
    });
    asking.acquire();
  }
  worker.join();
  QVERIFY(!ran);
}

void TestDispatchEnd::aSecondApplicationStartsAfresh() {
  for (int round = 0; round < 2; ++round) {
    const QCoreApplication application(argumentCount, argumentTexts);
    bool ran = false;
    dispatch_async_main([&ran] { ran = true; });
    QTRY_VERIFY_WITH_TIMEOUT(ran, 20000);
    QSemaphore ranInTheBack;
    dispatch_after_back([&ranInTheBack] { ranInTheBack.release(); }, 0.001F);
    QVERIFY(ranInTheBack.tryAcquire(1, 20000));
  }
}

void TestDispatchEnd::withoutAnApplicationNothingIsDelayed() {
  const auto witness = std::make_shared<int>(0);
  dispatch_after_back([witness] {}, 0.0F);
  QCOMPARE(witness.use_count(), 1);
}

void TestDispatchEnd::theLibraryWaitsForWorkers() {
  const QCoreApplication application(argumentCount, argumentTexts);
  OstrakSetup setup;
  setup.persistence = UserDefaults::Persistence::InMemory;
  setup.systemLog = [](int, const QString &) {};
  auto library = std::make_unique<Ostrak>(std::move(setup));
  const auto finished = std::make_shared<std::atomic<bool>>(false);
  const auto sawLibrary = std::make_shared<std::atomic<bool>>(false);
  QSemaphore started;
  dispatch_async_back([finished, sawLibrary, &started] {
    started.release();
    // Held here until the library's end lets go of it.
    dispatch_sync_main([] {});
    *sawLibrary = tk != nullptr;
    *finished = true;
  });
  started.acquire();
  library.reset();
  QVERIFY(*finished);
  QVERIFY(*sawLibrary);
  bool ran = false;
  dispatch_async_main([&ran] { ran = true; });
  QTRY_VERIFY_WITH_TIMEOUT(ran, 20000);
}

QTEST_APPLESS_MAIN(TestDispatchEnd)
#include "tst_dispatch_end.moc"
