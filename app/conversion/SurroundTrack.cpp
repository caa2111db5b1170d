#include "SurroundTrack.h"

namespace decant {
using namespace Qt::StringLiterals;

namespace {

bool isMarkedSurround(const AudioTrackDescription &track) {
  return track.text.contains("[5.1]"_L1);
}

// The chosen track itself, when it is one that can be kept.
bool isKeepable(const AudioTrackDescription &track) {
  return isMarkedSurround(track) &&
         (track.text.contains("(ac3)"_L1) || track.text.contains("(dts)"_L1));
}

// AC3 plays in more places than DTS, so an AC3 track anywhere in the list goes before.
const AudioTrackDescription *findSurroundTrack(const QList<AudioTrackDescription> &tracks,
                                               const QString &language) {
  for (const auto codec : {"ac3"_L1, "dts"_L1}) {
    for (const AudioTrackDescription &track : tracks) {
      if (isMarkedSurround(track) && trackLanguage(track) == language && trackCodec(track) == codec)
        return &track;
    }
  }
  return nullptr;
}

}  // namespace

std::optional<SurroundTrack> surroundTrackFor(const MKVFileInfo &fileInfo, quint64 audioTrackIndex,
                                              const ConversionSettings &settings) {
  if (settings.ConversionPreset != ConversionPresetAAC || !settings.IncludeSurroundTrack) return {};
  const auto &tracks = fileInfo.audioTrackInformation;
  const AudioTrackDescription &chosen = tracks.at(qsizetype(audioTrackIndex));
  const AudioTrackDescription *track =
      isKeepable(chosen) ? &chosen : findSurroundTrack(tracks, trackLanguage(chosen));
  if (!track) return {};
  const QString codec = trackCodec(*track);
  return SurroundTrack{trackNumber(*track), codec,
                       codec == "dts"_L1 && settings.IncludeSurroundTrackTranscoded};
}

}  // namespace decant
