#pragma once

#include <QHash>
#include <QList>
#include <QMutex>
#include <functional>
#include <optional>

#include "Alerts.h"

namespace ostrak {

// For how long "don't warn again" holds for an alert's identifier.
enum class Silencing { None, ForVersion, ForEver };

// The one place where alerts reach the presenter: one at a time, posted ones in their order, and
// none while another is on the screen.
class AlertQueue final {
 public:
  [[nodiscard]] static AlertQueue &instance();

  // Main thread; not owned. With null goes all that waits, unanswered.
  void setPresenter(AlertPresenter *presenter);
  // Main thread: at once, also while another alert is on the screen.
  int present(Alert &alert);
  // Main thread: the same, unless it is silenced. Its box is remembered; nothing un-silences.
  void presentUnlessSilenced(Alert &alert, Silencing silencing);
  // Any thread. Whether it is silenced is looked up when its turn has come; then it is dropped
  // together with `answered`. One that equals a waiting one shares its answer; of problem reports
  // only the first hears it, so that one press never sends two.
  void post(Alert alert, std::function<void(int code)> answered,
            Silencing silencing = Silencing::None);
  // Main thread: whether none is on the screen or waiting.
  [[nodiscard]] bool isIdle();
  // Main thread: calls `act` from the event loop, once, as soon as it is idle.
  void whenIdle(std::function<void()> act);
  // Main thread.
  [[nodiscard]] static bool isSilenced(const QString &identifier, Silencing silencing);

 private:
  // What makes two posted alerts the same.
  struct Key {
    Alert alert;
    Silencing silencing = Silencing::None;
    bool operator==(const Key &) const = default;
    friend size_t qHash(const Key &key, size_t seed = 0) {
      return qHashMulti(seed, key.alert.identifier, key.alert.title, key.alert.message,
                        key.alert.subject);
    }
  };
  using Answers = QList<std::function<void(int code)>>;
  struct Waiting {
    Key key;
    Answers answers;
  };

  int presentAndRemember(Alert &alert, Silencing silencing);
  void showNextSoon();
  void showNext();
  void callWhenIdle();
  // The next one that is to be shown; nothing when none is left.
  [[nodiscard]] std::optional<Waiting> takeNext();

  AlertPresenter *m_presenter = nullptr;
  int m_shown = 0;  // alerts on the screen
  QMutex m_mutex;
  QList<Key> m_waiting;
  QHash<Key, Answers> m_answers;  // of each that waits
  QList<std::function<void()>> m_whenIdle;
};

}  // namespace ostrak
