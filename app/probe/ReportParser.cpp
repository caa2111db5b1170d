#include "ReportParser.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "Format.h"
#include "ProbeAlerts.h"
#include "ReportScan.h"
#include "Text.h"

// How a report is read. The first pass walks its lines: those that begin with "Stream" start a
// block, which runs to the next; a "Duration" line gives running time and bitrate; all others are
// data of the block that they follow. The second pass reads the blocks, one stream each, by kind.
// Everything that matters of a stream stands in its first line, 'Stream #F:I(lang): Kind: details'.

namespace decant {

using namespace Qt::StringLiterals;
using ostrak::makeString;

namespace {

constexpr std::array<QStringView, 9> refusedVideoCodecs = {
    u"dvvideo", u"prores", u"wmv3", u"vp6f", u"dnxhd", u"vp9", u"vp8", u"msmpeg4v3", u"aic"};
constexpr std::array<QStringView, 2> expectedVideoCodecs = {u"h264", u"mpeg4"};
constexpr std::array<QStringView, 6> usableSubtitles = {u"ssa",  u"subrip",    u"srt",
                                                        u"sami", u"subviewer", u"microdvd"};
constexpr std::array<QStringView, 4> multichannelLayouts = {u"5.1,", u"5.1(side),", u"6.1,",
                                                            u"7.1,"};

constexpr int widestForPhones = 1920;
// The decoded-picture buffer of H.264 level 4.1, counted in pixels.
constexpr double referencePixels = 32768.0 * 256.0;

bool containsAny(QStringView line, const auto &words) {
  return std::any_of(words.begin(), words.end(),
                     [line](QStringView word) { return line.contains(word); });
}

bool isOneOf(QStringView word, const auto &words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

// One "Stream" line and what its data lines say.
struct StreamBlock {
  QStringView line;
  bool hasImageMimetype = false;
};

struct RunningTime {
  QString text;  // "HH:MM:SS"; null when the report has none
  QString bitrate;
  std::optional<int> seconds;
};

struct ReportLayout {
  RunningTime runningTime;
  QList<StreamBlock> streams;
};

// "HH:MM:SS"; nothing when it has fewer than three parts.
std::optional<int> secondsOf(QStringView durationText) {
  const QList<QStringView> parts = durationText.split(u':');
  if (parts.size() < 3) return {};
  const qint64 seconds = qint64{leadingInteger(parts[0])} * 3600 +
                         qint64{leadingInteger(parts[1])} * 60 + leadingInteger(parts[2]);
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<qint64>(seconds, Limits::min(), Limits::max()));
}

// 'Duration: 01:52:07.46, start: 0.000000, bitrate: 9871 kb/s'
void readDurationLine(QStringView line, RunningTime &runningTime) {
  const QStringView text = before(after(line, u"Duration: "), u".");
  runningTime.text = text.toString();
  const std::optional<int> seconds = secondsOf(text);
  if (!seconds) return;
  runningTime.seconds = seconds;
  runningTime.bitrate = after(line, u"bitrate: ").toString();
}

// The first pass.
ReportLayout layoutOf(QStringView report) {
  ReportLayout layout;
  ReportLines lines(report);
  for (QStringView line; lines.next(line);) {
    const QStringView trimmed = line.trimmed();
    if (trimmed.startsWith(u"Stream") && !isTagLine(trimmed)) {
      layout.streams.append({line, false});
    } else if (trimmed.startsWith(u"Duration") && !isTagLine(trimmed)) {
      readDurationLine(line, layout.runningTime);
      continue;
    }
    if (layout.streams.isEmpty()) continue;
    if (containsIgnoringBlanks(trimmed, u"mimetype:image/")) {
      layout.streams.last().hasImageMimetype = true;
    }
  }
  return layout;
}

// The stream's number and language: '1(eng)', in mp4, mov, ts and mpg '1[0x2](eng)'.
struct StreamLabel {
  int index = 0;
  QString language;
};

StreamLabel labelOf(QStringView line) {
  QString label = after(line, u":").toString();
  const qsizetype id = label.indexOf("[0x"_L1);
  const qsizetype idEnd = label.indexOf(u']', id);
  if (id >= 0 && idEnd >= 0) label.remove(id, idEnd - id + 1);
  QString language = strippedOf(label, u"0123456789()").toString();
  // Words of a description are separated by single blanks, so its language is one word.
  for (QChar &c : language) {
    if (c.isSpace()) c = u'-';
  }
  return {leadingInteger(strippedToSet(label, u"0123456789")),
          language.isEmpty() ? u"unk"_s : language};
}

// 'h264 (High), yuv420p' after "Video: " is the codec "h264".
QStringView codecAfter(QStringView line, QStringView kind) {
  return before(before(after(line, kind), u","), u" ");
}

// The last word with an "x": '1920x1080,' gives "1920x1080". Null when there is none.
QString resolutionOf(QStringView line) {
  const qsizetype x = line.lastIndexOf(u'x');
  if (x < 0) return {};
  const qsizetype start = line.lastIndexOf(u' ', x) + 1;
  return strippedToSet(before(line.sliced(start), u" "), u"0123456789x").toString();
}

// '..., 48000 Hz' gives 48000.
int sampleRateOf(QStringView line) {
  const qsizetype hertz = line.indexOf(u" Hz");
  if (hertz < 0) return 0;
  const QStringView text = line.first(hertz);
  const qsizetype comma = text.lastIndexOf(u", ");
  return leadingInteger(comma < 0 ? text : text.sliced(comma + 2));
}

// The second pass: takes one stream after the other and makes the outcome of them.
class StreamReader final {
 public:
  StreamReader(const ProbeSource &source, const ProbeSettings &settings)
      : m_source(source), m_settings(settings) {}

