#pragma once

#include <QPointer>
#include <QWidget>

#include "Patience.h"

namespace decant {

// Tells of waits by a sheet over the main window; by nothing before that is there. Main thread.
class WindowPatience final : public ostrak::PatiencePresenter {
 public:
  void setMainWindow(QWidget *window) { m_mainWindow = window; }

  void begin(const QString &title) override;
  void end() override;

 private:
  QPointer<QWidget> m_mainWindow;
};

}  // namespace decant
