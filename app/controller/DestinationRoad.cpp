#include "DestinationRoad.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <exception>
#include <memory>
#include <utility>

#include "Alerts.h"
#include "Bookmark.h"
#include "DestinationFolders.h"
#include "DestinationMenu.h"
#include "Destinations.h"
#include "Ostrak.h"
#include "Patience.h"
#include "Text.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace decant {

using ostrak::localized;

namespace {

void tell(const QString &message, const QString &button, const QString &subject = {}) {
  ostrak::Alert alert = ostrak::apptitledAlert(message, {button});
  alert.subject = subject;
  ostrak::postAlert(std::move(alert));
}

}  // namespace

DestinationRoad::DestinationRoad(DestinationFolders &folders, Panels &panels, QObject *parent)
    : DestinationRoad(folders, panels, &lookIntoFolder, parent) {}

DestinationRoad::DestinationRoad(DestinationFolders &folders, Panels &panels, FolderLook look,
                                 QObject *parent)
    : QObject(parent), m_folders(folders), m_panels(panels), m_look(std::move(look)) {}

DestinationRoad::~DestinationRoad() = default;

void DestinationRoad::choose(const MKVFileInfo &record, const ClaimedNames &claimed,
                             const DestinationAnswer &answer) {
  const Request request{record, claimed, answer};
  switch (destinationMenu(m_folders.names()).value(m_menuIndex).kind) {
    case DestinationMenuItem::Kind::AskEachTime:
      askEachTime(request);
      break;
    case DestinationMenuItem::Kind::NextToSource:
      afterLook(
          request, Moment::Choice,
          [look = m_look, source = record.fileURL.toLocalFile()] {
            look(QFileInfo(source).path());
          },
          [this, request] { nextToSource(request); });
      break;
    case DestinationMenuItem::Kind::Folder:
      intoFolder(request, *folderAtMenuIndex(m_menuIndex, m_folders.names().size()));
      break;
    case DestinationMenuItem::Kind::Separator:
    case DestinationMenuItem::Kind::AddFolder:
      answer({});
      break;
  }
}

void DestinationRoad::afterLook(const Request &request, Moment moment, std::function<void()> look,
                                std::function<void()> then) {
  const auto late = std::make_shared<bool>(moment == Moment::Later);
  ostrak::workPatiently(localized(u"Checking the Destination"_s), std::move(look),
                        [road = QPointer(this), request, then = std::move(then),
                         late](const std::exception_ptr &thrown) {
                          if (!road) return;
                          try {
                            if (thrown) std::rethrow_exception(thrown);
                            then();
                          } catch (...) {
                            // Nobody who could take it for an answer is listening any more.
                            if (*late) request.answer({});
                            throw;
                          }
                        });
  *late = true;
}

void DestinationRoad::askEachTime(const Request &request) {
  const QString source = request.record.fileURL.toLocalFile();
  const QString extension = outputExtension();
  m_panels.askForTarget(QFileInfo(source).absolutePath(), outputName(request.record, extension),
                        extension, [this, request](const std::optional<QString> &path) {
                          if (path)
                            targetChosen(request, *path);
                          else
                            request.answer({});
                        });
}

void DestinationRoad::targetChosen(const Request &request, const QString &path) {
  afterLook(
      request, Moment::Later, [look = m_look, path] { look(QFileInfo(path).path()); },
      [this, request, path] { checkTarget(request, path); });
}

void DestinationRoad::checkTarget(const Request &request, const QString &path) {
  const QString source = request.record.fileURL.toLocalFile();
  const QString subtitle = request.record.subtitleFileURL.toLocalFile();
  if (path == source || ostrak::isSameFile(path, source) || ostrak::isSameFile(path, subtitle) ||
      request.claimed.isSource(path)) {
    tell(
        localized(
            u"You've tried to overwrite the source file with the target file. Thats the worst idea ever."_s),
        localized(u"D'oh"_s), source);
    request.answer({});
    return;
  }
  request.answer(Destination{ostrak::fileURL(path), {}, true});
}

void DestinationRoad::nextToSource(const Request &request) {
  if (intoOpenedFolder(request)) return;
  const ostrak::Alert question = ostrak::apptitledAlert(
      localized(
          u"You've chosen the 'Next to' default destination for converted MP4 files. Since Apple's SandBox limits access to your files you have to open the folder that contains all MKV files that you want to convert"_s),
      {localized(u"OK"_s)});
  ostrak::postAlert(question, [this, request](int) { openFolderFor(request); });
}

bool DestinationRoad::intoOpenedFolder(const Request &request) {
  const QString target = pathNextToSource(request.record, outputExtension());
  const auto folder = m_folders.openFor(target);
  if (!folder) return false;
  const QUrl security = folder->securityScoped ? ostrak::fileURL(folder->path) : QUrl();
  request.answer(Destination{ostrak::fileURL(request.claimed.uniqueName(target)), security, false});
  return true;
}

void DestinationRoad::openFolderFor(const Request &request) {
  m_panels.askForFolder(
      Panels::Over::MainWindow, [this, request](const std::optional<QString> &folder) {
        if (!folder) {
          request.answer({});
          return;
        }
        m_folders.open(*folder);
        if (intoOpenedFolder(request)) return;
        tell(localized(u"You did not seem to select a folder that contains your MKV."_s),
             localized(u"Cancel"_s), request.record.fileURL.toLocalFile());
        request.answer({});
      });
}

void DestinationRoad::intoFolder(const Request &request, qsizetype folder) {
  const QByteArray bookmark = DestinationFolders::bookmarkAt(folder);
  const auto found = std::make_shared<std::optional<QString>>();
  afterLook(
      request, Moment::Choice,
      [look = m_look, bookmark, found] {
        const auto path = ostrak::folderOfBookmark(bookmark);
        if (!path) return;
        look(*path);
        // A look takes its time, and the folder may have gone meanwhile.
        *found = ostrak::folderOfBookmark(bookmark);
      },
      [this, request, bookmark, found] {
        // The preferences are open to the user while this looks.
        const qsizetype now = DestinationFolders::indexOf(bookmark);
        if (now >= 0)
          intoResolvedFolder(request, m_folders.use(now, *found));
        else
          request.answer({});
      });
}

void DestinationRoad::intoResolvedFolder(const Request &request, const QString &folder) {
  const QString target = QDir(folder).filePath(outputName(request.record, outputExtension()));
  request.answer(Destination{ostrak::fileURL(request.claimed.uniqueName(target)),
                             ostrak::fileURL(folder), false});
}

void DestinationRoad::chooseNewDestination(Panels::Over over) {
  m_panels.askForFolder(over, [this, over](const std::optional<QString> &folder) {
    if (!folder) return;
    switch (m_folders.add(*folder)) {
      case DestinationFolders::Addition::added:
        Q_EMIT folderAdded(over);
        break;
      case DestinationFolders::Addition::alreadyThere:
        tell(localized(u"This destination is already bookmarked. You can not add it again."_s),
             localized(u"D'oh"_s));
        Q_EMIT duplicateRefused();
        break;
      case DestinationFolders::Addition::failed:
        break;
    }
  });
}

}  // namespace decant
