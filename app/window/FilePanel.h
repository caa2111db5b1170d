#pragma once

#include <QFrame>

class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QToolButton;
class QVariantAnimation;

namespace ostrak {
class ElidedLabel;
}

namespace decant {

class AppDelegate;

// The panel at the top of the window that shows the file being looked into or asked about: slides
// in when there is one and out when there is none. Its audio menu is bound to the shown record.
// Main thread.
class FilePanel final : public QFrame {
  Q_OBJECT
  // Height of the panel as it slides, in pixels.
  Q_PROPERTY(int shownHeight READ shownHeight WRITE setShownHeight)

 public:
  static constexpr int fullHeight = 117;  // with the usual font; larger fonts get what they need

  explicit FilePanel(QWidget *parent = nullptr);
  ~FilePanel() override;

  // Finds the outlets and follows `app`, which outlives the panel. Once, after the form has been
  // loaded.
  void follow(AppDelegate &app);
  [[nodiscard]] bool isShown() const { return m_shown; }
  // Index of the chosen entry of the destination menu.
  [[nodiscard]] QComboBox &destinationPopUp() const { return *m_destinationPopUp; }

 Q_SIGNALS:
  // The user wants the shown file to be queued.
  void addClicked();
  // The panel had the keyboard's focus and has nothing any more to do with it.
  void focusFree();

 protected:
  bool event(QEvent *event) override;

 private:
  void update();
  void showRecord();
  void fillAudioMenu();
  void widenAddButton();
  void giveFocusAway();
  void showPanel(bool shown);
  [[nodiscard]] int wantedHeight() const;
  [[nodiscard]] int shownHeight() const { return maximumHeight(); }
  void setShownHeight(int height) { setFixedHeight(height); }

  AppDelegate *m_app = nullptr;
  ostrak::ElidedLabel *m_fileName = nullptr;
  ostrak::ElidedLabel *m_information = nullptr;
  ostrak::ElidedLabel *m_subtitle = nullptr;
  QProgressBar *m_busy = nullptr;
  QComboBox *m_audioPopUp = nullptr;
  QComboBox *m_destinationPopUp = nullptr;
  QPushButton *m_addButton = nullptr;
  QToolButton *m_skipButton = nullptr;
  QVariantAnimation *m_slide = nullptr;
  QStringList m_audioTexts;  // entries of the audio menu
  bool m_shown = false;
};

}  // namespace decant
