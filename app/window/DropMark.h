#pragma once

#include <QWidget>

namespace decant {

// The frame around the place where dragged files can be dropped. It lies above that place and takes
// neither room nor mouse from it. Main thread.
class DropMark final : public QWidget {
  Q_OBJECT

 public:
  // Lies over `place`, below the same parent.
  explicit DropMark(QWidget &place);
  ~DropMark() override;

 protected:
  bool eventFilter(QObject *watched, QEvent *event) override;
  void paintEvent(QPaintEvent *event) override;

 private:
  QWidget &m_place;
};

}  // namespace decant
