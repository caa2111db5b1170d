#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>
#include <QUrl>

#include "Probe.h"
#include "Samples.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using decant::probeFile;
using decant::ProbeRun;

// The probe with the real ffmpeg on movies of many containers, names and tags.
class TestProbeSamples final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup() { m_program.reset(); }
  void containers_data();
  void containers();
  void coverIsNoVideo_data();
  void coverIsNoVideo();
  void tenBitsAndHevcAreTold();
  void twentyTracks();
  void oddNames_data();
  void oddNames();
  void relativeNamesAreNoProtocols();
  void deceptiveTags();
  void tagsThatAreNoText();
  void truncated_data();
  void truncated();
  void toolVariablesAreTakenOut();
  void durations();

 private:
  std::unique_ptr<ScratchProgram> m_program;
};

namespace {

ProbeRun probed(const QString &path) {
  return probeFile(QUrl::fromLocalFile(path), {});
}

QString textsOf(const ProbeRun &run) {
  QStringList texts;
  for (const auto &track : run.outcome.record->audioTrackInformation) {
    texts.append(track.text);
  }
  return texts.join(u'|');
}

QString identifiersOf(const ProbeRun &run) {
  QStringList identifiers;
  for (const auto &each : run.outcome.alerts)
    identifiers.append(each.alert.identifier);
  return identifiers.join(u'|');
}

}  // namespace

void TestProbeSamples::init() {
  QTest::failOnWarning(QRegularExpression(u"."_s));
  m_program = std::make_unique<ScratchProgram>(samples::ffmpegPath());
}

void TestProbeSamples::containers_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<QString>("video");
  QTest::addColumn<QString>("audio");
  QTest::addColumn<QString>("subtitle");
  QTest::addColumn<QString>("texts");
  QTest::addColumn<QString>("subtitleIDs");

  const auto row = [](const char *name, const char *video, const char *audio, const char *subtitle,
                      const char *texts, const char *subtitleIDs) {
    QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(video)
                        << QString::fromLatin1(audio) << QString::fromLatin1(subtitle)
                        << QString::fromLatin1(texts) << QString::fromLatin1(subtitleIDs);
  };
  row("movie.mkv", "h264", "ac3", "srt", "#1: ger (ac3) [5.1]|#2: eng (ac3)", "3");
  row("ass.mkv", "mpeg4", "dts", "ass", "#1: ger (dts) [5.1]|#2: eng (dts)", "");
  row("movie.mp4", "h264", "aac", "mov_text", "#1: deu (aac) [5.1]|#2: eng (aac)", "");
  row("movie.mov", "mpeg4", "aac", "", "#1: ger (aac) [5.1]|#2: eng (aac)", "");
  row("movie.ts", "h264", "ac3", "", "#1: ger (ac3) [5.1]|#2: eng (ac3)", "");
  row("movie.mpg", "mpeg2video", "ac3", "", "#1: unk (ac3) [5.1]|#2: unk (ac3)", "");
  row("movie.avi", "mpeg4", "ac3", "", "#1: unk (ac3) [5.1]|#2: unk (ac3)", "");
  row("movie.ogg", "theora", "vorbis", "", "#1: ger (vorbis) [5.1]|#2: eng (vorbis)", "");
}

void TestProbeSamples::containers() {
  QFETCH(QString, name);
  QFETCH(QString, video);
  QFETCH(QString, audio);
  QFETCH(QString, subtitle);
  QFETCH(QString, texts);
  QFETCH(QString, subtitleIDs);

  const QString german = name.endsWith(u".mp4"_s) ? u"deu"_s : u"ger"_s;
  Sample sample{.name = name,
                .video = video,
                .audio = {{audio, 6, 48000, german}, {audio, 2, 48000, u"eng"_s}}};
  if (!subtitle.isEmpty()) sample.subtitles = {{subtitle, u"ger"_s}};
  const QString path = samples::make(sample);
  QVERIFY(!path.isNull());

  const ProbeRun run = probed(path);
  QVERIFY(run.outcome.record);
  const decant::MKVFileInfo &record = *run.outcome.record;
  QStringList ids;
  for (const int id : record.subtitleTrackIDs)
    ids.append(QString::number(id));
  QCOMPARE(textsOf(run), texts);
  QCOMPARE(ids.join(u'|'), subtitleIDs);
  QCOMPARE(record.audioTrackInformation.first().HZ, 48000);
  QCOMPARE(record.videoTrackID, std::optional<int>(0));
  QCOMPARE(record.videoCodec, video);
  QCOMPARE(record.fileName, name);
  QCOMPARE(record.fileURL, QUrl::fromLocalFile(path));
  QCOMPARE(record.fileSize, static_cast<quint64>(QFileInfo(path).size()));
  QVERIFY(record.runtimeSeconds == 1 || record.runtimeSeconds == 0);
  QVERIFY(record.informationString.contains(u"  Resolution: 320x240  Audiotracks: 2 ("_s));
  const bool isUsual = video == u"h264" || video == u"mpeg4";
  QCOMPARE(identifiersOf(run), isUsual ? u""_s : u"wrongvideowarning"_s);
}

