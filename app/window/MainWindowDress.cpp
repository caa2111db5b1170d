// Icons, texts and letters that follow the desktop and the queue.
#include <QAction>
#include <QEvent>
#include <QLabel>

#include "AppDelegate.h"
#include "InterfaceFile.h"
#include "MainWindow.h"
#include "ScaledFont.h"
#include "Text.h"
#include "ThemeIcon.h"

using namespace Qt::StringLiterals;
using ostrak::localized;
using ostrak::outlet;

namespace decant {

namespace {

struct ActionIcon {
  const char *action;
  const char *theme;
  const char *shipped;
};
constexpr ActionIcon actionIcons[] = {
    {"addAction", "list-add", "toolbar_add"},
    {"cleanAction", "edit-clear-all", "toolbar_clean"},
    {"preferencesAction", "configure", "toolbar_preferences"},
    {"helpAction", "help-contents", "toolbar_help"},
};

}  // namespace

void MainWindow::enlargeInvitation() {
  outlet<QLabel>(*this, u"helpLabel"_s).setFont(ostrak::scaledFont(font(), 1.5));
}

void MainWindow::dressActions() {
  for (const ActionIcon &icon : actionIcons) {
    action(QString::fromLatin1(icon.action))
        .setIcon(ostrak::themeIcon(QString::fromLatin1(icon.theme),
                                   QString::fromLatin1(icon.shipped), palette()));
  }
  updatePauseTexts();
}

void MainWindow::updatePauseTexts() {
  const bool paused = m_parts->app.queue().paused();
  const QString text = paused ? localized(u"Resume Queue"_s) : localized(u"Pause Queue"_s);
  QAction &item = action(u"pauseContinueToolbarItem"_s);
  item.setText(text);
  item.setIconText(text);
  item.setToolTip(text);
  item.setIcon(paused
                   ? ostrak::themeIcon(u"media-playback-start"_s, u"toolbar_start"_s, palette())
                   : ostrak::themeIcon(u"media-playback-pause"_s, u"toolbar_pause"_s, palette()));
  action(u"pauseContinueMenuItem"_s).setText(text);
}

void MainWindow::changeEvent(QEvent *event) {
  QMainWindow::changeEvent(event);
  if (!m_parts) return;
  if (event->type() == QEvent::PaletteChange) dressActions();
  if (event->type() == QEvent::FontChange) {
    enlargeInvitation();
    setIconSize({});
  }
}

}  // namespace decant
