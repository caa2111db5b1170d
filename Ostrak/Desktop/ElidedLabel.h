#pragma once

#include <QLabel>

namespace ostrak {

// One line of text that ends in an ellipsis where it does not fit; the whole of it is then its tool
// tip and its accessible name. What kind of text it is, its accessible description says, which is
// set before the text. File names are shortened in the middle, so that their extension stays in
// sight.
class ElidedLabel final : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget *parent = nullptr);
  ~ElidedLabel() override;

  void setFullText(const QString &text);
  [[nodiscard]] const QString &fullText() const { return m_fullText; }
  void setElideMode(Qt::TextElideMode mode);

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent *event) override;
  void changeEvent(QEvent *event) override;

 private:
  void elide();

  QString m_fullText;
  Qt::TextElideMode m_mode = Qt::ElideRight;
};

// A sentence of help below a control: smaller and quieter than its label, wrapped. With the dynamic
// property "belowCheckBox" it lines up with the text of the checkbox above.
class HintLabel final : public QLabel {
  Q_OBJECT

 public:
  explicit HintLabel(QWidget *parent = nullptr);
  ~HintLabel() override;

  [[nodiscard]] bool hasHeightForWidth() const override { return false; }
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent *event) override;
  bool eventFilter(QObject *watched, QEvent *event) override;
  void changeEvent(QEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;

 private:
  [[nodiscard]] int neededHeight() const;
  void followParent();
  void dress();

  bool m_laidOut = false;
  bool m_dressing = false;
};

}  // namespace ostrak
