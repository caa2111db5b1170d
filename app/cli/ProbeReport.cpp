#include "ProbeReport.h"

#include <QJsonArray>
#include <QLocale>
#include <algorithm>

#include "JsonLine.h"
#include "Printable.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

QJsonObject jsonRecord(const MKVFileInfo &record) {
  QJsonArray audio;
  for (const AudioTrackDescription &track : record.audioTrackInformation)
    audio.append(QJsonObject{{u"text"_s, track.text}, {u"HZ"_s, track.HZ}});
  QJsonArray subtitles;
  for (const int id : record.subtitleTrackIDs)
    subtitles.append(id);
  return {{u"fileName"_s, record.fileName},
          {u"fileURL"_s, QString::fromLatin1(record.fileURL.toEncoded(QUrl::FullyEncoded))},
          {u"fileSize"_s, static_cast<qint64>(record.fileSize)},
          {u"runtimeSeconds"_s, jsonNumber(record.runtimeSeconds)},
          {u"videoTrackID"_s, jsonNumber(record.videoTrackID)},
          {u"audioTrackInformation"_s, audio},
          {u"subtitleTrackIDs"_s, subtitles},
          {u"informationString"_s, record.informationString}};
}

struct Line {
  QString label;
  QString value;
};

QString runningTime(std::optional<int> seconds) {
  if (!seconds) return worded(u"unknown"_s);
  return ostrak::makeString(u"%i:%02i:%02i"_s, *seconds / 3600, *seconds / 60 % 60, *seconds % 60);
}

QString audioLine(const AudioTrackDescription &track, bool isBest) {
  QString text = (isBest ? u"* "_s : u"  "_s) + printable(track.text);
  if (track.HZ > 0) text += ostrak::makeString(u", %i Hz"_s, track.HZ);
  return text;
}

QString subtitleNumbers(const QList<int> &ids) {
  QStringList numbers;
  for (const int id : ids)
    numbers.append(ostrak::makeString(u"#%i"_s, id));
  return numbers.isEmpty() ? worded(u"none"_s) : numbers.join(u", "_s);
}

QList<Line> linesOfRecord(const MKVFileInfo &record, std::optional<int> best) {
  QList<Line> lines;
  lines.append({worded(u"size"_s), worded(u"%llu bytes"_s, record.fileSize)});
  lines.append({worded(u"duration"_s), runningTime(record.runtimeSeconds)});
  lines.append({worded(u"video"_s), ostrak::makeString(u"#%i %@"_s, record.videoTrackID.value_or(0),
                                                       printable(record.videoCodec))});
  QString label = worded(u"audio"_s);
  if (record.audioTrackInformation.isEmpty()) lines.append({label, worded(u"none"_s)});
  for (qsizetype i = 0; i < record.audioTrackInformation.size(); ++i) {
    lines.append({label, audioLine(record.audioTrackInformation.at(i), best && *best == i)});
    label.clear();
  }
  lines.append({worded(u"subtitles"_s), subtitleNumbers(record.subtitleTrackIDs)});
  lines.append({worded(u"summary"_s), printable(record.informationString)});
  return lines;
}

}  // namespace

QByteArray probeJson(const ProbeReport &report) {
  QJsonArray alerts;
  for (const ostrak::Alert &alert : report.alerts)
    alerts.append(jsonAlert(alert));
  return jsonLine(
      {{u"file"_s, report.given},
       {u"ok"_s, report.record.has_value()},
       {u"record"_s, report.record ? QJsonValue(jsonRecord(*report.record)) : QJsonValue()},
       {u"bestAudioTrack"_s,
        report.bestAudioTrack ? QJsonValue(*report.bestAudioTrack) : QJsonValue()},
       {u"alerts"_s, alerts}});
}

QString probeText(const ProbeReport &report) {
  QList<Line> lines{{worded(u"file"_s), printable(report.given)}};
  if (report.record) lines += linesOfRecord(*report.record, report.bestAudioTrack);
  for (qsizetype i = 0; i < report.alerts.size(); ++i) {
    const bool refuses = !report.record && i + 1 == report.alerts.size();
    lines.append({refuses ? worded(u"refused"_s) : worded(u"warning"_s),
                  onOneLine(report.alerts.at(i).message)});
  }
  qsizetype width = 0;
  for (const Line &line : std::as_const(lines))
    width = std::max(width, line.label.size());
  QString text;
  for (const Line &line : std::as_const(lines)) {
    const QString label = line.label.isEmpty() ? QString() : QString(line.label + u':');
    text += label.leftJustified(width + 3) + line.value + u'\n';
  }
  return text;
}

}  // namespace decant
