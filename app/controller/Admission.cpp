#include "Admission.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "ConversionJob.h"
#include "Descriptor.h"
#include "File.h"
#include "Text.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace decant {

using ostrak::localized;

namespace {

QByteArray folderOf(const QByteArray &name) {
  return name.left(name.lastIndexOf('/') + 1);
}

// Nothing is tried there: on a full disk nothing could be written before the old file has gone.
bool mayChangeFolderOf(const QString &path) {
  const QByteArray folder = folderOf(ostrak::nativePath(path));
  return ::faccessat(AT_FDCWD, folder.constData(), W_OK | X_OK, AT_EACCESS) == 0;
}

// In a folder like the one for temporary files each user removes only what is their own.
bool isAnothersInStickyFolder(const QString &path) {
  const QByteArray name = ostrak::nativePath(path);
  struct stat file {};
  struct stat folder {};
  if (::lstat(name.constData(), &file) != 0 || ::stat(folderOf(name).constData(), &folder) != 0)
    return false;
  const uid_t user = ::geteuid();
  return (folder.st_mode & S_ISVTX) != 0 && user != 0 && user != file.st_uid &&
         user != folder.st_uid;
}

// Whether what is at `path` can make way for another file when its time comes; it is not touched.
bool canBeReplaced(const QString &path) {
  return !ostrak::fileIsDirectory(ostrak::fileURL(path)) && !ostrak::fileIsRestricted(path) &&
         !isAnothersInStickyFolder(path) && mayChangeFolderOf(path);
}

}  // namespace

Admission admissionOf(ConversionJob &job, const ClaimedNames &claimed, ClaimedNames::Files &files) {
  const QString source = job.fileInfo().fileURL.toLocalFile();
  const QString subtitle = job.fileInfo().subtitleFileURL.toLocalFile();
  QString destination = job.fileInfo().destinationURL.toLocalFile();
  files = ClaimedNames::look(destination, source, subtitle);
  if (claimed.isSourceName(files)) return Admission::destinationIsSource;
  if (claimed.isClaimed(files)) {
    destination = claimed.uniqueName(destination);
    job.setDestinationURL(ostrak::fileURL(destination));
    // What the user agreed to replace has another name.
    job.setReplacesDestination(false);
    files = ClaimedNames::look(destination, source, subtitle);
  }
  // Where a file can be made there was none, so it was nobody's source by another name.
  if (ostrak::isWriteablePath(destination)) return Admission::added;
  if (ostrak::isSameFile(source, destination) || ostrak::isSameFile(subtitle, destination) ||
      claimed.isSource(destination))
    return Admission::destinationIsSource;
  return job.replacesDestination() && canBeReplaced(destination) ? Admission::added
                                                                 : Admission::notWritable;
}

ostrak::Alert refusalAlert(const ConversionJob &job, Admission why) {
  const bool isSource = why == Admission::destinationIsSource;
  const QString message =
      isSource ? localized(
                     u"You've tried to overwrite the source file with the target file. Thats "
                     "the worst idea ever."_s)
               : localized(
                     u"You don't seem to have write access to the selected destinatation or "
                     "it is a read-only filesystem. Please choose another destination."_s);
  ostrak::Alert alert =
      ostrak::apptitledAlert(message, {isSource ? localized(u"D'oh"_s) : localized(u"OK"_s)});
  alert.subject = job.fileInfo().fileURL.toLocalFile();
  return alert;
}

}  // namespace decant
