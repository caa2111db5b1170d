#pragma once

#include <QObject>

class QWidget;

namespace decant {

// Keeps the wheel from changing menus and numbers that do not have the focus: it scrolls what is
// around them instead. Main thread.
class WheelGuard final : public QObject {
  Q_OBJECT

 public:
  explicit WheelGuard(QObject *parent);
  ~WheelGuard() override;

  // Guards the menus and numbers that are below `form` now.
  void guard(QWidget &form);

 protected:
  bool eventFilter(QObject *watched, QEvent *event) override;
};

}  // namespace decant
