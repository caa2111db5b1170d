#include "WindowPanels.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include "Alerts.h"
#include "Defaults.h"
#include "Format.h"
#include "Text.h"

using namespace Qt::StringLiterals;
using ostrak::localized;

namespace decant {

namespace {

// Shows the dialog like a sheet; `done` gets the chosen paths, none when it was cancelled.
void show(QFileDialog *dialog, const QString &name, std::function<void(const QStringList &)> done) {
  dialog->setObjectName(name);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowModality(Qt::WindowModal);
  QObject::connect(dialog, &QFileDialog::finished, dialog,
                   [dialog, done = std::move(done)](int result) {
                     done(result == QDialog::Accepted ? dialog->selectedFiles() : QStringList());
                   });
  dialog->open();
}

Panels::PathAnswer::result_type answerFirst(const Panels::PathAnswer &answer,
                                            const QStringList &paths) {
  if (paths.isEmpty()) {
    answer({});
  } else {
    answer(paths.first());
  }
}

// "Film 1.5" has no extension, "Film.avi" another one: both get the wanted one.
QString withExtension(const QString &path, const QString &extension) {
  const QString wanted = u'.' + extension;
  return path.endsWith(wanted, Qt::CaseInsensitive) ? path : path + wanted;
}

// A panel opens where the last answer was found, at first among the user's films.
QString usualFolder(const QString &key) {
  const QString last = ostrak::defaultString(key);
  if (!last.isEmpty() && QFileInfo(last).isDir()) return last;
  const QString films = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
  return QFileInfo(films).isDir() ? films : QDir::homePath();
}

void remember(const QString &key, const QStringList &chosen) {
  if (!chosen.isEmpty()) ostrak::setDefaultObject(key, QFileInfo(chosen.first()).absolutePath());
}

const QString addedFolderKey = u"LastAddedFolder"_s;
const QString chosenFolderKey = u"LastChosenFolder"_s;

QString patterns(const QStringList &extensions) {
  QStringList found;
  for (const QString &extension : extensions) {
    found << u"*."_s + extension << u"*."_s + extension.toUpper();
  }
  return found.join(u' ');
}

}  // namespace

void WindowPanels::askForTarget(const QString &folder, const QString &name,
                                const QString &extension, PathAnswer answer) {
  auto *dialog = new QFileDialog(m_mainWindow, localized(u"Save Converted Movie"_s), folder);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setFileMode(QFileDialog::AnyFile);
  dialog->setDefaultSuffix(extension);
  dialog->setNameFilter(localized(u"MP4 movies"_s) + u" (*."_s + extension + u')');
  dialog->selectFile(name);
  const auto chosen = [this, extension, answer = std::move(answer)](const QStringList &paths) {
    const QString path = paths.isEmpty() ? QString() : withExtension(paths.first(), extension);
    if (path.isEmpty() || path == paths.first() || !QFileInfo::exists(path)) {
      answerFirst(answer, path.isEmpty() ? QStringList() : QStringList{path});
    } else {
      // The panel has asked about another name, or not at all.
      askToReplace(path, extension, answer);
    }
  };
  show(dialog, u"savePanel"_s, chosen);
}

void WindowPanels::askToReplace(const QString &path, const QString &extension,
                                const PathAnswer &answer) {
  const QFileInfo file(path);
  ostrak::postAlert(
      ostrak::apptitledAlert(
          ostrak::makeString(localized(u"The file '%@' is there already. Replace it?"_s), path),
          {localized(u"Replace"_s), localized(u"Choose Another"_s)}),
      [this, path, file, extension, answer](int code) {
        if (code == ostrak::firstButton)
          answer(path);
        else
          askForTarget(file.absolutePath(), file.fileName(), extension, answer);
      });
}

void WindowPanels::askForFolder(Over over, PathAnswer answer) {
  QWidget *window = over == Over::MainWindow ? m_mainWindow : m_preferencesWindow;
  auto *dialog =
      new QFileDialog(window, localized(u"Choose a Folder"_s), usualFolder(chosenFolderKey));
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  show(dialog, u"folderPanel"_s, [answer = std::move(answer)](const QStringList &paths) {
    remember(chosenFolderKey, paths);
    answerFirst(answer, paths);
  });
}

void WindowPanels::askForFiles(const QStringList &extensions,
                               std::function<void(const QStringList &paths)> answer) {
  auto *dialog =
      new QFileDialog(m_mainWindow, localized(u"Add Movies"_s), usualFolder(addedFolderKey));
  dialog->setFileMode(QFileDialog::ExistingFiles);
  dialog->setNameFilter(localized(u"Movies and subtitle files"_s) + u" ("_s + patterns(extensions) +
                        u')');
  show(dialog, u"openPanel"_s, [answer = std::move(answer)](const QStringList &paths) {
    remember(addedFolderKey, paths);
    answer(paths);
  });
}

}  // namespace decant
