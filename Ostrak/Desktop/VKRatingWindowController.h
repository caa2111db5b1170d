#pragma once

#include <QObject>
#include <functional>
#include <memory>

class QAbstractButton;
class QLabel;
class QPlainTextEdit;
class QStackedWidget;
class QWidget;

namespace ostrak {

// The feedback window: asks whether the person is happy, and then leads to a page for ratings or
// takes a text for the support. Main thread.
class VKRatingWindowController final : public QObject {
  Q_OBJECT

 public:
  // Loads the form "VKRatingWindow"; the window is shown by `showWindow`.
  explicit VKRatingWindowController(QObject *parent = nullptr);
  // The window goes, too, without a call of the close block.
  ~VKRatingWindowController() override;

  // Null when the form could not be loaded; everything below then does nothing.
  [[nodiscard]] QWidget *window() const { return m_window.get(); }
  void showWindow();
  void setIntroText(const QString &text);
  // Called each time the window is about to close. It may set another one and may delete this
  // later, but not at once.
  void setCloseBlock(std::function<void()> closeBlock) { m_closeBlock = std::move(closeBlock); }

  // What the buttons do.
  void happyClicked();
  void notsureClicked();
  void problemsClicked();
  void notnowClicked();
  void closeClicked();
  // Closes the window, and asks whether it is never to come again.
  void dontshowClicked();
  void ratemacupdateClicked();
  void rateappstoreClicked();
  // Hands the text to the support mail.
  void sendfeedbackClicked();

  bool eventFilter(QObject *watched, QEvent *event) override;

 private:
  void windowDidLoad();
  void connectButtons();
  void fit();
  void showPane(QWidget &pane, QWidget &focus);
  void close();
  void windowWillClose();

  std::unique_ptr<QWidget> m_window;
  QStackedWidget *m_panes = nullptr;
  QWidget *m_initialView = nullptr;
  QWidget *m_happyView = nullptr;
  QWidget *m_angryView = nullptr;
  QLabel *m_introTextField = nullptr;
  QPlainTextEdit *m_feedbackTextField = nullptr;
  QAbstractButton *m_ratemacupdateButton = nullptr;
  QAbstractButton *m_rateappstoreButton = nullptr;
  QAbstractButton *m_notnowButton = nullptr;
  std::function<void()> m_closeBlock;
};

}  // namespace ostrak
