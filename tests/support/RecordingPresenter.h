#pragma once

#include <QList>
#include <functional>

#include "Alerts.h"

// Plays the user: remembers every alert and gives the answers that were laid in.
class RecordingPresenter final : public ostrak::AlertPresenter {
 public:
  // The next answers, in order; without one the first button is pressed.
  void answer(int code) { m_answers.append(code); }
  // Called with each alert before it is answered, to set its value or to act while it is shown.
  void setWhileShown(std::function<void(ostrak::Alert &)> act) { m_whileShown = std::move(act); }

  int present(ostrak::Alert &alert) override;

  QList<ostrak::Alert> presented;  // as they came, before their values were changed

 private:
  QList<int> m_answers;
  std::function<void(ostrak::Alert &)> m_whileShown;
};