  // False when the file cannot be converted because of this stream.
  [[nodiscard]] bool read(const StreamBlock &stream);
  // After the last stream.
  void finish(const RunningTime &runningTime);
  [[nodiscard]] ProbeOutcome takeOutcome() { return std::move(m_outcome); }

 private:
  bool readVideo(const StreamBlock &stream, int index);
  void readAudio(QStringView line, const StreamLabel &label);
  void readSubtitle(QStringView line, int index);
  void checkPlayback();

  const ProbeSource &m_source;
  const ProbeSettings &m_settings;
  ProbeOutcome m_outcome;
  MKVFileInfo m_record;
  QString m_resolution;  // of the last video with one; null when none has
  int m_referenceFrames = 0;
  int m_subtitles = 0;  // of any codec
};

bool StreamReader::read(const StreamBlock &stream) {
  const QStringView line = stream.line;
  const StreamLabel label = labelOf(line);
  if (line.contains(u"Video: ")) return readVideo(stream, label.index);
  if (line.contains(u"Audio: ")) {
    readAudio(line, label);
  } else if (line.contains(u"Subtitle: ")) {
    readSubtitle(line, label.index);
  }
  return true;
}

bool StreamReader::readVideo(const StreamBlock &stream, int index) {
  const QStringView line = stream.line;
  const bool isPicture = stream.hasImageMimetype || line.contains(u"(attached pic)");
  if (isPicture) return true;

  if (const QString resolution = resolutionOf(line); !resolution.isNull()) {
    m_resolution = resolution;
  }
  const QString codec = codecAfter(line, u"Video: ").toString();
  if (isOneOf(codec, refusedVideoCodecs)) {
    m_outcome.alerts.append(refusedCodecAlert(m_source, codec));
    return false;
  }
  if (!isOneOf(codec, expectedVideoCodecs)) {
    m_outcome.alerts.append(unexpectedCodecAlert(m_source, codec));
  }
  if (line.contains(u"High 10")) m_outcome.alerts.append(tenBitAlert(m_source));
  if (line.contains(u"|refs: ")) {
    m_referenceFrames = leadingInteger(before(after(line, u"|refs: "), u"|"));
  }
  m_record.videoTrackID = index;
  m_record.videoCodec = codec;
  return true;
}

void StreamReader::readAudio(QStringView line, const StreamLabel &label) {
  QString codec = codecAfter(line, u"Audio: ").toString();
  const bool isHeAac = line.contains(u"(HE-AAC)") || line.contains(u"(HE-AACv2)");
  if (isHeAac && m_settings.heAACConvert) codec = u"he-aac"_s;
  const QString mark = containsAny(line, multichannelLayouts) ? u" [5.1]"_s : u""_s;
  m_record.audioTrackInformation.append(
      {makeString(u"#%@: %@ (%@)%@"_s, label.index, label.language, codec, mark),
       sampleRateOf(line)});
}

void StreamReader::readSubtitle(QStringView line, int index) {
  ++m_subtitles;
  if (containsAny(line, usableSubtitles)) m_record.subtitleTrackIDs.append(index);
}

void StreamReader::checkPlayback() {
  if (m_resolution.isNull()) return;
  const int width = leadingInteger(before(m_resolution, u"x"));
  const int height = leadingInteger(after(m_resolution, u"x"));
  if (width > widestForPhones) m_outcome.alerts.append(highResolutionAlert(m_source));
  const double pixels = static_cast<double>(width) * height;
  if (pixels > 0 && m_referenceFrames > std::floor(referencePixels / pixels)) {
    m_outcome.alerts.append(referenceFramesAlert(m_source));
  }
}

void StreamReader::finish(const RunningTime &runningTime) {
  m_record.fileName = sourceName(m_source);
  m_record.fileURL = m_source.fileURL;
  m_record.fileSize = m_source.fileSize;
  m_record.runtimeSeconds = runningTime.seconds;
  m_record.informationString = makeString(
      ostrak::localized(u"Duration: %@  Bitrate: %@  Resolution: %@  Audiotracks: %i (%i)"_s),
      runningTime.text, runningTime.bitrate, m_resolution, m_record.audioTrackInformation.size(),
      m_subtitles);
  checkPlayback();
  if (!m_record.videoTrackID) {
    m_outcome.alerts.append(noVideoAlert(m_source));
    return;
  }
  m_outcome.record = m_record;
}

}  // namespace

ProbeOutcome parseReport(const QString &report, const ProbeSource &source,
                         const ProbeSettings &settings) {
  const QString text = withoutPath(report, source.fileURL.toLocalFile());
  const ReportLayout layout = layoutOf(text);
  StreamReader reader(source, settings);
  for (const StreamBlock &stream : layout.streams) {
    if (!reader.read(stream)) return reader.takeOutcome();
  }
  reader.finish(layout.runningTime);
  return reader.takeOutcome();
}

std::optional<int> durationInReport(const QString &report, const QUrl &source) {
  const QString text = withoutPath(report, source.toLocalFile());
  ReportLines lines(text);
  QStringView found;
  int count = 0;
  for (QStringView line; lines.next(line);) {
    if (!line.contains(u"Duration: ")) continue;
    found = line;
    ++count;
  }
  if (count != 1) return {};
  return secondsOf(before(after(found, u"Duration: "), u"."));
}

}  // namespace decant
