#include "WindowPanels.h"

#include <QFileDialog>

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
  show(dialog, u"savePanel"_s,
       [answer = std::move(answer)](const QStringList &paths) { answerFirst(answer, paths); });
}

void WindowPanels::askForFolder(Over over, PathAnswer answer) {
  QWidget *window = over == Over::MainWindow ? m_mainWindow : m_preferencesWindow;
  auto *dialog = new QFileDialog(window, localized(u"Choose a Folder"_s));
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  show(dialog, u"folderPanel"_s,
       [answer = std::move(answer)](const QStringList &paths) { answerFirst(answer, paths); });
}

void WindowPanels::askForFiles(const QStringList &extensions,
                               std::function<void(const QStringList &paths)> answer) {
  auto *dialog = new QFileDialog(m_mainWindow, localized(u"Add Movies"_s));
  dialog->setFileMode(QFileDialog::ExistingFiles);
  dialog->setNameFilter(localized(u"Movies and subtitle files"_s) + u" ("_s + patterns(extensions) +
                        u')');
  show(dialog, u"openPanel"_s, std::move(answer));
}

}  // namespace decant
