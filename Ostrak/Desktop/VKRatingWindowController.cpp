#include "VKRatingWindowController.h"

#include <QAbstractButton>
#include <QEvent>
#include <QIcon>
#include <QLabel>
#include <QLayout>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QStackedWidget>
#include <algorithm>

#include "Alerts.h"
#include "Defaults.h"
#include "Format.h"
#include "InterfaceFile.h"
#include "Ostrak.h"
#include "PictureView.h"
#include "ScaledFont.h"
#include "Text.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

constexpr double buttonPoints = 18;
constexpr double textPoints = 14;
constexpr QSize iconSize(64, 64);

QWidget *makeWidget(const QString &className, QWidget *parent) {
  return className == "PictureView"_L1 ? new PictureView(parent) : nullptr;
}

QFont lightFont(double points) {
  QFont font = systemFontOfAtLeast(points);
  font.setWeight(QFont::Light);
  return font;
}

void askToTurnOff() {
  Alert question;
  question.title = localized(u"Confirmation"_s);
  question.message =
      makeString(localized(u"%@ asks for your feedback only rarely and at maximum only once per "
                           "app-version. Are you sure you want to turn this off completely?"_s),
                 tk->appName());
  question.buttons = QStringList{localized(u"Cancel"_s), localized(u"Turn off feedback dialoge"_s)};
  postAlert(question, [](int code) {
    if (code == secondButton) setDefaultInt(u"ostrak_dontaskagain"_s, 1);
  });
}

}  // namespace

VKRatingWindowController::VKRatingWindowController(QObject *parent)
    : QObject(parent), m_window(loadInterface(u"VKRatingWindow"_s, nullptr, makeWidget)) {
  if (m_window) windowDidLoad();
}

VKRatingWindowController::~VKRatingWindowController() {
  if (m_window) m_window->removeEventFilter(this);
}

void VKRatingWindowController::windowDidLoad() {
  QWidget &form = *m_window;
  m_panes = &outlet<QStackedWidget>(form, u"panes"_s);
  m_initialView = &outlet<QWidget>(form, u"initialView"_s);
  m_happyView = &outlet<QWidget>(form, u"happyView"_s);
  m_angryView = &outlet<QWidget>(form, u"angryView"_s);
  m_introTextField = &outlet<QLabel>(form, u"introTextField"_s);
  m_feedbackTextField = &outlet<QPlainTextEdit>(form, u"feedbackTextField"_s);
  m_ratemacupdateButton = &outlet<QAbstractButton>(form, u"ratemacupdateButton"_s);
  m_rateappstoreButton = &outlet<QAbstractButton>(form, u"rateappstoreButton"_s);
  m_notnowButton = &outlet<QAbstractButton>(form, u"notnowButton"_s);
  for (const QString &button :
       {u"ratemacupdateButton"_s, u"rateappstoreButton"_s, u"notnowButton"_s, u"happyButton"_s,
        u"notsureButton"_s, u"problemButton"_s, u"feedbackButton"_s})
    outlet<QAbstractButton>(form, button).setFont(lightFont(buttonPoints));
  for (const QString &text : {u"awesomeText"_s, u"introText"_s, u"sorryText"_s})
    outlet<QLabel>(form, text).setFont(lightFont(textPoints));
  outlet<PictureView>(form, u"feedbackIcon"_s)
      .setPicture(QIcon(tk->resDir() + u"/images/decant.svg"_s), iconSize);
  connectButtons();
  form.installEventFilter(this);
  showPane(*m_initialView, outlet<QAbstractButton>(form, u"happyButton"_s));
}

void VKRatingWindowController::connectButtons() {
  const auto on = [this](const QString &name, void (VKRatingWindowController::*does)()) {
    connect(&outlet<QAbstractButton>(*m_window, name), &QAbstractButton::clicked, this, does);
  };
  on(u"happyButton"_s, &VKRatingWindowController::happyClicked);
  on(u"notsureButton"_s, &VKRatingWindowController::notsureClicked);
  on(u"problemButton"_s, &VKRatingWindowController::problemsClicked);
  on(u"notnowButton"_s, &VKRatingWindowController::notnowClicked);
  on(u"closeButton"_s, &VKRatingWindowController::closeClicked);
  on(u"dontshowButton"_s, &VKRatingWindowController::dontshowClicked);
  on(u"ratemacupdateButton"_s, &VKRatingWindowController::ratemacupdateClicked);
  on(u"rateappstoreButton"_s, &VKRatingWindowController::rateappstoreClicked);
  on(u"feedbackButton"_s, &VKRatingWindowController::sendfeedbackClicked);
  for (const auto *key : {new QShortcut(Qt::Key_Escape, m_window.get()),
                          new QShortcut(QKeySequence::Close, m_window.get())})
    connect(key, &QShortcut::activated, this, &VKRatingWindowController::closeClicked);
}

void VKRatingWindowController::showWindow() {
  if (!m_window) return;
  if (!m_window->isVisible()) fit();
  m_window->show();
  m_window->raise();
  m_window->activateWindow();
}

// Large letters and long words of a language need more room than the form has.
void VKRatingWindowController::fit() {
  const QSize wanted = m_window->size().expandedTo(m_window->sizeHint());
  const int height = m_window->layout()->totalHeightForWidth(wanted.width());
  m_window->resize(wanted.width(), qMax(wanted.height(), height));
}

void VKRatingWindowController::setIntroText(const QString &text) {
  if (m_window) m_introTextField->setText(text);
}

void VKRatingWindowController::showPane(QWidget &pane, QWidget &focus) {
  m_panes->setCurrentWidget(&pane);
  focus.setFocus();
}

void VKRatingWindowController::happyClicked() {
  if (!m_window) return;
  m_ratemacupdateButton->setEnabled(tk->hasDestination(Ostrak::openMacupdateWebsite));
  m_rateappstoreButton->setEnabled(tk->hasDestination(Ostrak::openAppStoreApp));
  const auto ratings = {m_ratemacupdateButton, m_rateappstoreButton};
  const auto *first = std::ranges::find_if(ratings, &QWidget::isEnabled);
  showPane(*m_happyView, first == ratings.end() ? *m_notnowButton : **first);
}

void VKRatingWindowController::problemsClicked() {
  if (m_window) showPane(*m_angryView, *m_feedbackTextField);
}

void VKRatingWindowController::notsureClicked() {
  close();
}

void VKRatingWindowController::notnowClicked() {
  close();
}

void VKRatingWindowController::closeClicked() {
  close();
}

void VKRatingWindowController::dontshowClicked() {
  close();
  askToTurnOff();
}

void VKRatingWindowController::ratemacupdateClicked() {
  tk->openURL(Ostrak::openMacupdateWebsite);
  close();
}

void VKRatingWindowController::rateappstoreClicked() {
  tk->openURL(Ostrak::openAppStoreApp);
  close();
}

void VKRatingWindowController::sendfeedbackClicked() {
  if (!m_window) return;
  tk->sendSupportRequestMail(m_feedbackTextField->toPlainText());
  close();
}

void VKRatingWindowController::close() {
  if (m_window) m_window->close();
}

bool VKRatingWindowController::eventFilter(QObject *watched, QEvent *event) {
  if (watched == m_window.get() && event->type() == QEvent::Close) windowWillClose();
  return QObject::eventFilter(watched, event);
}

void VKRatingWindowController::windowWillClose() {
  // It may take itself away.
  const std::function<void()> closeBlock = m_closeBlock;
  if (closeBlock) closeBlock();
}

}  // namespace ostrak
