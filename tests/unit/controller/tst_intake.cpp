#include <QSemaphore>
#include <QtTest>

#include "Defaults.h"
#include "Exceptions.h"
#include "FakeProber.h"
#include "Intake.h"
#include "ScratchProgram.h"
#include "Settings.h"

using namespace Qt::StringLiterals;
using namespace decant;

class TestIntake final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_program = std::make_unique<ScratchProgram>();
    registerSettings();
    m_prober = std::make_unique<FakeProber>();
    m_intake = std::make_unique<Intake>(QStringList{u"ger"_s, u"eng"_s}, m_prober->function());
  }
  void cleanup() {
    m_intake.reset();
    m_prober->finishAll();
    QTRY_COMPARE(m_prober->running(), 0);
    m_program.reset();
  }

  void filesAreProbedInTheGivenOrder();
  void onlyOneProbeRunsAtATime();
  void filesWaitWhileOneIsShown();
  void filesWaitWhileOneIsAskedAbout();
  void filesWaitWhileAPanelIsUpOverNothing();
  void laterFilesComeBeforeEarlierOnes();
  void foldersAndTextsDoNothing();
  void subtitlesAloneDoNothingYet();
  void subtitleIsPairedAndCounted();
  void pairingStaysForALaterMovie();
  void subtitleThatComesLaterIsNotPaired();
  void bestTrackIsPreselectedByItsIndex();
  void equalDescriptionsAreToldApart();
  void trackOutOfRangeIsIgnored();
  void recordWithoutAudioHasNoBestTrack();
  void skippingGoesOnAndEndsInIdleness();
  void skippingKeepsTheRecord();
  void skippingWhileProbingDropsTheResult();
  void refusedFileIsNamedAndTheNextIsTaken();
  void refusedAlertsReachTheUser();
  void listenerMayOpenTheNextFileFromARefusal();
  void brokenReportNeverEndsTheBatch();
  void brokenReportsAreToldOneByOne();
  void settingsOfTheProbeAreReadEachTime();
  void intakeMayGoWhileAProbeRuns();

 private:
  void waitForShown(const QString &name) {
    QTRY_COMPARE(m_intake->state(), Intake::State::Showing);
    QCOMPARE(m_intake->fileInfo()->fileName, name);
  }
  std::unique_ptr<ScratchProgram> m_program;
  std::unique_ptr<FakeProber> m_prober;
  std::unique_ptr<Intake> m_intake;
};

void TestIntake::filesAreProbedInTheGivenOrder() {
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s, u"/c.mkv"_s});
  for (const QString &name : {u"a.mkv"_s, u"b.mkv"_s, u"c.mkv"_s}) {
    waitForShown(name);
    QVERIFY(drained.isEmpty());
    m_intake->cancelAdd();
  }
  QCOMPARE(m_prober->asked(), QStringList({u"/a.mkv"_s, u"/b.mkv"_s, u"/c.mkv"_s}));
  QCOMPARE(drained.size(), 1);
  QVERIFY(m_intake->isIdle());
}

void TestIntake::onlyOneProbeRunsAtATime() {
  m_prober->hold();
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  QTRY_COMPARE(m_prober->running(), 1);
  QVERIFY(m_intake->isScanning());
  m_intake->openFiles({u"/c.mkv"_s});
  m_intake->addNextFile();
  m_intake->cancelAdd();
  m_intake->openFiles({u"/d.mkv"_s});
  m_prober->finishOne();
  QTRY_COMPARE(m_prober->asked().size(), 2);
  m_prober->finishAll();
  QTRY_COMPARE(m_intake->state(), Intake::State::Showing);
  QCOMPARE(m_prober->mostAtOnce(), 1);
}

void TestIntake::filesWaitWhileOneIsShown() {
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  m_intake->openFiles({u"/b.mkv"_s});
  QCOMPARE(m_intake->importFiles(), QStringList(u"/b.mkv"_s));
  QCOMPARE(m_intake->state(), Intake::State::Showing);
  QCOMPARE(m_prober->asked().size(), 1);
  m_intake->cancelAdd();
  waitForShown(u"b.mkv"_s);
}

void TestIntake::filesWaitWhileOneIsAskedAbout() {
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  m_intake->setAsking(true);
  QCOMPARE(m_intake->state(), Intake::State::Asking);
  m_intake->openFiles({u"/b.mkv"_s});
  // The job of the shown record was made; its panel is still on its way out.
  m_intake->cancelAdd();
  QCOMPARE(m_intake->state(), Intake::State::Asking);
  QCOMPARE(m_prober->asked().size(), 1);
  m_intake->setAsking(false);
  waitForShown(u"b.mkv"_s);
  QVERIFY(drained.isEmpty());
}

void TestIntake::filesWaitWhileAPanelIsUpOverNothing() {
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_intake->setAsking(true);
  QVERIFY(!m_intake->isIdle());
  m_intake->openFiles({u"/a.mkv"_s});
  QVERIFY(m_prober->asked().isEmpty());
  m_intake->setAsking(false);
  waitForShown(u"a.mkv"_s);
  m_intake->setAsking(true);
  m_intake->setAsking(false);
  QCOMPARE(m_intake->state(), Intake::State::Showing);
  QVERIFY(drained.isEmpty());
  m_intake->cancelAdd();
  QCOMPARE(drained.size(), 1);
  m_intake->setAsking(true);
  m_intake->setAsking(false);
  QCOMPARE(drained.size(), 2);
}

