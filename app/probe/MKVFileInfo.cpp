#include "MKVFileInfo.h"

#include "Format.h"

namespace decant {

using namespace Qt::StringLiterals;
using ostrak::makeString;

namespace {

QString listed(const QStringList &items) {
  return u'(' + items.join(u", "_s) + u')';
}

}  // namespace

QString MKVFileInfo::description() const {
  QStringList tracks;
  for (const AudioTrackDescription &track : audioTrackInformation)
    tracks.append(track.text);
  QStringList subtitles;
  for (const int id : subtitleTrackIDs)
    subtitles.append(QString::number(id));
  const QString runtime = runtimeSeconds ? QString::number(*runtimeSeconds) : QString();
  const QString subtitleFile =
      subtitleFileURL.isEmpty() ? QString() : subtitleFileURL.toLocalFile();
  return makeString(
      u"MKVFileInfo: audioTrackInformation=%@ informationString=%@ fileName=%@ runtimeSeconds=%@ "
      "fileSize=%@ subtitleTrackIDs=%@ subtitleFileURL=%@"_s,
      listed(tracks), informationString, fileName, runtime, fileSize, listed(subtitles),
      subtitleFile);
}

}  // namespace decant
