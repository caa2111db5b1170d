#include "FolderLook.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDirIterator>

#include "Descriptor.h"

namespace decant {

void lookIntoFolder(const QString &folder) {
  QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::System);
  if (entries.hasNext()) entries.next();
  // A file without a name: another one might just be about to get any name that is tried here.
  const ostrak::Descriptor file(
      ::open(ostrak::nativePath(folder).constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
  // Whether that works is asked again when it counts.
  if (!file) return;
  [[maybe_unused]] const auto written = ::write(file.get(), "TEST", 4);
}

}  // namespace decant
