#include "DryRun.h"

#include <QTemporaryDir>

#include "ConversionArguments.h"
#include "ConversionMethod.h"
#include "ConversionTool.h"
#include "ExitCode.h"
#include "File.h"
#include "ProgressFileName.h"
#include "Settings.h"
#include "SignalWatcher.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

// Outside a sandbox every folder may be used.
QStringList everyFolder() {
  return {u"/"_s};
}

// The one-second test, its output thrown away.
bool needsFixupNow(const ConversionPlan &plan, const DryRunSetup &setup) {
  if (!wantsFixupTest(plan.fileInfo, plan.audioTrackIndex, plan.settings)) return false;
  const QTemporaryDir folder(setup.tempFolder + u"/decant-XXXXXX"_s);
  const QString name = plan.fileInfo.destinationURL.fileName();
  return needFixup(setup.toolPath, plan.fileInfo, plan.audioTrackIndex, folder.filePath(name),
                   {.interrupted = [] { return SignalWatcher::received() != 0; }});
}

}  // namespace

DryRun::DryRun(DryRunSetup setup, ConvertInput input, DryRunReporter &reporter)
    : m_setup(std::move(setup)),
      m_reporter(reporter),
      m_intake(m_setup.preferredLanguages, proberWithSubtitle(input.subtitle)),
      m_feeder(m_intake, std::move(input), m_setup.audioTrack) {
  connect(&m_feeder, &IntakeFeeder::shown, this, &DryRun::plan);
  connect(&m_feeder, &IntakeFeeder::refused, this, &DryRun::refuse);
  connect(&m_feeder, &IntakeFeeder::exhausted, this, &DryRun::checkEnd);
  connect(&m_ledger, &AlertLedger::quiet, this, &DryRun::checkEnd);
  connect(&m_ledger, &AlertLedger::allTold, this, [this] {
    m_hasEnded = true;
    m_loop.quit();
  });
}

int DryRun::run() {
  SignalWatcher watcher;
  connect(&watcher, &SignalWatcher::interrupted, this, [this](int signal) {
    m_signal = signal;
    m_loop.quit();
  });
  nextSoon();
  m_loop.exec();
  m_feeder.stop();
  if (m_signal != 0) return statusOfSignal(m_signal);
  return statusOf(m_anyRefused || !m_hasEnded ? ExitCode::Failed : ExitCode::Done);
}

void DryRun::plan() {
  const MKVFileInfo record = *m_intake.fileInfo();
  const QString source = record.fileURL.toLocalFile();
  const std::optional<QUrl> destination =
      resolveDestination(m_setup.destination, record, everyFolder(), m_claimed);
  if (!destination) {
    refuse(source, refusedFailure(worded(u"There is no folder to write to."_s)));
  } else {
    m_claimed.claim(destination->toLocalFile(), source, record.subtitleFileURL.toLocalFile());
    MKVFileInfo planned = record;
    planned.destinationURL = *destination;
    m_reporter.planned(plannedJob(planned));
    m_ledger.probeEnded();
    nextSoon();
  }
  m_intake.clearFileInfo();
  m_intake.cancelAdd();
}

PlannedJob DryRun::plannedJob(MKVFileInfo record) const {
  ConversionPlan plan;
  plan.fileInfo = std::move(record);
  plan.audioTrackIndex = m_intake.audioTrackIndex();
  plan.settings = readConversionSettings();
  const QString progressName = progressFileName(plan.fileInfo.fileName);
  plan.progressFile = ostrak::uniqueFile(QString(m_setup.progressFolder + u'/' + progressName));
  plan.fixup = needsFixupNow(plan, m_setup);
  PlannedJob job{plan.fileInfo.fileURL.toLocalFile(),
                 plan.fileInfo.destinationURL.toLocalFile(),
                 {},
                 {},
                 false,
                 completeArguments(plan)};
  const QList<AudioTrackDescription> &tracks = plan.fileInfo.audioTrackInformation;
  if (tracks.isEmpty()) return job;
  const auto index = static_cast<qsizetype>(plan.audioTrackIndex);
  job.method = conversionMethodOf(tracks.at(index), plan.settings);
  job.audioTrackIndex = static_cast<int>(index);
  job.fastmode = *job.method == ConversionMethodCopy;
  return job;
}

void DryRun::refuse(const QString &source, const FileFailure &failure) {
  m_anyRefused = true;
  m_ledger.remember(source, failure.text);
  m_reporter.refused(source, failure);
  m_ledger.probeEnded();
  nextSoon();
}

bool DryRun::takeAlert(const ostrak::Alert &alert) {
  // The report about a file that could not be read says what its refusal says.
  const bool isReport = alert.problemReport && alert.subject.isNull() && m_intake.isScanning();
  if (!isReport && !m_ledger.isTold(alert)) m_reporter.alerted(alert);
  return true;
}

void DryRun::nextSoon() {
  QMetaObject::invokeMethod(&m_feeder, &IntakeFeeder::next, Qt::QueuedConnection);
}

void DryRun::checkEnd() {
  if (m_feeder.isExhausted() && m_ledger.isQuiet()) m_ledger.askEnd();
}

}  // namespace decant
