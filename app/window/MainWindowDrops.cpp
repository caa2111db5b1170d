// Files that come in by drag and by paste.
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include "AppDelegate.h"
#include "DropMark.h"
#include "MainWindow.h"
#include "SortedFiles.h"

namespace decant {

namespace {

QStringList pathsOf(const QMimeData &data) {
  QStringList paths;
  for (const QUrl &url : data.urls()) {
    if (url.isLocalFile()) paths << url.toLocalFile();
  }
  return paths;
}

// Copied file names: one a line, as paths or as file addresses.
QStringList pathsOfText(const QString &text) {
  QStringList paths;
  for (const QString &line : text.split(u'\n', Qt::SkipEmptyParts)) {
    const QString name = line.trimmed();
    const QUrl url(name);
    if (url.isLocalFile()) {
      paths << url.toLocalFile();
    } else if (name.startsWith(u'/')) {
      paths << name;
    }
  }
  return paths;
}

bool holdsMovie(const QStringList &paths) {
  for (const QString &path : paths) {
    if (movieFileTypes().contains(lowerExtension(path))) return true;
  }
  return false;
}

}  // namespace

void MainWindow::dragEnterEvent(QDragEnterEvent *event) {
  if (!m_parts || !holdsMovie(pathsOf(*event->mimeData()))) {
    event->ignore();
    return;
  }
  event->setDropAction(Qt::CopyAction);
  event->accept();
  showDropPlace(true);
}

void MainWindow::dragLeaveEvent(QDragLeaveEvent *event) {
  QMainWindow::dragLeaveEvent(event);
  showDropPlace(false);
}

void MainWindow::dropEvent(QDropEvent *event) {
  showDropPlace(false);
  event->setDropAction(Qt::CopyAction);
  event->accept();
  take(pathsOf(*event->mimeData()));
}

void MainWindow::paste() {
  const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
  if (!copied) return;
  QStringList paths = pathsOf(*copied);
  if (paths.isEmpty()) paths = pathsOfText(copied->text());
  if (!paths.isEmpty()) take(paths);
}

void MainWindow::showDropPlace(bool shown) {
  m_dropMark->setVisible(shown);
  m_dropMark->raise();
}

}  // namespace decant