void TestProbeSamples::coverIsNoVideo_data() {
  QTest::addColumn<QString>("name");
  for (const char *name : {"cover.mkv", "cover.mp4", "cover.m4v"})
    QTest::newRow(name) << QString::fromLatin1(name);
}

void TestProbeSamples::coverIsNoVideo() {
  QFETCH(QString, name);
  const ProbeRun run = probed(samples::make({.name = name, .cover = true}));
  QVERIFY(run.outcome.record);
  QCOMPARE(run.outcome.record->videoTrackID, std::optional<int>(0));
  QVERIFY(run.outcome.record->informationString.contains(u"Resolution: 320x240"_s));
  QCOMPARE(identifiersOf(run), u""_s);

  const ProbeRun sound = probed(samples::make({.name = name, .video = {}, .cover = true}));
  QVERIFY(!sound.outcome.record);
  QCOMPARE(sound.outcome.alerts.size(), 1);
}

void TestProbeSamples::tenBitsAndHevcAreTold() {
  QCOMPARE(identifiersOf(probed(samples::make({.video = u"h264-10bit"_s, .audio = {}}))),
           u"10bitvideowarning"_s);
  QCOMPARE(identifiersOf(probed(samples::make({.video = u"hevc"_s, .audio = {}}))),
           u"wrongvideowarning"_s);
  QCOMPARE(identifiersOf(
               probed(samples::make({.video = u"mpeg4"_s, .size = u"1922x64"_s, .audio = {}}))),
           u"warningtoohighres"_s);
  const ProbeRun refused =
      probed(samples::make({.name = u"a.webm"_s, .video = u"vp8"_s, .audio = {}}));
  QVERIFY(!refused.outcome.record);
  QVERIFY(refused.outcome.alerts.first().alert.message.contains(u"invalid video codec (vp8)"_s));
}

void TestProbeSamples::twentyTracks() {
  Sample sample{.video = u"mpeg4"_s, .audio = {}, .seconds = 0.2};
  for (int index = 0; index < 20; ++index) {
    sample.audio.append({u"mp3"_s, 1, 48000, index % 2 == 0 ? u"eng"_s : u"fre"_s});
  }
  const ProbeRun run = probed(samples::make(sample));
  QVERIFY(run.outcome.record);
  QCOMPARE(run.outcome.record->audioTrackInformation.size(), 20);
  QCOMPARE(run.outcome.record->audioTrackInformation.last().text, u"#20: fre (mp3)"_s);
  QVERIFY(run.outcome.record->informationString.endsWith(u"Audiotracks: 20 (0)"_s));
}

void TestProbeSamples::oddNames_data() {
  QTest::addColumn<QString>("name");
  const QStringList names = {u"it's \"quoted\".mkv"_s,
                             u"two\nlines.mkv"_s,
                             u"a\n  Stream #0:0: Video: prores, 9x9.mkv"_s,
                             u"a\nStream"_s,
                             u"a\nDuration: 1:2:3"_s,
                             u"a\rDuration.mkv"_s,
                             u"a\u2028Stream.mkv"_s,
                             u"50%n%s%@%d 100%25.mkv"_s,
                             u"-dash.mkv"_s,
                             u"file:x.mkv"_s,
                             u"größe 映画 🎬.mkv"_s,
                             u" blanks .mkv"_s,
                             u"back\\slash#?&.mkv"_s,
                             u"control\x01\x1b[31m\nStream.mkv"_s,
                             QString(250, u'x') + u".mkv"_s};
  for (const QString &name : names)
    QTest::newRow(qUtf8Printable(QString(name).replace(u'\n', u'|').left(40))) << name;
}

