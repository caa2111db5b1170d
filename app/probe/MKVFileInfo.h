#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <optional>

#include "AudioTrackDescription.h"

namespace decant {

// What is known of one source file: filled by the probe, completed by intake (destination, paired
// subtitle file), then read-only input of one job. A value; an empty location means none.
struct MKVFileInfo {
  QList<AudioTrackDescription> audioTrackInformation;  // in report order
  QList<int> subtitleTrackIDs;  // stream indexes of the text subtitles that can be carried
  QString informationString;  // "Duration: …  Bitrate: …  Resolution: …  Audiotracks: 2 (3)"
  QString fileName;           // last path component of the source
  QUrl fileURL;               // the source, as given to the probe
  QUrl destinationURL;        // where the output goes; set by intake
  std::optional<int> videoTrackID;    // stream index of the video
  std::optional<int> runtimeSeconds;  // whole seconds; absent when unknown
  quint64 fileSize = 0;               // bytes; 0 when it cannot be read
  QUrl subtitleFileURL;               // paired subtitle file; set by intake
  QUrl securityURL;                   // folder whose sandbox access was started for the job
  QString videoCodec;                 // codec name of the video, for the choice of the muxer

  // One text with the fields that help a support engineer. For logs and reports.
  [[nodiscard]] QString description() const;

  bool operator==(const MKVFileInfo &) const = default;
};

}  // namespace decant
