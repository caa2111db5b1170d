#include "WindowPatience.h"

#include "Window.h"

namespace decant {

void WindowPatience::begin(const QString &title) {
  if (m_mainWindow) ostrak::beginProgress(*m_mainWindow, title);
}

void WindowPatience::end() {
  if (m_mainWindow) ostrak::endProgress(*m_mainWindow);
}

}  // namespace decant
