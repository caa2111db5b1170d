#include "JobNotification.h"

#include <QUuid>

#include "Format.h"
#include "Text.h"

namespace decant {
using namespace Qt::StringLiterals;
using ostrak::localized;
using ostrak::makeString;

Notification endNotification(const QString &appName, const MKVFileInfo &fileInfo, bool failed) {
  Notification notification;
  notification.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
  if (failed) {
    notification.title = makeString(localized(u"%@ Conversion Failed"_s), appName);
    notification.text = makeString(localized(u"%@ has failed to convert the file %@."_s), appName,
                                   fileInfo.fileName);
    return notification;
  }
  notification.title = makeString(localized(u"%@ Conversion Finished"_s), appName);
  notification.text = makeString(localized(u"%@ has finished converting the file %@."_s), appName,
                                 fileInfo.fileName);
  notification.actionTitle = localized(u"Show"_s);
  notification.path = fileInfo.destinationURL.toLocalFile();
  return notification;
}

}  // namespace decant
