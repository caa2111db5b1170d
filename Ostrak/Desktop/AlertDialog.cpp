#include "AlertDialog.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "AlertLabel.h"
#include "AlertTexts.h"
#include "NamedImage.h"
#include "Ostrak.h"
#include "ProgressSheet.h"
#include "Text.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

constexpr int controlWidth = 310;
constexpr int controlHeight = 24;
constexpr int textAreaHeight = 200;
constexpr int choiceWidth = 269;
constexpr int choiceHeight = 17;
constexpr int textWidth = 420;

template <typename Control>
Control *sized(Control *control) {
  control->setMinimumSize(controlWidth, controlHeight);
  return control;
}

// A button that shows a colour and lets it be chosen.
QPushButton *colorButton(const QString &color, QWidget *parent) {
  auto *button = sized(new QPushButton(color, parent));
  const auto show = [button](const QColor &chosen) {
    QPixmap swatch(button->iconSize());
    swatch.fill(chosen);
    button->setIcon(QIcon(swatch));
    button->setText(chosen.name());
  };
  show(QColor(color));
  QObject::connect(button, &QPushButton::clicked, button, [button, show] {
    auto *dialog = new QColorDialog(QColor(button->text()), button);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QColorDialog::colorSelected, button, show);
    dialog->open();
  });
  return button;
}

QLabel *label(const QString &text, const QString &name, QWidget *parent) {
  auto *made = new AlertLabel(text, parent);
  made->setObjectName(name);
  made->setMinimumWidth(textWidth);
  return made;
}

// The program may be in the background when something has to be told.
QWidget *firstWindow() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto found = std::ranges::find_if(windows, [](const QWidget *window) {
    return window->isVisible() && window->isWindow() && !window->parentWidget();
  });
  return found == windows.end() ? nullptr : *found;
}

// A dialog over a minimised window would stay away with it, and the program would seem to hang.
void bringBack(QWidget *window) {
  for (; window; window = window->parentWidget())
    if (window->isMinimized()) window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
}

}  // namespace

AlertDialog::AlertDialog(Alert &alert, QWidget *parent) : QDialog(parent), m_alert(alert) {
  setWindowTitle(tk ? tk->appName() : QString());
  setObjectName(u"alert"_s);
  setAccessibleName(alert.title);
  setAccessibleDescription(alert.message);
  auto *row = new QHBoxLayout(this);
  row->setSpacing(16);
  row->setContentsMargins(20, 20, 20, 16);
  auto *icon = new QLabel(this);
  const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
  const QIcon usual = style()->standardIcon(alert.problemReport ? QStyle::SP_MessageBoxWarning
                                                                : QStyle::SP_MessageBoxInformation);
  const QIcon own =
      alert.image.isNull() ? usual : QIcon(QPixmap::fromImage(namedImage(alert.image)));
  icon->setPixmap(own.pixmap(QSize(size, size), devicePixelRatioF()));
  icon->setAccessibleName(localized(alert.problemReport ? u"Problem"_s : u"Information"_s));
  row->addWidget(icon, 0, Qt::AlignTop);
  auto *column = new QVBoxLayout;
  column->setSpacing(10);
  row->addLayout(column, 1);
  auto *body = new QWidget(this);
  auto *texts = new QVBoxLayout(body);
  texts->setContentsMargins(0, 0, 0, 0);
  texts->setSpacing(column->spacing());
  addTexts(*texts);
  addControl(*texts);
  column->addWidget(heldToScreen(body, this));
  if (auto *first = findChild<QRadioButton *>(u"alertChoice0"_s)) first->setFocus();
  addButtons(*column);
}

AlertDialog::~AlertDialog() = default;

void AlertDialog::addTexts(QVBoxLayout &column) {
  auto *title = label(m_alert.title, u"alertTitle"_s, this);
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  column.addWidget(title);
  if (m_alert.message.isEmpty()) return;
  column.addWidget(label(m_alert.message, u"alertMessage"_s, this));
}

