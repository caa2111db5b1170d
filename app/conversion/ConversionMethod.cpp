#include "ConversionMethod.h"

#include "Exceptions.h"
#include "Format.h"

namespace decant {
using namespace Qt::StringLiterals;

namespace {

ConversionMethod methodFromSetting(int value) {
  if (value < ConversionMethodAAC || value > ConversionMethodCopy)
    throw ostrak::RangeError(ostrak::makeString(u"%i is no conversion method"_s, value));
  return ConversionMethod(value);
}

ConversionMethod customMethod(const QString &codec, bool surround,
                              const ConversionSettings &settings) {
  int value = settings.CustomUnknownHandling;
  if (codec == "ac3"_L1)
    value = surround ? settings.CustomAC351Handling : settings.CustomAC3Handling;
  else if (codec == "dts"_L1)
    value = surround ? settings.CustomDTS51Handling : settings.CustomDTSHandling;
  else if (codec == "mp3"_L1 && !surround)
    value = settings.CustomMP3Handling;
  else if (codec == "vorbis"_L1 && !surround)
    value = settings.CustomVorbisHandling;
  return methodFromSetting(value);
}

ConversionMethod methodKeepingAC3(const QString &codec, bool surround,
                                  const ConversionSettings &settings) {
  if (codec == "ac3"_L1)
    return surround && settings.AC3Downmix ? ConversionMethodAC3Stereo : ConversionMethodCopy;
  if (codec == "dts"_L1 && surround && !settings.DTSDownmix) return ConversionMethodAC3Surround;
  return ConversionMethodAC3Stereo;
}

}  // namespace

ConversionMethod calculateConversionMethod(const QString &codec, bool audioIsSurround,
                                           const ConversionSettings &settings) {
  if (codec == "aac"_L1) return ConversionMethodCopy;
  switch (settings.ConversionPreset) {
    case ConversionPresetCustom:
      return customMethod(codec, audioIsSurround, settings);
    case ConversionPresetAAC:
      return ConversionMethodAAC;
    default:
      return methodKeepingAC3(codec, audioIsSurround, settings);
  }
}

ConversionMethod conversionMethodOf(const AudioTrackDescription &track,
                                    const ConversionSettings &settings) {
  return calculateConversionMethod(trackCodec(track), isSurround(track), settings);
}

}  // namespace decant
