#pragma once

#include <QString>
#include <exception>
#include <functional>
#include <memory>
#include <optional>

namespace ostrak {

// Tells a person that something takes its time. Main thread.
class PatiencePresenter {
 public:
  virtual ~PatiencePresenter() = default;
  virtual void begin(const QString &title) = 0;
  virtual void end() = 0;
};

// Installs the presenter (not owned); null shows nothing. Main thread.
void setPatiencePresenter(PatiencePresenter *presenter);

// Main thread: does `work` on a worker thread and then `done` on the main thread. What is ready
// within three tenths of a second is done before this returns; of what takes longer than half a
// second the presenter tells by `title` until it is done. `work` reads values of its own only.
// `done` gets what it has thrown, null when it went well.
void workPatiently(const QString &title, std::function<void()> work,
                   std::function<void(std::exception_ptr thrown)> done);

// The same for work with a result, which `done` gets. What the work throws is thrown on the main
// thread in place of `done`: from here, or later from the event loop.
template <typename Work, typename Done>
void patiently(const QString &title, Work work, Done done) {
  const auto result = std::make_shared<std::optional<decltype(work())>>();
  workPatiently(
      title, [work = std::move(work), result] { result->emplace(work()); },
      [done = std::move(done), result](const std::exception_ptr &thrown) {
        if (thrown) std::rethrow_exception(thrown);
        done(std::move(**result));
      });
}

}  // namespace ostrak
