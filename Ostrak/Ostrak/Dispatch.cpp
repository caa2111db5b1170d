#include "Dispatch.h"

#include <QCoreApplication>
#include <QMutex>
#include <QSemaphore>
#include <QThread>
#include <QThreadPool>
#include <QTimer>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "SignalsBlocked.h"

namespace ostrak {
namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using Moment = std::chrono::steady_clock::time_point;

// Who is main: the thread that loaded the program, in which the application object is made. That
// one is not asked, for it may be on its way out while a worker asks.
const Qt::HANDLE loadingThread = QThread::currentThreadId();

thread_local bool onWorker = false;

void closeQueues();

// The object of the application's thread that main's blocks are posted to.
class MainQueue final {
 public:
  // False when there is no application object to run the block.
  bool post(Block block) {
    const QMutexLocker locker(&m_mutex);
    QObject *receiver = openReceiver();
    if (!receiver) return false;
    return QMetaObject::invokeMethod(receiver, std::move(block), Qt::QueuedConnection);
  }

  // Runs `action` unless the queue is closed, and while it cannot be closed.
  void whileOpen(const std::function<void()> &action) {
    const QMutexLocker locker(&m_mutex);
    if (openReceiver()) action();
  }

  // Drops what waits, and all that comes until the queue is open again.
  void close() {
    std::unique_ptr<QObject> receiver;
    {
      const QMutexLocker locker(&m_mutex);
      m_closed = true;
      receiver = std::move(m_receiver);
    }
  }

  void open() {
    const QMutexLocker locker(&m_mutex);
    m_closed = false;
  }

  // Called by the application object on its way out.
  void forgetApplication() {
    const QMutexLocker locker(&m_mutex);
    m_registered = false;
  }

 private:
  QObject *openReceiver() {
    QCoreApplication *application = QCoreApplication::instance();
    if (!application) return nullptr;
    // The main thread is not inside the application's destructor when it comes here: that one is
    // new.
    if (onMainThread()) m_closed = false;
    if (m_closed) return nullptr;
    if (!m_receiver) {
      m_receiver = std::make_unique<QObject>();
      m_receiver->moveToThread(application->thread());
      if (!std::exchange(m_registered, true)) qAddPostRoutine(closeQueues);
    }
    return m_receiver.get();
  }

  QMutex m_mutex;
  std::unique_ptr<QObject> m_receiver;
  bool m_closed = false;
  bool m_registered = false;  // for the end of the application object
};

// None of them is ever destroyed: a block that still runs when the process ends may come here.
MainQueue &mainQueue() {
  static auto *queue = new MainQueue;
  return *queue;
}

QThreadPool &workers() {
  static QThreadPool *pool = [] {
    auto *made = new QThreadPool;
    // Blocks wait for children, disks and each other: far more of them than processors.
    constexpr int mostThreads = 256;
    made->setMaxThreadCount(mostThreads);
    return made;
  }();
  return *pool;
}

void startWorker(std::function<void()> run) {
  const SignalsBlocked inheritedByTheWorker;
  workers().start(std::move(run));
}

// Blocks that wait for their moment to go to the back. One worker watches over them, since the main
// thread may be busy.
class DelayedBlocks final {
 public:
  void add(Moment due, Block block) {
    const std::lock_guard lock(m_mutex);
    m_waiting.emplace(due, std::move(block));
    m_changed.notify_all();
    if (!std::exchange(m_watched, true)) startWorker([this, round = m_round] { watch(round); });
  }

  // Lets the watching worker go.
  void drop() {
    // What they hold goes after the lock.
    std::multimap<Moment, Block> dropped;
    const std::lock_guard lock(m_mutex);
    dropped.swap(m_waiting);
    ++m_round;
    m_watched = false;
    m_changed.notify_all();
  }

 private:
  void watch(quint64 round) {
    // A moment too far away would overflow in systems that wait by another clock.
    constexpr auto longestWait = std::chrono::hours(24);
    std::unique_lock lock(m_mutex);
    while (round == m_round && !m_waiting.empty()) {
      const auto next = m_waiting.begin();
      const Moment now = std::chrono::steady_clock::now();
      if (next->first > now) {
        // A copy, which outlives an entry that is dropped meanwhile.
        const Moment until = std::min(next->first, now + longestWait);
        m_changed.wait_until(lock, until);
      } else {
        dispatch_async_back(std::move(m_waiting.extract(next).mapped()));
      }
    }
    if (round == m_round) m_watched = false;
  }

