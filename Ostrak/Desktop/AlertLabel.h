#pragma once

#include <QLabel>

namespace ostrak {

// A plain text of any length, that breaks wherever it has to and can be selected with the mouse.
// What is copied is the text itself, without the places to break. Main thread.
class AlertLabel final : public QLabel {
  Q_OBJECT

 public:
  explicit AlertLabel(const QString &text, QWidget *parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void contextMenuEvent(QContextMenuEvent *event) override;

 private:
  [[nodiscard]] QString selection() const;
  void selectAll();
  void copy() const;
};

}  // namespace ostrak
