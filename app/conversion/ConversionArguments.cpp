#include "ConversionArguments.h"

#include "ArgumentList.h"
#include "AudioArguments.h"
#include "Exceptions.h"
#include "Format.h"
#include "MuxerAdditions.h"
#include "SubtitleArguments.h"

namespace decant {
using namespace Qt::StringLiterals;

namespace {

// Where the maps of further streams go: after the audio map.
constexpr qsizetype furtherMapsPosition = 7;

QString videoSpecifier(const MKVFileInfo &fileInfo) {
  return streamSpecifier(fileInfo.videoTrackID.value_or(0));
}

const AudioTrackDescription &trackAt(const MKVFileInfo &fileInfo, quint64 index) {
  const auto &tracks = fileInfo.audioTrackInformation;
  if (index >= quint64(tracks.size()))
    throw ostrak::RangeError(ostrak::makeString(u"there is no audio track at index %llu"_s, index));
  return tracks.at(qsizetype(index));
}

void makeStreamable(QStringList &arguments, const ConversionSettings &settings) {
  if (settings.ProduceStreamableFiles)
    insertAt(arguments, arguments.size() - 1, {u"-movflags"_s, u"faststart"_s});
}

QStringList argumentsWithoutAudio(const ConversionPlan &plan) {
  const MKVFileInfo &file = plan.fileInfo;
  QStringList arguments{u"-i"_s,
                        file.fileURL.toLocalFile(),
                        u"-stats"_s,
                        u"-map"_s,
                        videoSpecifier(file),
                        u"-scodec"_s,
                        u"mov_text"_s,
                        u"-vcodec"_s,
                        u"copy"_s,
                        u"-progress"_s,
                        plan.progressFile,
                        u"-loglevel"_s,
                        u"warning"_s,
                        u"-y"_s,
                        file.destinationURL.toLocalFile()};
  makeStreamable(arguments, plan.settings);
  return arguments;
}

QStringList baseArgumentsWithAudio(const ConversionPlan &plan, const AudioTrackDescription &track,
                                   ConversionMethod method) {
  const MKVFileInfo &file = plan.fileInfo;
  return {u"-i"_s,
          file.fileURL.toLocalFile(),
          u"-stats"_s,
          u"-map"_s,
          videoSpecifier(file),
          u"-map"_s,
          streamSpecifier(trackNumber(track)),
          u"-scodec"_s,
          u"mov_text"_s,
          u"-vcodec"_s,
          u"copy"_s,
          u"-acodec"_s,
          audioCodecArgument(method),
          u"-progress"_s,
          plan.progressFile,
          u"-loglevel"_s,
          u"warning"_s,
          u"-y"_s,
          file.destinationURL.toLocalFile()};
}

QStringList argumentsWithAudio(const ConversionPlan &plan) {
  const AudioTrackDescription &track = trackAt(plan.fileInfo, plan.audioTrackIndex);
  const ConversionMethod method = conversionMethodOf(track, plan.settings);
  QStringList arguments = baseArgumentsWithAudio(plan, track, method);
  // The order of the steps decides where each lands: they insert at fixed positions. The filter
  // moves the later ones on, but it comes only with a copied track, which gets no encoding options.
  if (plan.fixup && wantsFixupTest(plan.fileInfo, plan.audioTrackIndex, plan.settings))
    insertAt(arguments, furtherMapsPosition, {u"-absf"_s, u"aac_adtstoasc"_s});
  addAudioEncoding(arguments, plan, method);
  qsizetype index = furtherMapsPosition;
  addAdditionalSurroundTrackAtIndex(arguments, plan, index);
  addSubtitles(arguments, plan, u"1:0"_s, index);
  makeStreamable(arguments, plan.settings);
  if (plan.settings.FixSubtitleDuration) arguments.prepend(u"-fix_sub_duration"_s);
  return arguments;
}

}  // namespace

QStringList buildArguments(const ConversionPlan &plan) {
  return plan.fileInfo.audioTrackInformation.isEmpty() ? argumentsWithoutAudio(plan)
                                                       : argumentsWithAudio(plan);
}

QStringList completeArguments(const ConversionPlan &plan) {
  return withMuxerForUnusualStreams(withTagForHevc(buildArguments(plan), plan), plan);
}

QStringList fixupTestArguments(const MKVFileInfo &fileInfo, int trackNumber,
                               const QString &destination) {
  return {u"-i"_s,
          fileInfo.fileURL.toLocalFile(),
          u"-stats"_s,
          u"-t"_s,
          u"1"_s,
          u"-map"_s,
          videoSpecifier(fileInfo),
          u"-map"_s,
          streamSpecifier(trackNumber),
          u"-vcodec"_s,
          u"copy"_s,
          u"-acodec"_s,
          u"copy"_s,
          u"-y"_s,
          destination};
}

bool needsFixup(const QByteArray &output) {
  return output.contains("aac_adtstoasc");
}

bool wantsFixupTest(const MKVFileInfo &fileInfo, quint64 audioTrackIndex,
                    const ConversionSettings &settings) {
  const auto &tracks = fileInfo.audioTrackInformation;
  if (audioTrackIndex >= quint64(tracks.size())) return false;
  const AudioTrackDescription &track = tracks.at(qsizetype(audioTrackIndex));
  return trackCodec(track) == "aac"_L1 &&
         conversionMethodOf(track, settings) == ConversionMethodCopy;
}

}  // namespace decant
