#include "StatusText.h"

#include <algorithm>
#include <array>

#include "Date.h"
#include "Format.h"
#include "Text.h"
#include "Translatable.h"

namespace decant {
using namespace Qt::StringLiterals;
using ostrak::formattedTimeFromTimeInterval;
using ostrak::localized;
using ostrak::makeString;
using ostrak::translatable;

namespace {

constexpr double longestEta = 18000;  // seconds

QString wordOf(JobState state) {
  constexpr std::array<const char *, jobStateCount> words{
      translatable("Queued"), translatable("Converting"), translatable("Paused"),
      translatable("Finished"), translatable("Failed")};
  return localized(QString::fromLatin1(words.at(size_t(state))));
}

// What stands between the first and the second colon: " eng (ac3)" of "#1: eng (ac3)".
QString descriptionPart(const AudioTrackDescription &track) {
  const QStringList parts = track.text.split(u':');
  return parts.size() < 2 ? u""_s : parts[1];
}

// The last of the tracks that are not taken stands for all of them; the line has room for one.
QString lastDiscarded(const StatusFacts &facts) {
  const qsizetype last = facts.audioTracks.size() - 1;
  const qsizetype discarded = quint64(last) == facts.audioTrackIndex ? last - 1 : last;
  return descriptionPart(facts.audioTracks.at(discarded));
}

QString withAudio(const QString &text, const StatusFacts &facts) {
  const qsizetype count = facts.audioTracks.size();
  if (facts.audioTrackIndex >= quint64(count)) return text;
  const QString chosen = descriptionPart(facts.audioTracks.at(qsizetype(facts.audioTrackIndex)));
  const QString line = makeString(localized(u"%@   Audio: %@"_s), text, chosen);
  if (count < 2) return line;
  return makeString(localized(u"%@ (Discarded: %@)"_s), line, lastDiscarded(facts));
}

}  // namespace

double etaSeconds(double progress, double elapsedSeconds) {
  if (!(progress > 0)) return longestEta;
  const double left = 100.0 / progress * elapsedSeconds - elapsedSeconds;
  return std::clamp(left, 0.0, longestEta);
}

QString stateInfoString(const StatusFacts &facts) {
  const QString text = localized(u"Status: "_s) + wordOf(facts.state);
  switch (facts.state) {
    case JobStateConverting: {
      const double eta = etaSeconds(facts.progress, facts.elapsedSeconds);
      return makeString(localized(u"%@   ETA: %@"_s), withAudio(text, facts),
                        formattedTimeFromTimeInterval(eta));
    }
    case JobStateFinished:
      return text + makeString(localized(u" [Conversion took: %@]"_s),
                               formattedTimeFromTimeInterval(facts.elapsedSeconds));
    case JobStateFailed:
      return makeString(localized(u"%@   Click the arrow at the right to get more information."_s),
                        text);
    case JobStateQueued:
    case JobStatePaused:
      break;
  }
  return text;
}

QStringList shorterStateInfoStrings(const StatusFacts &facts) {
  if (facts.state == JobStateFailed) return {localized(u"Status: "_s) + wordOf(facts.state)};
  if (facts.state != JobStateConverting) return {};
  QStringList shorter;
  StatusFacts fewer = facts;
  const qsizetype count = facts.audioTracks.size();
  if (count > 1 && facts.audioTrackIndex < quint64(count)) {
    fewer.audioTracks = {facts.audioTracks.at(qsizetype(facts.audioTrackIndex))};
    fewer.audioTrackIndex = 0;
    shorter.append(stateInfoString(fewer));
  }
  if (count > 0) {
    fewer.audioTracks.clear();
    shorter.append(stateInfoString(fewer));
  }
  return shorter;
}

}  // namespace decant