  std::mutex m_mutex;
  std::condition_variable m_changed;
  std::multimap<Moment, Block> m_waiting;
  bool m_watched = false;
  quint64 m_round = 0;  // counts the drops
};

DelayedBlocks &delayedBlocks() {
  static auto *blocks = new DelayedBlocks;
  return *blocks;
}

void endAll() {
  // Running blocks get this long to notice the end.
  constexpr milliseconds patience{2000};
  mainQueue().close();
  delayedBlocks().drop();
  workers().clear();
  workers().waitForDone(static_cast<int>(patience.count()));
}

void closeQueues() {
  // Workers that still run have the process end under them.
  endAll();
  mainQueue().forgetApplication();
}

// Tells its waiter when it goes, whether its block has run or was dropped.
class Ticket final {
 public:
  explicit Ticket(std::shared_ptr<QSemaphore> done) : m_done(std::move(done)) {}
  ~Ticket() { m_done->release(); }
  Ticket(const Ticket &) = delete;
  Ticket &operator=(const Ticket &) = delete;

 private:
  std::shared_ptr<QSemaphore> m_done;
};

// Submits `block` and waits until it has run or was dropped; what it throws is thrown here.
void runAndWait(const Block &block, const std::function<void(Block)> &submit) {
  const auto done = std::make_shared<QSemaphore>();
  std::exception_ptr thrown;
  submit([ticket = std::make_shared<Ticket>(done), &block, &thrown] {
    try {
      block();
    } catch (...) {
      thrown = std::current_exception();
    }
  });
  done->acquire();
  if (thrown) std::rethrow_exception(thrown);
}

Moment momentAfter(float seconds) {
  constexpr double longest = 9.0e18;
  const double wanted = static_cast<double>(seconds) * 1e9;
  const auto delay = nanoseconds(static_cast<qint64>(wanted > 0 ? qMin(wanted, longest) : 0));
  const auto now = std::chrono::steady_clock::now();
  return delay > Moment::max() - now ? Moment::max() : now + delay;
}

// Timers count whole milliseconds and at most some weeks, so the moment is looked at again.
void runAt(QObject *context, Moment due, const Block &block) {
  constexpr milliseconds longestTimer = std::chrono::hours(24);
  const auto left = due - std::chrono::steady_clock::now();
  if (left <= nanoseconds(0)) {
    block();
    return;
  }
  const auto wait = std::min(
      longestTimer, std::chrono::ceil<milliseconds>(std::min<nanoseconds>(left, longestTimer)));
  QTimer::singleShot(wait, Qt::PreciseTimer, context,
                     [context, due, block] { runAt(context, due, block); });
}

}  // namespace

bool onMainThread() {
  return QThread::currentThreadId() == loadingThread;
}

void dispatch_async_main(Block block) {
  (void)mainQueue().post(std::move(block));
}

void dispatch_sync_main(const Block &block) {
  if (onMainThread()) {
    block();
  } else {
    runAndWait(block, dispatch_async_main);
  }
}

void dispatch_after_main(Block block, float seconds) {
  dispatch_async_main([due = momentAfter(seconds), block = std::move(block)] {
    runAt(QCoreApplication::instance(), due, block);
  });
}

void dispatch_async_back(Block block) {
  // noexcept: what nobody catches ends the program where it was thrown, with the stack still there.
  startWorker([block = std::move(block)]() noexcept {
    onWorker = true;
    block();
  });
}

void dispatch_sync_back(const Block &block) {
  // A worker does it itself, so that waiting workers never use up the pool.
  if (onWorker) {
    block();
  } else {
    runAndWait(block, dispatch_async_back);
  }
}

void dispatch_after_back(Block block, float seconds) {
  mainQueue().whileOpen(
      [due = momentAfter(seconds), &block] { delayedBlocks().add(due, std::move(block)); });
}

bool dispatch_sync_back_timeout(Block block, float seconds) {
  const auto done = std::make_shared<QSemaphore>();
  const Moment due = momentAfter(seconds);
  dispatch_async_back(
      [ticket = std::make_shared<Ticket>(done), block = std::move(block)] { block(); });
  const auto left = std::chrono::ceil<milliseconds>(due - std::chrono::steady_clock::now());
  constexpr milliseconds::rep longest = std::numeric_limits<int>::max();
  return !done->tryAcquire(1,
                           static_cast<int>(qBound<milliseconds::rep>(0, left.count(), longest)));
}

void dispatch_end() {
  endAll();
  mainQueue().open();
}

}  // namespace ostrak
