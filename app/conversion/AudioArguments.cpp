#include "AudioArguments.h"

#include <array>
#include <charconv>

#include "ArgumentList.h"
#include "Exceptions.h"
#include "Format.h"
#include "SurroundTrack.h"

namespace decant {
using namespace Qt::StringLiterals;
using ostrak::makeString;

namespace {

// Positions in the base list.
constexpr qsizetype audioMapPosition = 6;
constexpr qsizetype encodingPosition = 13;

constexpr int highestSampleRate = 48000;  // Hz

using Bitrates = std::array<const char *, 4>;
constexpr Bitrates aacBitrates{"96k", "128k", "160k", "192k"};
constexpr Bitrates ac3StereoBitrates{"160k", "192k", "224k", "256k"};
constexpr Bitrates ac3SurroundBitrates{"384k", "448k", "512k", "576k"};

QString bitrate(const Bitrates &table, int index) {
  if (index < 0 || index >= int(table.size()))
    throw ostrak::RangeError(makeString(u"%i is no index of a bitrate"_s, index));
  return QString::fromLatin1(table[size_t(index)]);
}

QStringList channelsAndBitrate(ConversionMethod method, const ConversionSettings &settings) {
  switch (method) {
    case ConversionMethodAAC:
      return {u"-ac"_s, u"2"_s, u"-b:a"_s, bitrate(aacBitrates, settings.AACBitrate)};
    case ConversionMethodAC3Stereo:
      return {u"-ac"_s, u"2"_s, u"-b:a"_s, bitrate(ac3StereoBitrates, settings.AC3StereoBitrate)};
    case ConversionMethodAC3Surround:
      return {u"-ac"_s, u"6"_s, u"-b:a"_s,
              bitrate(ac3SurroundBitrates, settings.AC3SurroundBitrate)};
    case ConversionMethodCopy:
      break;
  }
  return {};
}

// As C's "%.2f" prints it in any locale. Qt's own rounds a tie such as 1.125 up, which C does not.
QString withTwoDecimals(double number) {
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                 std::chars_format::fixed, 2);
  return QString::fromLatin1(digits.data(), end.ptr - digits.data());
}

bool changesVolume(float percent) {
  return percent < 99.0F || percent > 101.0F;
}

}  // namespace

QString audioCodecArgument(ConversionMethod method) {
  if (method == ConversionMethodCopy) return u"copy"_s;
  return method == ConversionMethodAAC ? u"aac"_s : u"ac3"_s;
}

void addAudioEncoding(QStringList &arguments, const ConversionPlan &plan, ConversionMethod method) {
  if (method == ConversionMethodCopy) return;
  const AudioTrackDescription &track =
      plan.fileInfo.audioTrackInformation.at(qsizetype(plan.audioTrackIndex));
  insertAt(arguments, encodingPosition, channelsAndBitrate(method, plan.settings));
  if (track.HZ > highestSampleRate)
    insertAt(arguments, encodingPosition, {u"-ar"_s, QString::number(highestSampleRate)});
  const float volume = plan.settings.AudioVolume;
  if (!changesVolume(volume)) return;
  const QString filter = makeString(u"[0:%i]volume=%@[out]"_s, trackNumber(track),
                                    withTwoDecimals(double(volume) / 100.0));
  insertAt(arguments, encodingPosition, {u"-filter_complex"_s, filter});
  arguments[audioMapPosition] = u"[out]"_s;
}

void addAdditionalSurroundTrackAtIndex(QStringList &arguments, const ConversionPlan &plan,
                                       qsizetype &index) {
  const auto surround = surroundTrackFor(plan.fileInfo, plan.audioTrackIndex, plan.settings);
  if (!surround) return;
  const QStringList map{u"-map"_s, streamSpecifier(surround->number)};
  insertAt(arguments, index, map);
  index += map.size();
  const qsizetype beforeProgress = arguments.indexOf(u"-progress"_s);
  if (surround->transcoded) {
    // "-ac:2" counts the streams of the output: video, stereo track, this one.
    insertAt(arguments, beforeProgress,
             {u"-c:a:1"_s, u"ac3"_s, u"-ac:2"_s, u"6"_s, u"-b:a:1"_s,
              bitrate(ac3SurroundBitrates, plan.settings.AC3SurroundBitrate)});
  } else {
    insertAt(arguments, beforeProgress, {u"-c:a:1"_s, u"copy"_s});
  }
}

}  // namespace decant
