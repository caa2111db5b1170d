#pragma once

#include <QPointer>
#include <QWidget>

#include "Panels.h"

namespace decant {

// The panels as dialogs of the desktop, over the window that they belong to. Main thread.
class WindowPanels final : public Panels {
 public:
  WindowPanels() = default;
  void setMainWindow(QWidget *window) { m_mainWindow = window; }
  void setPreferencesWindow(QWidget *window) { m_preferencesWindow = window; }

  void askForTarget(const QString &folder, const QString &name, const QString &extension,
                    PathAnswer answer) override;
  void askForFolder(Over over, PathAnswer answer) override;
  void askForFiles(const QStringList &extensions,
                   std::function<void(const QStringList &paths)> answer) override;

 private:
  void askToReplace(const QString &path, const QString &extension, const PathAnswer &answer);

  QPointer<QWidget> m_mainWindow;
  QPointer<QWidget> m_preferencesWindow;
};

}  // namespace decant
