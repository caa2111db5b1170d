#include "Reports.h"

using namespace Qt::StringLiterals;

decant::ProbeSource sourceAt(const QString &path) {
  return {QUrl::fromLocalFile(path), 4711, u"Decant"_s};
}

QString durationLine() {
  return u"  Duration: 01:30:00.25, start: 0.000000, bitrate: 2000 kb/s"_s;
}

QString videoLine() {
  return u"  Stream #0:0(eng): Video: h264 (High), yuv420p(progressive), 1280x720 [SAR 1:1 DAR "
         "16:9], 25 fps, 25 tbr, 1k tbn (default)"_s;
}

QString reportOf(const QStringList &lines, const QString &path) {
  const QString name = path.isNull() ? u"/movies/movie.mkv"_s : path;
  return u"ffmpeg version 5.1.9-0+deb12u1 Copyright (c) 2000-2026 the FFmpeg developers\n"
         "  built with gcc 12 (Debian 12.2.0-14+deb12u1)\n"
         "  configuration: --prefix=/usr --enable-gpl --enable-libx264\n"
         "Input #0, matroska,webm, from '"_s +
         name + u"':\n"_s + lines.join(u'\n') + u"\nAt least one output file must be specified\n"_s;
}

decant::ProbeOutcome parsed(const QStringList &lines, bool heAACConvert) {
  return decant::parseReport(reportOf(lines), sourceAt(u"/movies/movie.mkv"_s), {heAACConvert});
}

QStringList textsOf(const QList<decant::AudioTrackDescription> &tracks) {
  QStringList texts;
  for (const decant::AudioTrackDescription &track : tracks)
    texts.append(track.text);
  return texts;
}

QStringList identifiersOf(const QList<decant::ProbeAlert> &alerts) {
  QStringList identifiers;
  for (const decant::ProbeAlert &each : alerts) {
    identifiers.append(each.alert.identifier.isNull() ? u"plain"_s : each.alert.identifier);
  }
  return identifiers;
}
