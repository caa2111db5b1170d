#include <QStringList>
#include <QTest>
#include <QUrl>

#include "Defaults.h"
#include "IntakeTest.h"
#include "Settings.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What intake makes of a probed movie: its subtitles and its track.
class TestIntakeRecord final : public IntakeTest {
  Q_OBJECT

 private Q_SLOTS:
  void subtitlesAloneDoNothingYet();
  void subFilesAreReadWithTheMovie();
  void pictureSubLeavesTheOthers();
  void textSubReplacesTheOthersThatCameWithIt_data();
  void textSubReplacesTheOthersThatCameWithIt();
  void laterSubtitleReplacesAnUntestedSub();
  void subtitleIsPairedAndCounted();
  void pairingStaysForALaterMovie();
  void subtitleThatComesLaterIsNotPaired();
  void bestTrackIsPreselectedByItsIndex();
  void equalDescriptionsAreToldApart();
  void trackOutOfRangeIsIgnored();
  void recordWithoutAudioHasNoBestTrack();

 private:
  [[nodiscard]] QString write(const QString &name, const QByteArray &content) {
    return wholefile::made(m_program->path(name), content);
  }
};

void TestIntakeRecord::subtitlesAloneDoNothingYet() {
  m_intake->openFiles({u"/a.srt"_s});
  QVERIFY(m_intake->isIdle());
  QCOMPARE(m_intake->importSubtitleFiles().value(u"/a"_s), u"/a.srt"_s);
}

// On the window's own thread nothing is read: the file may lie where that takes long.
void TestIntakeRecord::subFilesAreReadWithTheMovie() {
  const QString sub = write(u"a.sub"_s, "{1}{2}text");
  m_intake->openFiles({sub});
  QVERIFY(m_intake->importSubtitleFiles().isEmpty());
  m_intake->openFiles({m_program->path(u"a.mkv"_s)});
  waitForShown(u"a.mkv"_s);
  QCOMPARE(m_intake->fileInfo()->subtitleFileURL, QUrl::fromLocalFile(sub));
  QCOMPARE(m_intake->importSubtitleFiles().value(m_program->path(u"a"_s)), sub);
}

void TestIntakeRecord::pictureSubLeavesTheOthers() {
  const QString srt = m_program->path(u"a.srt"_s);
  m_intake->openFiles(
      {write(u"a.sub"_s, QByteArray::fromHex("000001ba00")), srt, m_program->path(u"a.mkv"_s)});
  waitForShown(u"a.mkv"_s);
  QCOMPARE(m_intake->fileInfo()->subtitleFileURL, QUrl::fromLocalFile(srt));
  QCOMPARE(m_intake->importSubtitleFiles().values(), QStringList(srt));
}

void TestIntakeRecord::textSubReplacesTheOthersThatCameWithIt_data() {
  QTest::addColumn<bool>("first");
  QTest::newRow("before them") << true;
  QTest::newRow("after them") << false;
}

void TestIntakeRecord::textSubReplacesTheOthersThatCameWithIt() {
  QFETCH(const bool, first);
  const QString sub = write(u"a.sub"_s, "{1}{2}text");
  const QString srt = m_program->path(u"a.srt"_s);
  m_intake->openFiles({first ? sub : srt, first ? srt : sub, m_program->path(u"a.mkv"_s)});
  waitForShown(u"a.mkv"_s);
  QCOMPARE(m_intake->fileInfo()->subtitleFileURL, QUrl::fromLocalFile(sub));
  QCOMPARE(m_intake->importSubtitleFiles().values(), QStringList(sub));
}

void TestIntakeRecord::laterSubtitleReplacesAnUntestedSub() {
  const QString srt = m_program->path(u"a.srt"_s);
  m_intake->openFiles({write(u"a.sub"_s, "{1}{2}text")});
  m_intake->openFiles({srt});
  m_intake->openFiles({m_program->path(u"a.mkv"_s)});
  waitForShown(u"a.mkv"_s);
  QCOMPARE(m_intake->fileInfo()->subtitleFileURL, QUrl::fromLocalFile(srt));
  // One that comes while another is being read, too.
  m_prober->hold();
  m_intake->openFiles({write(u"b.sub"_s, "{1}{2}text"), m_program->path(u"b.mkv"_s)});
  m_intake->clearFileInfo();
  m_intake->cancelAdd();
  QTRY_COMPARE(m_prober->running(), 1);
  m_intake->openFiles({m_program->path(u"b.srt"_s)});
  m_prober->finishOne();
  waitForShown(u"b.mkv"_s);
  QCOMPARE(m_intake->importSubtitleFiles().value(m_program->path(u"b"_s)),
           m_program->path(u"b.srt"_s));
}

