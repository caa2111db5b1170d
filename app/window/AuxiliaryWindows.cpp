#include "AuxiliaryWindows.h"

#include <QTabWidget>

#include "InterfaceFile.h"
#include "MissingForm.h"
#include "ViewSearch.h"

using namespace Qt::StringLiterals;

namespace decant {

AuxiliaryWindows::AuxiliaryWindows(QObject *parent) : QObject(parent) {}

AuxiliaryWindows::~AuxiliaryWindows() {
  delete m_documentationWindow;
  delete m_promotionWindow;
}

void AuxiliaryWindows::openDocumentationWindow(int tag) {
  openWindow(m_documentationWindow, u"DocumentationWindow"_s);
  if (tag < 0 || !m_documentationWindow) return;
  if (auto *tabs = ostrak::viewWithClass<QTabWidget>(*m_documentationWindow))
    tabs->setCurrentIndex(tag);
}

void AuxiliaryWindows::openPromotion() {
  openWindow(m_promotionWindow, u"PromotionWindow"_s);
}

void AuxiliaryWindows::closeAll() {
  for (QWidget *window : {m_documentationWindow.data(), m_promotionWindow.data()})
    if (window) window->close();
}

void AuxiliaryWindows::openWindow(QPointer<QWidget> &window, const QString &nibName) {
  if (!window) {
    window = ostrak::loadInterface(nibName);
    if (!window) {
      tellFormMissing(nibName);
      return;
    }
    window->setAttribute(Qt::WA_DeleteOnClose);
  }
  window->show();
  window->raise();
  window->activateWindow();
}

}  // namespace decant
