#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace decant {

// Why a run failed, as far as its output tells.
enum class FailureKind {
  noSpace,
  unreliableDisk,
  damagedSource,
  sourceRemoved,
  videoNotEmbeddable,
  embeddedSubtitles,
  subtitleFile,
  unknown
};

// The fixed name of a kind, never translated: "noSpace".
[[nodiscard]] QString failureKindName(FailureKind kind);

// The marker that stands for the output of a job whose source was gone when it should start.
inline constexpr auto userRemovedMarker = "USER_REMOVED";

struct DiagnosisFacts {
  QString jobOutput;
  QStringList arguments;  // of the failed run, for the text of the unknown kind
  bool disableBuiltinSubtitles = true;
  bool hasSubtitleTracks = false;
  bool hasSubtitleFile = false;
};

struct Diagnosis {
  FailureKind kind = FailureKind::unknown;
  QString title;
  QString text;
  QStringList buttons;
  bool offersReport = false;  // the first button sends a problem report
};

// The first rule of the table that holds decides. Pure; title, text and buttons in the user's
// language.
[[nodiscard]] Diagnosis diagnose(const DiagnosisFacts &facts);
[[nodiscard]] FailureKind failureKindOf(const DiagnosisFacts &facts);

// Whether a run that ended with status 0 failed all the same: its output says that the file could
// not be completed.
[[nodiscard]] bool saysUnfinishedFile(const QString &jobOutput);

// Whether the output says that the source ends before the movie does: ffmpeg converts what there is
// and calls it a success. Known of Matroska, and of MP4 with its index in front; an MP4 that has
// lost its index cannot be read at all, and other kinds do not say how long they ought to be.
[[nodiscard]] bool saysSourceIsCutOff(const QString &jobOutput);

// A set of the phrases that a diagnosis looks for, one bit each.
using Phrases = quint32;
// Which of them occur in a line of output, so that it is kept in a flood.
[[nodiscard]] Phrases tellingPhrases(QByteArrayView line);
// Bytes of the longest phrase.
inline constexpr qsizetype longestTellingPhrase = 80;

}  // namespace decant
