#pragma once

#include "ConversionArguments.h"

// Records and plans as the tests of this folder need them.

inline const QString sourcePath = QStringLiteral("/in/a movie.mkv");
inline const QString destinationPath = QStringLiteral("/out/a movie.mp4");
inline const QString progressPath = QStringLiteral("/documents/a movie.mkv.log");
inline const QString subtitlePath = QStringLiteral("/in/a movie.srt");

// A record of h264 video in stream 0 and these audio tracks, sampled at 48 kHz.
inline decant::MKVFileInfo recordWith(const QStringList &descriptions) {
  decant::MKVFileInfo record;
  record.fileURL = QUrl::fromLocalFile(sourcePath);
  record.destinationURL = QUrl::fromLocalFile(destinationPath);
  record.fileName = QStringLiteral("a movie.mkv");
  record.videoTrackID = 0;
  record.videoCodec = QStringLiteral("h264");
  for (const QString &description : descriptions)
    record.audioTrackInformation.append({description, 48000});
  return record;
}

// A plan of such a record with everything optional switched off.
inline decant::ConversionPlan planWith(const QStringList &descriptions) {
  decant::ConversionPlan plan;
  plan.fileInfo = recordWith(descriptions);
  plan.progressFile = progressPath;
  plan.settings.FixSubtitleDuration = false;
  return plan;
}

// The arguments between `first` and the next `last`, both left out.
inline QStringList between(const QStringList &arguments, const QString &first,
                           const QString &last) {
  const qsizetype start = arguments.indexOf(first) + 1;
  return arguments.mid(start, arguments.indexOf(last, start) - start);
}
