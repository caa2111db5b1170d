#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>

namespace ostrak {

// A modal alert as a value. The functions below build one and hand it to the installed presenter,
// so that a window, a terminal and a test can each answer in their own way.
struct Alert {
  enum class Control {
    None,
    Suppression,    // "Don't warn again"; value: int 0 or 1
    Checkbox,       // value: bool
    Color,          // value: text "#rrggbb"
    MultilineText,  // value: text, starts empty
    Text,           // value: text
    SecureText,     // value: text
    Popup,          // value: int, index into items
    Matrix          // value: int, index into items
  };

  QString identifier;  // fixed name of an alert that can be silenced; null for a plain one
  QString title;
  QString message;
  QStringList buttons;  // in order; empty means one "OK"
  Control control = Control::None;
  QString checkboxTitle;  // of Suppression and Checkbox
  QStringList items;      // of Popup and Matrix
  QVariant value;         // the control's value, in and out
  QString subject;        // path of the file that the alert is about; null when about none
  QString image;          // name of a picture in the bundle, for the icon; null for the usual one
  bool problemReport = false;  // its first button sends a problem report

  bool operator==(const Alert &) const = default;
};

// Codes that an alert answers: the first button, the second, the third.
inline constexpr int firstButton = 1000;
inline constexpr int secondButton = 1001;
inline constexpr int thirdButton = 1002;

// Shows alerts. Called on the main thread only.
class AlertPresenter {
 public:
  virtual ~AlertPresenter() = default;
  // Returns the code of the pressed button, with the control's value written back into `alert`.
  virtual int present(Alert &alert) = 0;
};

// Installs the presenter (not owned); null answers the first button of everything, silently, but
// declines problem reports, and drops what still waits, unanswered.
void setAlertPresenter(AlertPresenter *presenter);

// An item's title as a row of radio buttons shows it: of one that is longer than 150 characters the
// first and the last 70.
[[nodiscard]] QString shortenedChoice(const QString &title);

// Modal, main thread only: shows `alert` at once and returns the button's code.
int presentAlert(Alert &alert);

// From any thread and from inside handlers: shows the alert once the main thread's running handler
// is done, one after the other, and then calls `answered` with the button's code. An alert equal to
// one that is still waiting shares its showing and its answer; of equal problem reports only the
// first is answered. Never waits.
void postAlert(Alert alert, std::function<void(int code)> answered = {});

// The same for an alert with Control::Suppression: dropped when its identifier has been silenced
// for this version by the time its turn has come; its box is remembered.
void postSilenceableAlert(Alert alert);

// `title` and `message` with up to three buttons; a null title leaves a button out.
int alert(const QString &title, const QString &message, const QString &defaultButton = {},
          const QString &alternateButton = {}, const QString &otherButton = {});
// The same, titled with the program's name.
int alert_apptitled(const QString &message, const QString &defaultButton = {},
                    const QString &alternateButton = {}, const QString &otherButton = {});
// The value of alert_apptitled, for postAlert.
[[nodiscard]] Alert apptitledAlert(const QString &message, const QStringList &buttons);

// Alerts with one value. The value is written back whatever button was pressed. The multi-line text
// starts empty and the selections at their first item, whatever comes in.
int alert_checkbox(const QString &message, const QStringList &buttons, const QString &checkboxTitle,
                   bool &state);
int alert_colorwell(const QString &message, const QStringList &buttons, QString &color);
int alert_inputtext(const QString &message, const QStringList &buttons, QString &text);
int alert_input(const QString &message, const QStringList &buttons, QString &text);
int alert_inputsecure(const QString &message, const QStringList &buttons, QString &text);
int alert_selection_popup(const QString &message, const QStringList &buttons,
                          const QStringList &items, int &selected);
int alert_selection_matrix(const QString &message, const QStringList &buttons,
                           const QStringList &items, int &selected);

// Alerts that the user can silence, until the version changes or for ever. From any thread: on the
// main thread they are shown at once, from another they are posted.
void alert_dontwarnagain_version(const QString &identifier, const QString &title,
                                 const QString &message, const QString &defaultButton,
                                 const QString &checkboxTitle, const QString &subject = {});
void alert_dontwarnagain_ever(const QString &identifier, const QString &title,
                              const QString &message, const QString &defaultButton,
                              const QString &checkboxTitle, const QString &subject = {});
// Whether the version-scoped alert of this identifier has been silenced.
[[nodiscard]] bool isSilencedForVersion(const QString &identifier);

// Problem reports: tell the user, offer to write to support. From any thread; the caller waits for
// the answer. A fatal one cleans up and ends the process with status 1.
void alert_feedback(const QString &message, const QString &details, bool fatal);
[[noreturn]] void alert_feedback_fatal(const QString &message, const QString &details);
void alert_feedback_nonfatal(const QString &message, const QString &details);
// The non-fatal report for handlers, which must not wait: shown by postAlert.
void postFeedback(const QString &message, const QString &details);
// What a fatal report cleans up before it ends the process; empty: nothing. It waits for nothing
// without a limit, and trusts no more than it has to; what it throws is lost. Main thread.
void setFatalCleanup(std::function<void()> cleanup);

}  // namespace ostrak
