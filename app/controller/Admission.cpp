#include "Admission.h"

#include "ConversionJob.h"
#include "File.h"
#include "Text.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace decant {

using ostrak::localized;

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
  return ostrak::isSameFile(source, destination) || ostrak::isSameFile(subtitle, destination) ||
                 claimed.isSource(destination)
             ? Admission::destinationIsSource
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