void AlertDialog::addControl(QVBoxLayout &column) {
  switch (m_alert.control) {
    case Alert::Control::None:
      return;
    case Alert::Control::Suppression:
    case Alert::Control::Checkbox: {
      auto *box = sized(new QCheckBox(buttonTitle(m_alert.checkboxTitle), this));
      box->setChecked(m_alert.value.toBool());
      m_control = box;
      break;
    }
    case Alert::Control::Color:
      m_control = colorButton(m_alert.value.toString(), this);
      break;
    case Alert::Control::MultilineText:
      m_control = new QPlainTextEdit(this);
      m_control->setMinimumSize(controlWidth, textAreaHeight);
      break;
    case Alert::Control::Text:
    case Alert::Control::SecureText: {
      auto *field = sized(new QLineEdit(m_alert.value.toString(), this));
      if (m_alert.control == Alert::Control::SecureText) field->setEchoMode(QLineEdit::Password);
      m_control = field;
      break;
    }
    case Alert::Control::Popup: {
      auto *popup = sized(new QComboBox(this));
      popup->addItems(m_alert.items);
      m_control = popup;
      break;
    }
    case Alert::Control::Matrix:
      addChoices(column);
      return;
  }
  m_control->setObjectName(u"alertControl"_s);
  m_control->setAccessibleName(m_alert.checkboxTitle.isEmpty() ? m_alert.title
                                                               : m_alert.checkboxTitle);
  column.addWidget(m_control);
}

void AlertDialog::addChoices(QVBoxLayout &column) {
  m_control = new QWidget(this);
  m_control->setObjectName(u"alertControl"_s);
  auto *choices = new QVBoxLayout(m_control);
  choices->setContentsMargins(0, 0, 0, 0);
  auto *group = new QButtonGroup(m_control);
  for (int index = 0; index < m_alert.items.size(); ++index) {
    auto *choice =
        new QRadioButton(buttonTitle(shortenedChoice(m_alert.items.at(index))), m_control);
    choice->setObjectName(u"alertChoice%1"_s.arg(index));
    choice->setMinimumSize(choiceWidth, choiceHeight);
    group->addButton(choice, index);
    choices->addWidget(choice);
  }
  if (QAbstractButton *first = group->button(0)) first->setChecked(true);
  column.addWidget(m_control);
}

void AlertDialog::addButtons(QVBoxLayout &column) {
  auto *box = new QDialogButtonBox(this);
  const QStringList titles =
      m_alert.buttons.isEmpty() ? QStringList{localized(u"OK"_s)} : m_alert.buttons;
  for (int index = 0; index < titles.size(); ++index) {
    const auto role = index == 0 ? QDialogButtonBox::AcceptRole : QDialogButtonBox::RejectRole;
    QPushButton *button = box->addButton(buttonTitle(titles.at(index)), role);
    button->setObjectName(u"alertButton%1"_s.arg(index));
    button->setDefault(index == 0);
    const int code = firstButton + index;
    connect(button, &QPushButton::clicked, this, [this, code] {
      m_code = code;
      done(Accepted);
    });
  }
  const qsizetype cancel = titles.indexOf(localized(u"Cancel"_s));
  m_code = firstButton + static_cast<int>(cancel >= 0 ? cancel : titles.size() - 1);
  column.addSpacing(6);
  column.addWidget(box);
}

QVariant AlertDialog::controlValue() const {
  if (const auto *box = qobject_cast<QCheckBox *>(m_control)) {
    return m_alert.control == Alert::Control::Suppression ? QVariant(box->isChecked() ? 1 : 0)
                                                          : QVariant(box->isChecked());
  }
  if (const auto *area = qobject_cast<QPlainTextEdit *>(m_control)) return area->toPlainText();
  if (const auto *field = qobject_cast<QLineEdit *>(m_control)) return field->text();
  if (const auto *button = qobject_cast<QPushButton *>(m_control)) return button->text();
  if (const auto *popup = qobject_cast<QComboBox *>(m_control)) return popup->currentIndex();
  if (m_control) {
    if (const auto *group = m_control->findChild<QButtonGroup *>()) return group->checkedId();
  }
  return m_alert.value;
}

int AlertDialog::run() {
  const QPointer<AlertDialog> self(this);
  const int lastButton = m_code;
  exec();
  // The end of the program may have taken it away with the window below.
  if (!self) return lastButton;
  m_alert.value = controlValue();
  return m_code;
}

// A window that is not on the screen yet cannot be raised.
void AlertDialog::showEvent(QShowEvent *event) {
  QDialog::showEvent(event);
  QMetaObject::invokeMethod(
      this,
      [this] {
        raise();
        activateWindow();
      },
      Qt::QueuedConnection);
}

void AlertDialog::reject() {
  done(Rejected);
}

int WindowAlertPresenter::present(Alert &alert) {
  QWidget *above = QApplication::activeModalWidget();
  if (!above) above = QApplication::activeWindow();
  if (!above) above = firstWindow();
  // A sheet may go while the alert is read, and would take it along.
  if (qobject_cast<ProgressSheet *>(above)) above = above->parentWidget();
  bringBack(above);
  const QPointer<AlertDialog> dialog = new AlertDialog(alert, above ? above->window() : nullptr);
  const int code = dialog->run();
  delete dialog;
  return code;
}

}  // namespace ostrak
