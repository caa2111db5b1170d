#include "ConversionTool.h"

#include <sys/stat.h>
#include <unistd.h>

#include "ConversionArguments.h"
#include "Descriptor.h"
#include "Format.h"
#include "Ostrak.h"
#include "Probe.h"
#include "Text.h"

namespace decant {
using namespace Qt::StringLiterals;
ostrak::ChildSetup conversionTool(const QString &path, const QStringList &arguments) {
  return {path, arguments, toolVariablesToRemove()};
}

bool isUsableTool(const QString &path) {
  const QByteArray name = ostrak::nativePath(path);
  struct stat info;
  return ::stat(name.constData(), &info) == 0 && S_ISREG(info.st_mode) && info.st_size > 0 &&
         ::access(name.constData(), X_OK) == 0;
}

QString toolMissingText(const QString &path, const MKVFileInfo &fileInfo) {
  const QString text = ostrak::localized(
      u"The file '%@' can't be converted because the tool '%@' is missing or cannot be run. Please "
      u"install ffmpeg, or install %@ again."_s);
  return ostrak::makeString(text, fileInfo.fileName, path,
                            ostrak::tk ? ostrak::tk->appName() : QString());
}

bool needFixup(const QString &toolPath, const MKVFileInfo &fileInfo, quint64 audioTrackIndex,
               const QString &destination, const FixupPatience &patience) {
  const int track = trackNumber(fileInfo.audioTrackInformation.at(qsizetype(audioTrackIndex)));
  const QStringList arguments = fixupTestArguments(fileInfo, track, destination);
  QByteArray output;
  const ostrak::ChildResult result =
      ostrak::runChild(conversionTool(toolPath, arguments), output, patience.deadline,
                       patience.delays, patience.interrupted);
  using End = ostrak::ChildResult::End;
  // How it ended does not matter, as long as it did by itself.
  return (result.end == End::Exited || result.end == End::Signalled) && needsFixup(output);
}

}  // namespace decant
