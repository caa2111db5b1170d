#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "ConversionArguments.h"

// A second formulation of the argument list, made independently of the first to check it by: it
// names the list section by section in its final order and knows tracks by their facts, not by
// their texts.

struct DeclaredTrack {
  int number = 0;
  QString language;
  QString codec;
  bool marked = false;  // with " [5.1]"
  int HZ = 0;

  [[nodiscard]] decant::AudioTrackDescription description() const;
};

struct DeclaredMovie {
  QList<DeclaredTrack> tracks;
  quint64 chosen = 0;
  int video = 0;
  QString videoCodec;
  QList<int> subtitles;
  QString subtitleFile;  // empty: none
  QString source, destination, progressFile;
  decant::ConversionSettings settings;
  bool fixup = false;

  [[nodiscard]] decant::ConversionPlan plan() const;
  // The list, with the additions for today's muxers or without them.
  [[nodiscard]] QStringList arguments(bool withAdditions) const;
};
