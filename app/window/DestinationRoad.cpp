#include "DestinationRoad.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "Alerts.h"
#include "DestinationFolders.h"
#include "DestinationMenu.h"
#include "Destinations.h"
#include "Ostrak.h"
#include "Text.h"

using namespace Qt::StringLiterals;

namespace decant {

using ostrak::localized;

namespace {

void tell(const QString &message, const QString &button, const QString &subject = {}) {
  ostrak::Alert alert = ostrak::apptitledAlert(localized(message), {localized(button)});
  alert.subject = subject;
  ostrak::postAlert(std::move(alert));
}

}  // namespace

DestinationRoad::DestinationRoad(DestinationFolders &folders, Panels &panels,
                                 const ClaimedNames &claimed, QObject *parent)
    : QObject(parent), m_folders(folders), m_panels(panels), m_claimed(claimed) {}

DestinationRoad::~DestinationRoad() = default;

void DestinationRoad::resolve(qsizetype menuIndex, const MKVFileInfo &fileInfo,
                              const Answer &answer) {
  const QList<DestinationMenuItem> items = destinationMenu(m_folders.names());
  if (menuIndex < 0 || menuIndex >= items.size()) return;
  switch (items.at(menuIndex).kind) {
    case DestinationMenuItem::Kind::AskEachTime:
      askEachTime(fileInfo, answer);
      break;
    case DestinationMenuItem::Kind::NextToSource:
      nextToSource(fileInfo, true, answer);
      break;
    case DestinationMenuItem::Kind::Folder:
      intoFolder(*folderAtMenuIndex(menuIndex, m_folders.names().size()), fileInfo, answer);
      break;
    case DestinationMenuItem::Kind::Separator:
    case DestinationMenuItem::Kind::AddFolder:
      break;
  }
}

void DestinationRoad::askEachTime(const MKVFileInfo &fileInfo, const Answer &answer) {
  const QString source = fileInfo.fileURL.toLocalFile();
  const QString extension = outputExtension();
  m_panels.askForTarget(
      QFileInfo(source).absolutePath(), outputName(fileInfo, extension), extension,
      [this, source, answer](const std::optional<QString> &path) {
        if (!path) {
          answer({});
          return;
        }
        if (ostrak::isSameFile(*path, source) || *path == source || m_claimed.isSource(*path)) {
          tell(
              u"You've tried to overwrite the source file with the target file. Thats the worst idea ever."_s,
              u"D'oh"_s, source);
          answer({});
          return;
        }
        QFile::remove(*path);
        answer(Resolved{QUrl::fromLocalFile(*path), {}, true});
      });
}

void DestinationRoad::nextToSource(const MKVFileInfo &fileInfo, bool mayAsk, const Answer &answer) {
  const QString target = pathNextToSource(fileInfo, outputExtension());
  if (const auto folder = m_folders.openFor(target)) {
    const QUrl security = folder->securityScoped ? QUrl::fromLocalFile(folder->path) : QUrl();
    answer(Resolved{QUrl::fromLocalFile(m_claimed.uniqueName(target)), security, false});
    return;
  }
  if (!mayAsk) {
    tell(u"You did not seem to select a folder that contains your MKV."_s, u"Cancel"_s,
         fileInfo.fileURL.toLocalFile());
    answer({});
    return;
  }
  const ostrak::Alert question =
      ostrak::apptitledAlert(localized(u"You've chosen the 'Next to' default destination for "
                                       u"converted MP4 files. Since Apple's SandBox "
                                       "limits access to your files you have to open the folder "
                                       "that contains all MKV files that you "
                                       "want to convert"_s),
                             {localized(u"OK"_s)});
  ostrak::postAlert(question, [this, fileInfo, answer](int) {
    m_panels.askForFolder(Panels::Over::MainWindow,
                          [this, fileInfo, answer](const std::optional<QString> &folder) {
                            if (!folder) {
                              answer({});
                              return;
                            }
                            m_folders.open(*folder);
                            nextToSource(fileInfo, false, answer);
                          });
  });
}

void DestinationRoad::intoFolder(qsizetype folder, const MKVFileInfo &fileInfo,
                                 const Answer &answer) {
  const QString path = m_folders.use(folder);
  const QString target = QDir(path).filePath(outputName(fileInfo, outputExtension()));
  answer(Resolved{QUrl::fromLocalFile(m_claimed.uniqueName(target)), QUrl::fromLocalFile(path),
                  false});
}

void DestinationRoad::chooseNewDestination(Panels::Over over) {
  m_panels.askForFolder(over, [this, over](const std::optional<QString> &folder) {
    if (!folder) return;
    switch (m_folders.add(*folder)) {
      case DestinationFolders::Addition::added:
        Q_EMIT folderAdded(over);
        break;
      case DestinationFolders::Addition::alreadyThere:
        tell(u"This destination is already bookmarked. You can not add it again."_s, u"D'oh"_s);
        Q_EMIT duplicateRefused();
        break;
      case DestinationFolders::Addition::failed:
        break;
    }
  });
}

}  // namespace decant
