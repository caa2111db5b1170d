#pragma once

#include <QIcon>
#include <QWidget>

namespace ostrak {

// A decorative picture, as large as its own size where there is room, down to half of that where
// there is less, never distorted; takes no drags, so that they reach the window. Main thread.
class PictureView final : public QWidget {
  Q_OBJECT

 public:
  explicit PictureView(QWidget *parent = nullptr);
  ~PictureView() override;

  // `size` is in logical pixels.
  void setPicture(const QIcon &picture, const QSize &size);
  [[nodiscard]] QSize sizeHint() const override { return m_size; }
  [[nodiscard]] QSize minimumSizeHint() const override { return m_size / 2; }

 protected:
  void paintEvent(QPaintEvent *event) override;

 private:
  QIcon m_picture;
  QSize m_size;
};

}  // namespace ostrak
