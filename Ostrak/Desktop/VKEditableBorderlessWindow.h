#pragma once

#include <QWidget>

namespace ostrak {

// A window without a border that takes the keyboard, so that the fields in it can be edited. It has
// no close button: the close key is the way to close it, unless it refuses. Main thread.
class VKEditableBorderlessWindow : public QWidget {
  Q_OBJECT

 public:
  explicit VKEditableBorderlessWindow(QWidget *parent = nullptr);
  ~VKEditableBorderlessWindow() override;
};

}  // namespace ostrak
