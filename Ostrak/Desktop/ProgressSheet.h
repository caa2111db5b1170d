#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;

namespace ostrak {

class ElidedLabel;

// The sheet of beginProgress: as long as it is up, its window takes no input. A person cannot close
// it. Main thread.
class ProgressSheet final : public QDialog {
  Q_OBJECT

 public:
  explicit ProgressSheet(QWidget &window);
  ~ProgressSheet() override;

  // The sheet that `window` shows; null when there is none.
  [[nodiscard]] static ProgressSheet *of(const QWidget &window);

  // Shows it with this title and an empty line below.
  void begin(const QString &title);
  void setMessage(const QString &text);
  // Takes it away, and with it itself when the running handler is done.
  void end();

  void reject() override {}

 protected:
  void closeEvent(QCloseEvent *event) override;

 private:
  QLabel *m_title;
  ElidedLabel *m_detail;
  QProgressBar *m_indicator;
};

}  // namespace ostrak