void TestIntake::laterFilesComeBeforeEarlierOnes() {
  m_prober->hold();
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  m_intake->openFiles({u"/c.mkv"_s, u"/d.mkv"_s});
  QTRY_COMPARE(m_prober->running(), 1);
  QCOMPARE(m_intake->importFiles(), QStringList({u"/b.mkv"_s, u"/d.mkv"_s, u"/c.mkv"_s}));
}

void TestIntake::foldersAndTextsDoNothing() {
  QSignalSpy changed(m_intake.get(), &Intake::changed);
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_intake->openFiles({m_program->root(), u"/read.txt"_s, u"/film.avi"_s, QString()});
  QVERIFY(m_intake->isIdle());
  QVERIFY(changed.isEmpty());
  QVERIFY(drained.isEmpty());
  QVERIFY(m_intake->importSubtitleFiles().isEmpty());
}

void TestIntake::subtitlesAloneDoNothingYet() {
  m_intake->openFiles({u"/a.srt"_s});
  QVERIFY(m_intake->isIdle());
  QCOMPARE(m_intake->importSubtitleFiles().value(u"/a"_s), u"/a.srt"_s);
}

void TestIntake::subtitleIsPairedAndCounted() {
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s, u"/a.en.srt"_s});
  waitForShown(u"a.mkv"_s);
  QCOMPARE(m_intake->fileInfo()->subtitleFileURL, QUrl::fromLocalFile(u"/a.en.srt"_s));
  QCOMPARE(m_intake->fileInfo()->informationString, u"Audiotracks: 2 (3+1) x (0+1)"_s);
  m_intake->cancelAdd();
  waitForShown(u"b.mkv"_s);
  QVERIFY(m_intake->fileInfo()->subtitleFileURL.isEmpty());
  QCOMPARE(m_intake->fileInfo()->informationString, u"Audiotracks: 2 (3) x (0)"_s);
}

void TestIntake::pairingStaysForALaterMovie() {
  m_intake->openFiles({u"/Film.srt"_s, u"/Film.mkv"_s});
  waitForShown(u"Film.mkv"_s);
  m_intake->cancelAdd();
  m_intake->openFiles({u"/Film.mp4"_s});
  waitForShown(u"Film.mp4"_s);
  QCOMPARE(m_intake->fileInfo()->subtitleFileURL, QUrl::fromLocalFile(u"/Film.srt"_s));
}

void TestIntake::subtitleThatComesLaterIsNotPaired() {
  m_prober->hold();
  m_intake->openFiles({u"/Film.mkv"_s});
  m_intake->openFiles({u"/Film.srt"_s});
  m_prober->finishAll();
  waitForShown(u"Film.mkv"_s);
  QVERIFY(m_intake->fileInfo()->subtitleFileURL.isEmpty());
}

void TestIntake::bestTrackIsPreselectedByItsIndex() {
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

void TestIntake::equalDescriptionsAreToldApart() {
  m_prober->tracks = {u"#1: eng (dts)"_s, u"#1: ger (aac)"_s, u"#1: ger (aac)"_s};
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  QCOMPARE(m_intake->audioTrackIndex(), quint64(1));
  m_intake->setAudioTrackIndex(2);
  QCOMPARE(m_intake->audioTrackIndex(), quint64(2));
}

void TestIntake::trackOutOfRangeIsIgnored() {
  m_intake->setAudioTrackIndex(0);
  m_prober->tracks = {u"#1: eng (dts)"_s, u"#2: ger (aac)"_s};
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  m_intake->setAudioTrackIndex(2);
  QCOMPARE(m_intake->audioTrackIndex(), quint64(1));
}

void TestIntake::recordWithoutAudioHasNoBestTrack() {
  QCOMPARE(m_intake->bestLanguage(), std::optional<int>());
  m_prober->tracks.clear();
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  QCOMPARE(m_intake->bestLanguage(), std::optional<int>());
  QCOMPARE(m_intake->audioTrackIndex(), quint64(0));
}

void TestIntake::skippingGoesOnAndEndsInIdleness() {
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_intake->cancelAdd();
  QVERIFY(drained.isEmpty());
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  waitForShown(u"a.mkv"_s);
  m_intake->cancelAdd();
  QCOMPARE(m_intake->state(), Intake::State::Probing);
  waitForShown(u"b.mkv"_s);
  m_intake->cancelAdd();
  QCOMPARE(m_intake->state(), Intake::State::Idle);
  QCOMPARE(drained.size(), 1);
}

void TestIntake::skippingKeepsTheRecord() {
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  m_intake->cancelAdd();
  QVERIFY(m_intake->fileInfo().has_value());
  m_intake->clearFileInfo();
  QVERIFY(!m_intake->fileInfo().has_value());
}

void TestIntake::skippingWhileProbingDropsTheResult() {
  QSignalSpy probed(m_intake.get(), &Intake::probed);
  m_prober->hold();
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  QTRY_COMPARE(m_prober->running(), 1);
  m_intake->cancelAdd();
  m_prober->finishAll();
  waitForShown(u"b.mkv"_s);
  QCOMPARE(probed.size(), 1);
}

void TestIntake::refusedFileIsNamedAndTheNextIsTaken() {
  QSignalSpy refused(m_intake.get(), &Intake::refused);
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_prober->refuse = {u"/a.mkv"_s, u"/c.mkv"_s};
  m_prober->missTool = {u"/c.mkv"_s};
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s, u"/c.mkv"_s});
  waitForShown(u"b.mkv"_s);
  m_intake->cancelAdd();
  QTRY_COMPARE(drained.size(), 1);
  QCOMPARE(refused.size(), 2);
  QCOMPARE(refused.at(0).at(0).toString(), u"/a.mkv"_s);
  QCOMPARE(refused.at(0).at(2).toBool(), false);
  QCOMPARE(refused.at(1).at(0).toString(), u"/c.mkv"_s);
  QCOMPARE(refused.at(1).at(2).toBool(), true);
}

