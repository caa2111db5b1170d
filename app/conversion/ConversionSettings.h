#pragma once

#include <QtGlobal>

namespace decant {

// What "ConversionPreset" holds: the conversion style.
enum ConversionPreset : int {
  ConversionPresetAAC = 0,
  ConversionPresetAC3 = 1,
  ConversionPresetCustom = 2
};

// The settings that decide one conversion, read afresh from the store at each decision; the fields
// are named as their keys. Menu indexes are within their lists.
struct ConversionSettings {
  int ConversionPreset = ConversionPresetAAC;
  bool AC3Downmix = false;
  bool DTSDownmix = false;
  int CustomAC3Handling = 3;
  int CustomAC351Handling = 3;
  int CustomDTSHandling = 1;
  int CustomDTS51Handling = 2;
  int CustomMP3Handling = 1;
  int CustomVorbisHandling = 1;
  int CustomUnknownHandling = 1;
  int AACBitrate = 1;
  int AC3StereoBitrate = 1;
  int AC3SurroundBitrate = 1;
  float AudioVolume = 100;  // percent
  bool IncludeSurroundTrack = false;
  bool IncludeSurroundTrackTranscoded = true;
  bool DisableBuiltinSubtitles = true;
  int ExternalSubtitleEncoding = 0;
  bool FixSubtitleDuration = true;
  bool ProduceStreamableFiles = false;
};

// What happens after a conversion.
struct CompletionSettings {
  bool AutoClean = false;
  bool AutoRemove = false;
  int AutoRemoveType = 0;  // non-zero deletes the source, zero moves it to the Trash
  bool QuitAfterConversion = false;
};

}  // namespace decant
