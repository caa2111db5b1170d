#include <malloc.h>

#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>

#include "Clock.h"
#include "ConversionJob.h"
#include "FakeController.h"
#include "FileRevealer.h"
#include "KeyboardModifiers.h"
#include "Notifier.h"
#include "Sandbox.h"
#include "SleepInhibitor.h"
#include "UrlOpener.h"
#include "Volumes.h"

using namespace Qt::StringLiterals;
using namespace decant;

// A job as a record, before it has run. Nothing here touches a disk.
class TestJobRecord final : public QObject {
  Q_OBJECT

 private:
  NullSleepInhibitor m_inhibitor;
  NullNotifier m_notifier;
  RecordingFileRevealer m_revealer;
  NullUrlOpener m_opener;
  NullKeyboardModifiers m_keyboard;
  NullVolumes m_volumes;
  FakeClock m_clock;
  NullSandbox m_sandbox;
  JobServices m_services{m_inhibitor, m_notifier, m_revealer, m_opener,          m_keyboard,
                         m_volumes,   m_clock,    m_sandbox,  u"/none/ffmpeg"_s, u"/none/logs"_s};

  static MKVFileInfo record(const QStringList &tracks) {
    MKVFileInfo info;
    info.fileName = u"movie.mkv"_s;
    info.fileURL = QUrl::fromLocalFile(u"/none/movie.mkv"_s);
    info.destinationURL = QUrl::fromLocalFile(u"/none/movie.m4v"_s);
    for (const QString &track : tracks)
      info.audioTrackInformation.append({track, 48000});
    return info;
  }

 private Q_SLOTS:
  void beginsEmpty() {
    FakeController controller;
    const ConversionJob job(record({u"#1: eng (ac3)"_s}), 0, controller, m_services);
    QCOMPARE(job.state(), JobStateQueued);
    QCOMPARE(job.progress(), 0.0);
    QVERIFY(!job.fastmode() && !job.finishedOK() && !job.finishedError());
    QVERIFY(job.jobOutput().isEmpty() && job.arguments().isEmpty());
    QVERIFY(!job.startAlert());
    QCOMPARE(job.elapsedSeconds(), 0.0);
    QCOMPARE(job.stateInfoString(), u"Status: Queued"_s);
    QVERIFY(controller.calls.isEmpty());
  }

  void propertiesCanBeObserved() {
    FakeController controller;
    const ConversionJob job(record({}), 0, controller, m_services);
    const QMetaObject *type = job.metaObject();
    for (const char *name :
         {"state", "progress", "finishedOK", "finishedError", "fastmode", "stateInfoString"}) {
      const QMetaProperty property = type->property(type->indexOfProperty(name));
      QVERIFY2(property.isReadable() && property.hasNotifySignal(), name);
    }
  }

  void presetSpeedInfo_data() {
    QTest::addColumn<QStringList>("tracks");
    QTest::addColumn<quint64>("index");
    QTest::addColumn<bool>("fast");
    QTest::newRow("copied") << QStringList{u"#1: eng (aac)"_s} << quint64(0) << true;
    QTest::newRow("transcoded") << QStringList{u"#1: eng (ac3)"_s} << quint64(0) << false;
    QTest::newRow("the chosen one counts")
        << QStringList{u"#1: eng (dts) [5.1]"_s, u"#2: eng (aac)"_s} << quint64(1) << true;
    QTest::newRow("without audio") << QStringList{} << quint64(0) << false;
  }
  void presetSpeedInfo() {
    QFETCH(QStringList, tracks);
    QFETCH(quint64, index);
    QFETCH(bool, fast);
    FakeController controller;
    ConversionJob job(record(tracks), index, controller, m_services);
    QSignalSpy changes(&job, &ConversionJob::fastmodeChanged);
    job.presetSpeedInfo();
    job.presetSpeedInfo();
    QCOMPARE(job.fastmode(), fast);
    QCOMPARE(changes.size(), fast ? 1 : 0);
  }

  void readsTheSettingsAfresh() {
    FakeController controller;
    ConversionJob job(record({u"#1: eng (ac3)"_s}), 0, controller, m_services);
    job.presetSpeedInfo();
    QVERIFY(!job.fastmode());
    controller.settings.ConversionPreset = ConversionPresetAC3;
    job.presetSpeedInfo();
    QVERIFY(job.fastmode());
  }

  void revealsWithoutHavingRun() {
    FakeController controller;
    ConversionJob job(record({}), 0, controller, m_services);
    m_revealer.revealed.clear();
    job.setDestinationURL(QUrl::fromLocalFile(u"/none/another.m4v"_s));
    job.reveal();
    QCOMPARE(m_revealer.revealed, QStringList{u"/none/another.m4v"_s});
  }

  // A queue may hold a hundred thousand; with its record a job takes at most 4 KB.
  void takesLittleMemory() {
    constexpr int count = 2000;
    FakeController controller;
    std::vector<std::unique_ptr<ConversionJob>> jobs;
    jobs.reserve(count);
    const size_t before = mallinfo2().uordblks;
    for (int i = 0; i < count; ++i) {
      MKVFileInfo info;
      info.fileName = u"%1"_s.arg(i, 40, 10, QLatin1Char('n')) + u".mkv"_s;
      const QString stem =
          u'/' + QString(65, u'f') + u'/' + u"%1"_s.arg(i, 40, 10, QLatin1Char('n'));
      info.fileURL = QUrl::fromLocalFile(stem + u".mkv"_s);
      info.destinationURL = QUrl::fromLocalFile(stem + u".m4v"_s);
      info.audioTrackInformation = {{u"#1: eng (ac3) [5.1]"_s + QString(), 48000},
                                    {u"#2: ger (dts)"_s + QString(), 48000}};
      info.subtitleTrackIDs = {3, 4};
      info.informationString = QString(70, u'i');
      info.videoCodec = QString(4, u'h');
      jobs.push_back(std::make_unique<ConversionJob>(info, 0, controller, m_services));
      jobs.back()->presetSpeedInfo();
    }
    const size_t each = (mallinfo2().uordblks - before) / count;
    QVERIFY2(each <= 4096, qPrintable(QString::number(each)));
  }
};

QTEST_GUILESS_MAIN(TestJobRecord)
#include "tst_job_record.moc"
