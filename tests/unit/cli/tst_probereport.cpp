#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>
#include <QUrl>

#include "ProbeReport.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

MKVFileInfo film() {
  MKVFileInfo record;
  record.audioTrackInformation = {{u"#1: ger (dts) [5.1]"_s, 48000}, {u"#2: eng (ac3)"_s, 0}};
  record.subtitleTrackIDs = {3, 4};
  record.informationString = u"Duration: 01:52:07  Audiotracks: 2 (3)"_s;
  record.fileName = u"Fi lm%n.mkv"_s;
  record.fileURL = QUrl::fromLocalFile(u"/m/Fi lm%n.mkv"_s);
  record.videoTrackID = 0;
  record.runtimeSeconds = 6727;
  record.fileSize = 9007199254740993ULL;
  record.videoCodec = u"h264"_s;
  return record;
}

ostrak::Alert alertWith(const QString &identifier, const QString &message) {
  ostrak::Alert alert;
  alert.identifier = identifier;
  alert.title = u"Warning"_s;
  alert.message = message;
  return alert;
}

}  // namespace

class TestProbeReport final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }
  void json();
  void jsonOfUnknowns();
  void jsonOfRefused();
  void text();
  void textOfRefused();
};

void TestProbeReport::json() {
  const QByteArray line =
      probeJson({u"./Fi lm%n.mkv"_s, film(), 1, {alertWith(u"warningtoohighres"_s, u"Large."_s)}});
  QCOMPARE(line.count('\n'), 1);
  // Exact, although larger than a double can count.
  QVERIFY(line.contains("\"fileSize\":9007199254740993"));
  const QJsonObject object = QJsonDocument::fromJson(line).object();
  QCOMPARE(object.keys(),
           (QStringList{u"alerts"_s, u"bestAudioTrack"_s, u"file"_s, u"ok"_s, u"record"_s}));
  QCOMPARE(object.value(u"file"_s), u"./Fi lm%n.mkv"_s);
  QCOMPARE(object.value(u"ok"_s), true);
  QCOMPARE(object.value(u"bestAudioTrack"_s), 1);
  QCOMPARE(object.value(u"alerts"_s).toArray(),
           (QJsonArray{QJsonObject{{u"identifier"_s, u"warningtoohighres"_s},
                                   {u"title"_s, u"Warning"_s},
                                   {u"message"_s, u"Large."_s}}}));
  QJsonObject record = object.value(u"record"_s).toObject();
  record.remove(u"fileSize"_s);
  const QJsonArray audio{QJsonObject{{u"text"_s, u"#1: ger (dts) [5.1]"_s}, {u"HZ"_s, 48000}},
                         QJsonObject{{u"text"_s, u"#2: eng (ac3)"_s}, {u"HZ"_s, 0}}};
  QCOMPARE(record, (QJsonObject{{u"fileName"_s, u"Fi lm%n.mkv"_s},
                                {u"fileURL"_s, u"file:///m/Fi%20lm%25n.mkv"_s},
                                {u"runtimeSeconds"_s, 6727},
                                {u"videoTrackID"_s, 0},
                                {u"audioTrackInformation"_s, audio},
                                {u"subtitleTrackIDs"_s, QJsonArray{3, 4}},
                                {u"informationString"_s, film().informationString}}));
}

void TestProbeReport::jsonOfUnknowns() {
  MKVFileInfo record = film();
  record.runtimeSeconds.reset();
  const QJsonObject object = QJsonDocument::fromJson(probeJson({u"a"_s, record, {}, {}})).object();
  QVERIFY(object.contains(u"bestAudioTrack"_s) && object.value(u"bestAudioTrack"_s).isNull());
  const QJsonValue runtime = object.value(u"record"_s)[u"runtimeSeconds"_s];
  QVERIFY(runtime.isNull());
}

void TestProbeReport::jsonOfRefused() {
  const QJsonObject object =
      QJsonDocument::fromJson(
          probeJson({u"a"_s, {}, {}, {alertWith(QString(), u"Not a movie."_s)}}))
          .object();
  QCOMPARE(object.value(u"ok"_s), false);
  QVERIFY(object.contains(u"record"_s) && object.value(u"record"_s).isNull());
  const QJsonObject alert = object.value(u"alerts"_s).toArray().first().toObject();
  QVERIFY(alert.contains(u"identifier"_s) && alert.value(u"identifier"_s).isNull());
}

void TestProbeReport::text() {
  MKVFileInfo record = film();
  record.fileSize = 4711;
  QCOMPARE(probeText({u"a\nb.mkv"_s, record, 1, {alertWith(u"x"_s, u"Large."_s)}}),
           u"file:       a\\nb.mkv\n"
           "size:       4711 bytes\n"
           "duration:   1:52:07\n"
           "video:      #0 h264\n"
           "audio:        #1: ger (dts) [5.1], 48000 Hz\n"
           "            * #2: eng (ac3)\n"
           "subtitles:  #3, #4\n"
           "summary:    Duration: 01:52:07  Audiotracks: 2 (3)\n"
           "warning:    Large.\n"_s);
  record.audioTrackInformation.clear();
  record.subtitleTrackIDs.clear();
  record.runtimeSeconds.reset();
  const QString bare = probeText({u"a.mkv"_s, record, {}, {}});
  QVERIFY(bare.contains(u"duration:   unknown\n"_s));
  QVERIFY(bare.contains(u"audio:      none\n"_s));
  QVERIFY(bare.contains(u"subtitles:  none\n"_s));
}

void TestProbeReport::textOfRefused() {
  QCOMPARE(probeText({u"a.mkv"_s,
                      {},
                      {},
                      {alertWith(u"x"_s, u"Odd."_s), alertWith(QString(), u"Not a movie."_s)}}),
           u"file:     a.mkv\n"
           "warning:  Odd.\n"
           "refused:  Not a movie.\n"_s);
}

QTEST_GUILESS_MAIN(TestProbeReport)
#include "tst_probereport.moc"