void TestIntake::refusedAlertsReachTheUser() {
  m_prober->refuse = {u"/a.mkv"_s};
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  waitForShown(u"b.mkv"_s);
  QTRY_COMPARE(m_program->presenter().presented.size(), 1);
  QCOMPARE(m_program->presenter().presented.at(0).message, u"Refused /a.mkv"_s);
}

void TestIntake::listenerMayOpenTheNextFileFromARefusal() {
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_prober->refuse = {u"/a.mkv"_s};
  connect(m_intake.get(), &Intake::refused, this, [this] {
    QVERIFY(m_intake->isIdle());
    m_intake->openFiles({u"/b.mkv"_s});
  });
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"b.mkv"_s);
  QVERIFY(drained.isEmpty());
  QCOMPARE(m_prober->mostAtOnce(), 1);
}

void TestIntake::brokenReportNeverEndsTheBatch() {
  QSignalSpy refused(m_intake.get(), &Intake::refused);
  m_prober->breakOn = {u"/a.mkv"_s};
  // The report is on the screen while the next file goes on: nothing waits for its answer.
  bool shownMeanwhile = false;
  m_program->presenter().setWhileShown([this, &shownMeanwhile](ostrak::Alert &) {
    shownMeanwhile =
        QTest::qWaitFor([this] { return m_intake->state() == Intake::State::Showing; });
  });
  m_program->presenter().answer(ostrak::secondButton);
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  QTRY_COMPARE(m_program->presenter().presented.size(), 1);
  waitForShown(u"b.mkv"_s);
  QVERIFY(shownMeanwhile);
  QCOMPARE(refused.size(), 1);
  const auto outcome = refused.at(0).at(1).value<ProbeOutcome>();
  QVERIFY(!outcome.record);
  QCOMPARE(outcome.alerts.size(), 1);
  QVERIFY(outcome.alerts.at(0).alert.problemReport);
  QVERIFY(outcome.alerts.at(0).alert.message.contains(u"no third word"_s));
  const ostrak::Alert &told = m_program->presenter().presented.at(0);
  QVERIFY(told.problemReport);
  QVERIFY(told.message.contains(u"a.mkv"_s));
  QVERIFY(told.message.contains(u"RangeException: no third word"_s));
  QVERIFY(m_program->opener().opened.isEmpty());
}

void TestIntake::brokenReportsAreToldOneByOne() {
  m_prober->breakOn = {u"/a.mkv"_s, u"/b.mkv"_s};
  auto &presenter = m_program->presenter();
  QList<qsizetype> shownAtTheEnd;
  presenter.setWhileShown([this, &presenter, &shownAtTheEnd](ostrak::Alert &) {
    QVERIFY(QTest::qWaitFor([this] { return m_intake->state() == Intake::State::Showing; }));
    shownAtTheEnd.append(presenter.presented.size());
  });
  presenter.answer(ostrak::secondButton);
  presenter.answer(ostrak::secondButton);
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s, u"/c.mkv"_s});
  QTRY_COMPARE(shownAtTheEnd, (QList<qsizetype>{1, 2}));
  waitForShown(u"c.mkv"_s);
}

void TestIntake::settingsOfTheProbeAreReadEachTime() {
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  ostrak::setDefaultInt(u"HEAACConvert"_s, 1);
  m_intake->cancelAdd();
  m_intake->openFiles({u"/b.mkv"_s});
  waitForShown(u"b.mkv"_s);
  QCOMPARE(m_prober->heAACConvert(), QList<bool>({false, true}));
}

void TestIntake::intakeMayGoWhileAProbeRuns() {
  m_prober->hold();
  m_intake->openFiles({u"/a.mkv"_s});
  QTRY_COMPARE(m_prober->running(), 1);
  m_intake.reset();
  m_prober->finishAll();
  QTRY_COMPARE(m_prober->running(), 0);
  QCoreApplication::processEvents();
}

QTEST_GUILESS_MAIN(TestIntake)
#include "tst_intake.moc"
