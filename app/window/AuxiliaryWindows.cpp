#include "AuxiliaryWindows.h"

#include <QAbstractButton>
#include <QLabel>
#include <QShortcut>
#include <QTabWidget>

#include "Documents.h"
#include "InterfaceFile.h"
#include "MissingForm.h"
#include "Ostrak.h"
#include "VKRTFView.h"
#include "VKWebView.h"
#include "ViewSearch.h"
#include "WindowTexts.h"

using namespace Qt::StringLiterals;
using ostrak::tk;

namespace decant {

namespace {

QWidget *makeView(const QString &className, QWidget *parent) {
  if (className == "VKWebView"_L1) return new ostrak::VKWebView(parent);
  if (className == "VKRTFView"_L1) return new ostrak::VKRTFView(parent);
  return nullptr;
}

// The forms name documents; which language they are in is known here.
void chooseDocuments(const QWidget &window) {
  for (auto *view : window.findChildren<ostrak::VKWebView *>())
    view->setLocalHTMLName(documentName(view->localHTMLName()));
  for (auto *view : window.findChildren<ostrak::VKRTFView *>())
    view->setLocalRTFName(documentName(view->localRTFName()));
}

// A button whose destination the bundle does not name would lead nowhere and is not shown.
void connectLinks(QWidget &window) {
  struct Link {
    const char *button;
    ostrak::Ostrak::UrlChoice choice;
  };
  static constexpr Link links[] = {
      {"supportButton", ostrak::Ostrak::openSupportRequestMail},
      {"homepageButton", ostrak::Ostrak::openHomepageWebsite},
      {"storeButton", ostrak::Ostrak::openAppStoreWebsite},
      {"rateButton", ostrak::Ostrak::openMacupdateWebsite},
  };
  for (const Link &link : links) {
    auto &button = ostrak::outlet<QAbstractButton>(window, QString::fromLatin1(link.button));
    button.setHidden(!tk->hasDestination(link.choice));
    QObject::connect(&button, &QAbstractButton::clicked, &button,
                     [choice = link.choice] { tk->openURL(choice); });
  }
}

// The window, loaded if it is not there, and then prepared. False when that fails, which is told.
bool load(QPointer<QWidget> &window, const QString &nibName, void (*prepare)(QWidget &)) {
  if (window) return true;
  window = ostrak::loadInterface(nibName, nullptr, makeView);
  if (!window) {
    tellFormMissing(nibName);
    return false;
  }
  window->setAttribute(Qt::WA_DeleteOnClose);
  chooseDocuments(*window);
  const auto *close = new QShortcut(QKeySequence::Close, window);
  QObject::connect(close, &QShortcut::activated, window, &QWidget::close);
  prepare(*window);
  return true;
}

void bringToFront(QWidget &window) {
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace

AuxiliaryWindows::AuxiliaryWindows(QObject *parent) : QObject(parent) {}

AuxiliaryWindows::~AuxiliaryWindows() {
  delete m_documentationWindow;
  delete m_promotionWindow;
}

void AuxiliaryWindows::openDocumentationWindow(int tag) {
  // So that the keys lead through the tabs at once.
  const auto focusTabs = [](QWidget &window) {
    if (auto *tabs = ostrak::viewWithClass<QTabWidget>(window)) tabs->setFocus();
  };
  if (!load(m_documentationWindow, u"DocumentationWindow"_s, focusTabs)) return;
  auto *tabs = ostrak::viewWithClass<QTabWidget>(*m_documentationWindow);
  if (tabs && tag >= 0) tabs->setCurrentIndex(tag);
  bringToFront(*m_documentationWindow);
}

void AuxiliaryWindows::openPromotion() {
  const auto fillIn = [](QWidget &window) {
    connectLinks(window);
    ostrak::outlet<QLabel>(window, u"versionLabel"_s)
        .setText(versionText() + u"   "_s + buildText());
  };
  if (load(m_promotionWindow, u"PromotionWindow"_s, fillIn)) bringToFront(*m_promotionWindow);
}

void AuxiliaryWindows::closeAll() {
  for (QWidget *window : {m_documentationWindow.data(), m_promotionWindow.data()})
    if (window) window->close();
}

}  // namespace decant
