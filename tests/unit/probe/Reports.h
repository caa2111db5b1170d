#pragma once

#include <QString>
#include <QStringList>

#include "ReportParser.h"

// What the tests of the report parser share.

// A source in the manner of those that the reports name.
[[nodiscard]] decant::ProbeSource sourceAt(const QString &path);

// A report around these lines of a Matroska file of 90 minutes: banner, input line, then `lines`.
[[nodiscard]] QString reportOf(const QStringList &lines, const QString &path = {});

// Parses the lines around `reportOf` for "/movies/movie.mkv".
[[nodiscard]] decant::ProbeOutcome parsed(const QStringList &lines, bool heAACConvert = false);

// The track texts of a record, and the identifiers of alerts ("plain" for one without).
[[nodiscard]] QStringList textsOf(const QList<decant::AudioTrackDescription> &tracks);
[[nodiscard]] QStringList identifiersOf(const QList<decant::ProbeAlert> &alerts);

// Lines that do no harm.
[[nodiscard]] QString durationLine();
[[nodiscard]] QString videoLine();