void TestProbeSamples::oddNames() {
  QFETCH(QString, name);
  const QString original = samples::make({.audio = {{u"aac"_s, 2, 48000, u"ger"_s}}});
  const QString path = samples::newFolder() + u'/' + name;
  QVERIFY(QFile::copy(original, path));
  const ProbeRun run = probed(path);
  QVERIFY(run.outcome.record);
  QCOMPARE(run.outcome.record->fileName, name);
  QCOMPARE(textsOf(run), u"#1: ger (aac)"_s);
  QCOMPARE(run.outcome.record->informationString,
           probed(original).outcome.record->informationString);
  QVERIFY(run.outcome.alerts.isEmpty());
}

void TestProbeSamples::relativeNamesAreNoProtocols() {
  const QString folder = samples::newFolder();
  QVERIFY(QFile::copy(samples::make({}), folder + u"/pipe:1.mkv"_s));
  const QString before = QDir::currentPath();
  QVERIFY(QDir::setCurrent(folder));
  const ProbeRun run = probed(u"pipe:1.mkv"_s);
  const QString current = QDir::currentPath();
  QVERIFY(QDir::setCurrent(before));
  QVERIFY(run.outcome.record);
  QCOMPARE(run.outcome.record->fileURL.toLocalFile(), QString(current + u"/pipe:1.mkv"_s));
}

void TestProbeSamples::deceptiveTags() {
  const QString path = samples::make(
      {.tags = {u"title=one\nStream #0:9: Video: prores, 9x9\nDuration: 9:9:9.9, bitrate: 1"_s,
                u"comment=a\rStream\u2028Stream\u0085Duration"_s}});
  const ProbeRun run = probed(path);
  QVERIFY(run.outcome.record);
  QCOMPARE(textsOf(run), u"#1: unk (aac)"_s);
  QVERIFY(run.outcome.record->informationString.startsWith(u"Duration: 00:00:01  Bitrate: "_s));
}

void TestProbeSamples::tagsThatAreNoText() {
  QFile original(samples::make({.tags = {u"title=before PATCH after"_s}}));
  QVERIFY(original.open(QIODevice::ReadOnly));
  QByteArray bytes = original.readAll();
  QVERIFY(bytes.contains("PATCH"));
  bytes.replace("PATCH", "\xff\xe4\xc3\xf0\x80");
  const ProbeRun run = probed(samples::write(u"latin1.mkv"_s, bytes));
  QVERIFY(run.outcome.record);
  QCOMPARE(textsOf(run), u"#1: unk (aac)"_s);
}

void TestProbeSamples::truncated_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<bool>("readable");
  QTest::newRow("mkv: the beginning tells all") << u"movie.mkv"_s << true;
  QTest::newRow("mp4: the end is needed") << u"movie.mp4"_s << false;
}

void TestProbeSamples::truncated() {
  QFETCH(QString, name);
  QFETCH(bool, readable);
  const ProbeRun run = probed(samples::truncated(samples::make({.name = name}), 0.6));
  QCOMPARE(run.outcome.record.has_value(), readable);
  QCOMPARE(run.outcome.alerts.size(), readable ? 0 : 1);
}

void TestProbeSamples::toolVariablesAreTakenOut() {
  const QString log = samples::newFolder() + u"/report.log"_s;
  qputenv("FFREPORT", "file=" + log.toUtf8());
  qputenv("AV_LOG_FORCE_COLOR", "1");
  const ProbeRun run = probed(samples::make({}));
  qunsetenv("FFREPORT");
  qunsetenv("AV_LOG_FORCE_COLOR");
  QVERIFY(run.outcome.record);
  QVERIFY(run.outcome.record->informationString.endsWith(u"Audiotracks: 1 (0)"_s));
  QVERIFY(!QFile::exists(log));
}

void TestProbeSamples::durations() {
  const auto durationOf = [](const QString &path) {
    return decant::durationOfFile(QUrl::fromLocalFile(path));
  };
  QCOMPARE(durationOf(samples::make({.video = u"mpeg4"_s, .audio = {}, .seconds = 3.5})), 3);
  QCOMPARE(durationOf(samples::write(u"text.mkv"_s, "no movie")), -1);
  QCOMPARE(durationOf(samples::newFolder()), -1);
  QCOMPARE(durationOf(u"/nowhere/movie.mkv"_s), -1);
  m_program->setTool({});
  QCOMPARE(durationOf(samples::make({})), -1);
}

QTEST_GUILESS_MAIN(TestProbeSamples)
#include "tst_probesamples.moc"