void TestIntakeRecord::subtitleIsPairedAndCounted() {
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s, u"/a.en.srt"_s});
  waitForShown(u"a.mkv"_s);
  QCOMPARE(m_intake->fileInfo()->subtitleFileURL, QUrl::fromLocalFile(u"/a.en.srt"_s));
  QCOMPARE(m_intake->fileInfo()->informationString, u"Audiotracks: 2 (3+1) x (0+1)"_s);
  m_intake->cancelAdd();
  waitForShown(u"b.mkv"_s);
  QVERIFY(m_intake->fileInfo()->subtitleFileURL.isEmpty());
  QCOMPARE(m_intake->fileInfo()->informationString, u"Audiotracks: 2 (3) x (0)"_s);
}

void TestIntakeRecord::pairingStaysForALaterMovie() {
  m_intake->openFiles({u"/Film.srt"_s, u"/Film.mkv"_s});
  waitForShown(u"Film.mkv"_s);
  m_intake->cancelAdd();
  m_intake->openFiles({u"/Film.mp4"_s});
  waitForShown(u"Film.mp4"_s);
  QCOMPARE(m_intake->fileInfo()->subtitleFileURL, QUrl::fromLocalFile(u"/Film.srt"_s));
}

void TestIntakeRecord::subtitleThatComesLaterIsNotPaired() {
  m_prober->hold();
  m_intake->openFiles({u"/Film.mkv"_s});
  m_intake->openFiles({u"/Film.srt"_s});
  m_prober->finishAll();
  waitForShown(u"Film.mkv"_s);
  QVERIFY(m_intake->fileInfo()->subtitleFileURL.isEmpty());
}

void TestIntakeRecord::bestTrackIsPreselectedByItsIndex() {
  m_prober->tracks = {u"#1: eng (ac3) [5.1]"_s, u"#2: ger (ac3)"_s, u"#4: ger (aac)"_s};
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  QCOMPARE(m_intake->bestLanguage(), std::optional<int>(2));
  QCOMPARE(m_intake->audioTrackIndex(), quint64(2));
  m_intake->setAudioTrackIndex(1);
  QCOMPARE(m_intake->audioTrackIndex(), quint64(1));
  // The next record begins anew, by the settings of that moment.
  ostrak::setDefaultInt(u"DefaultAudio"_s, 2);
  m_intake->cancelAdd();
  m_intake->openFiles({u"/b.mkv"_s});
  waitForShown(u"b.mkv"_s);
  QCOMPARE(m_intake->audioTrackIndex(), quint64(0));
}

void TestIntakeRecord::equalDescriptionsAreToldApart() {
  m_prober->tracks = {u"#1: eng (dts)"_s, u"#1: ger (aac)"_s, u"#1: ger (aac)"_s};
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  QCOMPARE(m_intake->audioTrackIndex(), quint64(1));
  m_intake->setAudioTrackIndex(2);
  QCOMPARE(m_intake->audioTrackIndex(), quint64(2));
}

void TestIntakeRecord::trackOutOfRangeIsIgnored() {
  m_intake->setAudioTrackIndex(0);
  m_prober->tracks = {u"#1: eng (dts)"_s, u"#2: ger (aac)"_s};
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  m_intake->setAudioTrackIndex(2);
  QCOMPARE(m_intake->audioTrackIndex(), quint64(1));
}

void TestIntakeRecord::recordWithoutAudioHasNoBestTrack() {
  QCOMPARE(m_intake->bestLanguage(), std::optional<int>());
  m_prober->tracks.clear();
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  QCOMPARE(m_intake->bestLanguage(), std::optional<int>());
  QCOMPARE(m_intake->audioTrackIndex(), quint64(0));
}

QTEST_GUILESS_MAIN(TestIntakeRecord)
#include "tst_intakerecord.moc"
