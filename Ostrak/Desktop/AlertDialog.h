#pragma once

#include <QDialog>

#include "Alerts.h"

class QLayout;
class QVBoxLayout;

namespace ostrak {

// One alert as a modal dialog: title, message, at most one control, buttons from right to left in
// the order of the desktop. Closing it by Escape or the window's close button presses "Cancel", and
// the last button where there is none of this title. Main thread.
class AlertDialog final : public QDialog {
  Q_OBJECT

 public:
  // `alert` outlives the dialog; the control's value is written back into it by `code`.
  explicit AlertDialog(Alert &alert, QWidget *parent = nullptr);
  ~AlertDialog() override;

  // Runs the dialog and returns the code of the pressed button: of the last one when the dialog is
  // deleted meanwhile.
  [[nodiscard]] int run();

  void reject() override;

 protected:
  void showEvent(QShowEvent *event) override;

 private:
  void addTexts(QVBoxLayout &column);
  void addControl(QVBoxLayout &column);
  void addButtons(QVBoxLayout &column);
  [[nodiscard]] QVariant controlValue() const;
  void addChoices(QVBoxLayout &column);

  Alert &m_alert;
  QWidget *m_control = nullptr;
  int m_code = 0;
};

// Shows every alert as a dialog over the active window, which comes back when it is minimised.
class WindowAlertPresenter final : public AlertPresenter {
 public:
  int present(Alert &alert) override;
};

}  // namespace ostrak
