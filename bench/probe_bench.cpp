#include <benchmark/benchmark.h>

#include <QString>
#include <QStringList>

#include "PreferredAudioTrack.h"
#include "ReportParser.h"

// Parsing a report of 50 lines must take at most 50 µs with three streams and 100 µs with sixteen.

using namespace Qt::StringLiterals;

namespace {

constexpr char path[] = "/home/someone/Videos/A film with a rather long name (2019).mkv";

QStringList bannerLines() {
  return {u"ffmpeg version 5.1.9-0+deb12u1 Copyright (c) 2000-2026 the FFmpeg developers"_s,
          u"  built with gcc 12 (Debian 12.2.0-14+deb12u1)"_s,
          QString(u"  configuration: --prefix=/usr "_s + u"--enable-libsomething "_s.repeated(80)),
          u"  libavutil      57. 28.100 / 57. 28.100"_s,
          u"  libavcodec     59. 37.100 / 59. 37.100"_s,
          u"  libavformat    59. 27.100 / 59. 27.100"_s,
          QString(u"Input #0, matroska,webm, from '"_s + QString::fromLatin1(path) + u"':"_s),
          u"  Metadata:"_s,
          u"    title           : A film"_s,
          u"    ENCODER         : Lavf59.27.100"_s,
          u"  Duration: 01:52:07.46, start: 0.000000, bitrate: 9871 kb/s"_s};
}

QString streamLine(int index) {
  if (index == 0) {
    return u"  Stream #0:0(eng): Video: h264 (High), yuv420p(tv, bt709, progressive), 1920x1080 "
           "[SAR 1:1 DAR 16:9], 23.98 fps, 23.98 tbr, 1k tbn (default)"_s;
  }
  const QString label = u"  Stream #0:"_s + QString::number(index);
  if (index % 4 == 3) return label + u"(ger): Subtitle: subrip (default)"_s;
  return label + u"(eng): Audio: ac3, 48000 Hz, 5.1(side), fltp, 640 kb/s (default)"_s;
}

// 50 lines: the banner, the streams, each followed by its share of data lines, and the closing
// line.
QString reportWith(int streams) {
  constexpr qsizetype total = 50;
  QStringList lines = bannerLines();
  const qsizetype data = total - 1 - lines.size() - streams;
  for (int index = 0; index < streams; ++index) {
    lines.append(streamLine(index));
    const qsizetype share = data * (index + 1) / streams - data * index / streams;
    for (qsizetype tag = 0; tag < share; ++tag) {
      lines.append(u"      _STATISTICS_TAGS-eng: BPS DURATION NUMBER_OF_FRAMES"_s);
    }
  }
  return lines.join(u'\n') + u"\nAt least one output file must be specified\n"_s;
}

void parseReport(benchmark::State &state) {
  const QString report = reportWith(static_cast<int>(state.range(0)));
  const decant::ProbeSource source{QUrl::fromLocalFile(QString::fromLatin1(path)), 1, u"Decant"_s};
  const decant::ProbeOutcome once = decant::parseReport(report, source, {});
  if (!once.record || !once.record->runtimeSeconds) state.SkipWithError("the report is not read");
  for (auto _ : state) {
    benchmark::DoNotOptimize(decant::parseReport(report, source, {}));
  }
  state.counters["lines"] = static_cast<double>(report.count(u'\n'));
}
BENCHMARK(parseReport)->Arg(3)->Arg(16)->Unit(benchmark::kMicrosecond);

void chooseAudioTrack(benchmark::State &state) {
  QList<decant::AudioTrackDescription> tracks;
  for (int index = 0; index < 16; ++index) {
    tracks.append({u"#"_s + QString::number(index) + u": eng (ac3) [5.1]"_s, 48000});
  }
  const QStringList preferred = decant::preferredLanguages3Letter({u"de"_s, u"fr"_s, u"en"_s});
  for (auto _ : state) {
    benchmark::DoNotOptimize(decant::bestAudioTrack(tracks, preferred, 0));
  }
}
BENCHMARK(chooseAudioTrack)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
