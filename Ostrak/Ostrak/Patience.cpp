#include "Patience.h"

#include <QSemaphore>
#include <utility>

#include "Dispatch.h"

namespace ostrak {
namespace {

constexpr int readyAtOnce = 300;      // milliseconds that a window may stand still
constexpr float worthTelling = 0.5F;  // seconds

PatiencePresenter *thePresenter = nullptr;
int told = 0;  // waits that the presenter tells of

// One piece of work; but for the semaphore of the main thread.
struct Wait {
  std::function<void(std::exception_ptr thrown)> done;
  std::exception_ptr thrown;  // by the work; complete once `ready` is
  bool ended = false;
  bool tells = false;
  QSemaphore ready;
};

void tell(Wait &wait, const QString &title) {
  if (wait.ended || !thePresenter) return;
  wait.tells = true;
  if (told++ == 0) thePresenter->begin(title);
}

void finish(Wait &wait) {
  if (std::exchange(wait.ended, true)) return;
  if (wait.tells && told > 0 && --told == 0 && thePresenter) thePresenter->end();
  const auto done = std::move(wait.done);
  done(std::exchange(wait.thrown, {}));
}

}  // namespace

void setPatiencePresenter(PatiencePresenter *presenter) {
  thePresenter = presenter;
  told = 0;
}

void workPatiently(const QString &title, std::function<void()> work,
                   std::function<void(std::exception_ptr thrown)> done) {
  const auto wait = std::make_shared<Wait>();
  wait->done = std::move(done);
  dispatch_async_back([work = std::move(work), wait] {
    try {
      work();
    } catch (...) {
      wait->thrown = std::current_exception();
    }
    wait->ready.release();
    dispatch_async_main([wait] { finish(*wait); });
  });
  if (wait->ready.tryAcquire(1, readyAtOnce)) {
    finish(*wait);
    return;
  }
  dispatch_after_main([wait, title] { tell(*wait, title); },
                      worthTelling - static_cast<float>(readyAtOnce) / 1000);
}

}  // namespace ostrak
