#include "MuxerAdditions.h"

#include "ConversionMethod.h"
#include "SurroundTrack.h"

namespace decant {
using namespace Qt::StringLiterals;

namespace {

QStringList withOutputOption(QStringList arguments, const QString &name, const QString &value) {
  const qsizetype place = arguments.lastIndexOf(u"-y"_s) + 1;
  arguments.insert(place, value);
  arguments.insert(place, name);
  return arguments;
}

bool ipodMuxerTakesVideo(const QString &codec) {
  // Without a name nothing is known against the stream.
  return codec.isEmpty() || codec == "h264"_L1 || codec == "mpeg4"_L1;
}

bool ipodMuxerTakesAudio(const QString &codec) {
  // "he-aac" is what the probe calls an aac stream of that profile when it is to be transcoded.
  return codec == "aac"_L1 || codec == "he-aac"_L1 || codec == "ac3"_L1 || codec == "alac"_L1;
}

bool copiesUnusualAudio(const ConversionPlan &plan) {
  const auto &tracks = plan.fileInfo.audioTrackInformation;
  if (tracks.isEmpty()) return false;
  const AudioTrackDescription &chosen = tracks.at(qsizetype(plan.audioTrackIndex));
  if (conversionMethodOf(chosen, plan.settings) == ConversionMethodCopy &&
      !ipodMuxerTakesAudio(trackCodec(chosen)))
    return true;
  const auto surround = surroundTrackFor(plan.fileInfo, plan.audioTrackIndex, plan.settings);
  return surround && !surround->transcoded && !ipodMuxerTakesAudio(surround->codec);
}

}  // namespace

QStringList withTagForHevc(QStringList arguments, const ConversionPlan &plan) {
  if (plan.fileInfo.videoCodec != "hevc"_L1) return arguments;
  return withOutputOption(std::move(arguments), u"-tag:v"_s, u"hvc1"_s);
}

QStringList withMuxerForUnusualStreams(QStringList arguments, const ConversionPlan &plan) {
  const bool ipodMuxer =
      plan.fileInfo.destinationURL.path().endsWith(".m4v"_L1, Qt::CaseInsensitive);
  const bool unusual = !ipodMuxerTakesVideo(plan.fileInfo.videoCodec) || copiesUnusualAudio(plan);
  if (!ipodMuxer || !unusual) return arguments;
  return withOutputOption(std::move(arguments), u"-f"_s, u"mp4"_s);
}

}  // namespace decant
