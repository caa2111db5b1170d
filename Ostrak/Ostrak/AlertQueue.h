#pragma once

#include <QList>
#include <QMutex>
#include <functional>

#include "Alerts.h"

namespace ostrak {

// The one place where alerts reach the presenter: one at a time, posted ones in their order, and
// none while another is on the screen.
class AlertQueue final {
 public:
  [[nodiscard]] static AlertQueue &instance();

  // Main thread; not owned.
  void setPresenter(AlertPresenter *presenter) { m_presenter = presenter; }
  // Main thread: at once, also while another alert is on the screen.
  int present(Alert &alert);
  // Any thread.
  void post(Alert alert, std::function<void(int code)> answered);

 private:
  struct Waiting {
    Alert alert;
    std::function<void(int code)> answered;
  };

  void showNextSoon();
  void showNext();

  AlertPresenter *m_presenter = nullptr;
  int m_shown = 0;  // alerts on the screen
  QMutex m_mutex;
  QList<Waiting> m_waiting;
};

}  // namespace ostrak
