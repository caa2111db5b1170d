#include <QTest>

#include "PlanForTests.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

ConversionPlan planWithSubtitles(const QList<int> &tracks, const QString &file = {}) {
  ConversionPlan plan = planWith({u"#1: eng (aac)"_s});
  plan.fileInfo.subtitleTrackIDs = tracks;
  if (!file.isEmpty()) plan.fileInfo.subtitleFileURL = QUrl::fromLocalFile(file);
  plan.settings.DisableBuiltinSubtitles = false;
  return plan;
}

// The maps after those of video and sound.
QStringList furtherMaps(const ConversionPlan &plan) {
  return between(buildArguments(plan), u"-stats"_s, u"-scodec"_s).mid(4);
}

}  // namespace

class TestSubtitleArguments : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

  void embeddedTracksInReverse() {
    QCOMPARE(furtherMaps(planWithSubtitles({2, 3})),
             (QStringList{u"-map"_s, u"0:3"_s, u"-map"_s, u"0:2"_s}));
    QCOMPARE(furtherMaps(planWithSubtitles({7, 2, 11})),
             (QStringList{u"-map"_s, u"0:11"_s, u"-map"_s, u"0:2"_s, u"-map"_s, u"0:7"_s}));
    QCOMPARE(furtherMaps(planWithSubtitles({})), QStringList());
  }

  void embeddedTracksSwitchedOff() {
    ConversionPlan plan = planWithSubtitles({2, 3}, subtitlePath);
    plan.settings.DisableBuiltinSubtitles = true;
    QCOMPARE(furtherMaps(plan), (QStringList{u"-map"_s, u"1:0"_s}));
  }

  void fileIsTheSecondInput() {
    const QStringList arguments = buildArguments(planWithSubtitles({}, subtitlePath));
    QCOMPARE(arguments.mid(0, 5),
             (QStringList{u"-i"_s, sourcePath, u"-i"_s, subtitlePath, u"-stats"_s}));
    QCOMPARE(arguments.size(), 19 + 4);
  }

  void fileComesBeforeEmbeddedTracks() {
    QCOMPARE(furtherMaps(planWithSubtitles({4, 5}, subtitlePath)),
             (QStringList{u"-map"_s, u"1:0"_s, u"-map"_s, u"0:5"_s, u"-map"_s, u"0:4"_s}));
  }

  void subtitlesComeAfterTheSurroundTrack() {
    ConversionPlan plan = planWithSubtitles({4}, subtitlePath);
    plan.fileInfo.audioTrackInformation = {{u"#1: eng (ac3) [5.1]"_s, 48000}};
    plan.settings.IncludeSurroundTrack = true;
    QCOMPARE(furtherMaps(plan),
             (QStringList{u"-map"_s, u"0:1"_s, u"-map"_s, u"1:0"_s, u"-map"_s, u"0:4"_s}));
  }

  void characterSet_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");  // null: no option
    const QStringList names{u"None"_s,        u""_s,
                            u"UTF-8"_s,       u"UTF-8"_s,
                            u"CP874"_s,       u"CP936"_s,
                            u"CP1250"_s,      u"CP1251"_s,
                            u"CP1252"_s,      u"CP1253"_s,
                            u"CP1254"_s,      u"CP1255"_s,
                            u"CP1256"_s,      u"CP1257"_s,
                            u"CP1258"_s,      u"LATIN1"_s,
                            u"LATIN2"_s,      u"LATIN3"_s,
                            u"LATIN4"_s,      u"LATIN5"_s,
                            u"LATIN6"_s,      u"LATIN7"_s,
                            u"LATIN8"_s,      u"ISO-8859-1"_s,
                            u"ISO-8859-2"_s,  u"ISO-8859-3"_s,
                            u"ISO-8859-4"_s,  u"ISO-8859-5"_s,
                            u"ISO-8859-6"_s,  u"ISO-8859-7"_s,
                            u"ISO-8859-8"_s,  u"ISO-8859-9"_s,
                            u"ISO-8859-10"_s, u"ISO-8859-11"_s,
                            u"ISO-8859-12"_s, u"ISO-8859-13"_s,
                            u"ISO-8859-14"_s, u"ISO-8859-15"_s,
                            u"ISO-8859-16"_s};
    QCOMPARE(names.size(), 39);
    for (int i = 0; i < names.size(); ++i)
      QTest::addRow("%d", i) << i << (i < 2 ? QString() : names[i]);
  }
  void characterSet() {
    QFETCH(int, index);
    QFETCH(QString, name);
    ConversionPlan plan = planWithSubtitles({}, subtitlePath);
    plan.settings.ExternalSubtitleEncoding = index;
    const QStringList option = name.isNull() ? QStringList() : QStringList{u"-sub_charenc"_s, name};
    QCOMPARE(between(buildArguments(plan), sourcePath, u"-stats"_s),
             option + QStringList({u"-i"_s, subtitlePath}));
  }

  void characterSetNeedsAFile() {
    ConversionPlan plan = planWithSubtitles({2});
    plan.settings.ExternalSubtitleEncoding = 8;
    QVERIFY(!buildArguments(plan).contains(u"-sub_charenc"_s));
  }
};

QTEST_GUILESS_MAIN(TestSubtitleArguments)
#include "tst_subtitlearguments.moc"
