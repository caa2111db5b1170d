#include "AudioTrackDescription.h"

#include "Exceptions.h"
#include "Format.h"
#include "ReportScan.h"

namespace decant {

using namespace Qt::StringLiterals;

namespace {

QStringView wordOf(const AudioTrackDescription &track, qsizetype index) {
  const QList<QStringView> words = QStringView(track.text).split(u' ');
  if (index >= words.size()) {
    throw ostrak::RangeError(
        ostrak::makeString(u"the track description '%@' has no word %i"_s, track.text, index + 1));
  }
  return words[index];
}

}  // namespace

int trackNumber(const AudioTrackDescription &track) {
  return leadingInteger(before(QStringView(track.text).mid(1), u":"));
}

QString trackLanguage(const AudioTrackDescription &track) {
  return wordOf(track, 1).toString();
}

QString trackCodec(const AudioTrackDescription &track) {
  const QStringView word = wordOf(track, 2);
  return word.size() < 2 ? QString() : word.sliced(1).chopped(1).toString();
}

bool isSurround(const AudioTrackDescription &track) {
  return track.text.contains("5.1"_L1);
}

}  // namespace decant
