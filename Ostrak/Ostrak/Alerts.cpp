#include "Alerts.h"

#include "AlertQueue.h"
#include "Dispatch.h"
#include "Format.h"
#include "Ostrak.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

Alert valueAlert(const QString &message, const QStringList &buttons, Alert::Control control,
                 const QVariant &value) {
  constexpr qsizetype mostButtons = 3;
  Alert made;
  made.title = message;
  made.buttons = buttons.first(qMin(mostButtons, buttons.size()));
  made.control = control;
  made.value = value;
  return made;
}

int askForText(const QString &message, const QStringList &buttons, Alert::Control control,
               const QString &start, QString &text) {
  Alert made = valueAlert(message, buttons, control, start);
  const int code = presentAlert(made);
  text = made.value.toString();
  return code;
}

int askForSelection(const QString &message, const QStringList &buttons, Alert::Control control,
                    const QStringList &items, int &selected) {
  Alert made = valueAlert(message, buttons, control, 0);
  made.items = items;
  const int code = presentAlert(made);
  selected = made.value.toInt();
  return code;
}

void silenceable(Silencing silencing, const QString &identifier, const QString &title,
                 const QString &message, const QString &defaultButton, const QString &checkboxTitle,
                 const QString &subject) {
  Alert made;
  made.identifier = identifier;
  made.title = title;
  made.message = message;
  made.buttons = QStringList{defaultButton};
  made.control = Alert::Control::Suppression;
  made.checkboxTitle = checkboxTitle;
  made.value = 0;
  made.subject = subject;
  if (onMainThread()) {
    AlertQueue::instance().presentUnlessSilenced(made, silencing);
  } else {
    AlertQueue::instance().post(std::move(made), {}, silencing);
  }
}

}  // namespace

QString shortenedChoice(const QString &title) {
  constexpr qsizetype longest = 150;
  constexpr qsizetype keptEnd = 70;
  if (title.size() <= longest) return title;
  return makeString(u"%@ […] %@"_s, title.first(keptEnd), title.last(keptEnd));
}

void setAlertPresenter(AlertPresenter *presenter) {
  AlertQueue::instance().setPresenter(presenter);
}

int presentAlert(Alert &alert) {
  return AlertQueue::instance().present(alert);
}

void postAlert(Alert alert, std::function<void(int)> answered) {
  AlertQueue::instance().post(std::move(alert), std::move(answered));
}

void postSilenceableAlert(Alert alert) {
  AlertQueue::instance().post(std::move(alert), {}, Silencing::ForVersion);
}

int alert(const QString &title, const QString &message, const QString &defaultButton,
          const QString &alternateButton, const QString &otherButton) {
  Alert made;
  made.title = title;
  made.message = message;
  for (const QString &button : {defaultButton, alternateButton, otherButton}) {
    if (!button.isNull()) made.buttons.append(button);
  }
  return presentAlert(made);
}

int alert_apptitled(const QString &message, const QString &defaultButton,
                    const QString &alternateButton, const QString &otherButton) {
  return alert(tk->appName(), message, defaultButton, alternateButton, otherButton);
}

Alert apptitledAlert(const QString &message, const QStringList &buttons) {
  Alert made;
  made.title = tk->appName();
  made.message = message;
  made.buttons = buttons;
  return made;
}

int alert_checkbox(const QString &message, const QStringList &buttons, const QString &checkboxTitle,
                   bool &state) {
  Alert made = valueAlert(message, buttons, Alert::Control::Checkbox, state);
  made.checkboxTitle = checkboxTitle;
  const int code = presentAlert(made);
  state = made.value.toBool();
  return code;
}

int alert_colorwell(const QString &message, const QStringList &buttons, QString &color) {
  return askForText(message, buttons, Alert::Control::Color, color, color);
}

int alert_inputtext(const QString &message, const QStringList &buttons, QString &text) {
  return askForText(message, buttons, Alert::Control::MultilineText, u""_s, text);
}

int alert_input(const QString &message, const QStringList &buttons, QString &text) {
  return askForText(message, buttons, Alert::Control::Text, text, text);
}

int alert_inputsecure(const QString &message, const QStringList &buttons, QString &text) {
  return askForText(message, buttons, Alert::Control::SecureText, text, text);
}

int alert_selection_popup(const QString &message, const QStringList &buttons,
                          const QStringList &items, int &selected) {
  return askForSelection(message, buttons, Alert::Control::Popup, items, selected);
}

int alert_selection_matrix(const QString &message, const QStringList &buttons,
                           const QStringList &items, int &selected) {
  QStringList titles;
  for (const QString &item : items)
    titles.append(shortenedChoice(item));
  return askForSelection(message, buttons, Alert::Control::Matrix, titles, selected);
}

void alert_dontwarnagain_version(const QString &identifier, const QString &title,
                                 const QString &message, const QString &defaultButton,
                                 const QString &checkboxTitle, const QString &subject) {
  silenceable(Silencing::ForVersion, identifier, title, message, defaultButton, checkboxTitle,
              subject);
}

void alert_dontwarnagain_ever(const QString &identifier, const QString &title,
                              const QString &message, const QString &defaultButton,
                              const QString &checkboxTitle, const QString &subject) {
  silenceable(Silencing::ForEver, identifier, title, message, defaultButton, checkboxTitle,
              subject);
}

bool isSilencedForVersion(const QString &identifier) {
  return AlertQueue::isSilenced(identifier, Silencing::ForVersion);
}

}  // namespace ostrak
