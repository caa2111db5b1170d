#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include "Alerts.h"
#include "ChildProcess.h"
#include "ConversionSettings.h"
#include "Diagnosis.h"
#include "FileLook.h"
#include "JobState.h"
#include "MKVFileInfo.h"
#include "StatusText.h"

class Clock;
class FileRevealer;
class KeyboardModifiers;
class Notifier;
class Sandbox;
class SleepInhibitor;
class UrlOpener;
class Volumes;

namespace decant {

class JobController;
class JobRun;
class OwnFile;

// The services that jobs use; all outlive every job.
struct JobServices {
  SleepInhibitor &sleepInhibitor;
  Notifier &notifier;
  FileRevealer &revealer;
  UrlOpener &urlOpener;
  KeyboardModifiers &keyboard;
  Volumes &volumes;
  Clock &clock;
  Sandbox &sandbox;
  QString toolPath;        // resources/ffmpeg
  QString progressFolder;  // where progress files are kept if they can be; made when missing
  ostrak::StopDelays stopDelays = {};
  std::chrono::milliseconds progressInterval{1000};  // between two looks at the progress
  // Whether the program is to end, asked while a call blocks; empty means never.
  std::function<bool()> interrupted = {};
  // Called with true before, and with false after, a call that may block for seconds; may be empty.
  std::function<void(bool)> busy = {};
};

// How `start` ended. The user has been told of everything but a launch.
enum class StartOutcome {
  launched,
  sourceRemoved,       // the job has failed
  noRoom,              // the job stays queued
  toolMissing,         // the job has failed
  destinationRefused,  // the job has failed: writing there would destroy a source
  notQueued            // nothing was done: the job is not one that waits
};

// One conversion of one probed file. Main thread.
class ConversionJob final : public QObject {
  Q_OBJECT
  Q_PROPERTY(int state READ state NOTIFY stateChanged)
  Q_PROPERTY(double progress READ progress NOTIFY progressChanged)
  Q_PROPERTY(bool finishedOK READ finishedOK NOTIFY stateChanged)
  Q_PROPERTY(bool finishedError READ finishedError NOTIFY stateChanged)
  Q_PROPERTY(bool fastmode READ fastmode NOTIFY fastmodeChanged)
  Q_PROPERTY(QString stateInfoString READ stateInfoString NOTIFY stateInfoStringChanged)

 public:
  ConversionJob(MKVFileInfo fileInfo, quint64 audioTrackIndex, JobController &ad,
                const JobServices &services);
  ~ConversionJob() override;

  [[nodiscard]] const MKVFileInfo &fileInfo() const { return m_fileInfo; }
  void setDestinationURL(const QUrl &destination);
  [[nodiscard]] quint64 audioTrackIndex() const { return m_audioTrackIndex; }
  [[nodiscard]] JobState state() const { return m_state; }
  [[nodiscard]] double progress() const { return m_progress; }  // percent
  [[nodiscard]] bool finishedOK() const { return m_finishedOK; }
  [[nodiscard]] bool finishedError() const { return m_finishedError; }
  [[nodiscard]] bool fastmode() const { return m_fastmode; }
  [[nodiscard]] QString stateInfoString() const;
  [[nodiscard]] StatusFacts statusFacts() const;
  // Both are kept of a failed run only, until the job is removed; the arguments also while it runs.
  [[nodiscard]] const QString &jobOutput() const { return m_jobOutput; }
  [[nodiscard]] const QStringList &arguments() const { return m_arguments; }
  // Seconds of the run so far, pauses not counted; of an ended one, how long it took.
  [[nodiscard]] double elapsedSeconds() const;
  // By the documented estimate, for a converting job.
  [[nodiscard]] double etaSeconds() const;
  // The folder whose access was started for this job; the job ends it when it goes.
  void setSecurityURL(const QUrl &folder) { m_fileInfo.securityURL = folder; }
  // Whether the user has agreed to replace the file that is at the destination now, which the start
  // does. The agreement is about that very file as it is: where there is none it is about nothing,
  // and a file that comes to its place later, or is written to, is not replaced.
  void setReplacesDestination(bool agreed);
  [[nodiscard]] bool replacesDestination() const;

  // Decides `fastmode` for the chosen track; without audio it stays as it is.
  void presetSpeedInfo();
  // Prepares and launches. Only a launched job goes on to an end.
  StartOutcome start();
  // What the user was told when the last start did not launch; null after one that did.
  [[nodiscard]] const ostrak::Alert *startAlert() const { return m_startAlert.get(); }
  // How the last start ended; `launched` before there was one.
  [[nodiscard]] StartOutcome startOutcome() const { return m_startOutcome; }
  void pause();
  void continue_();
  // Ends a running child, deletes what the job itself wrote unless it is finished, and leaves the
  // queue at once. Where a child has to be ended first, the files go when it has ended.
  void remove();
  // Waits until the children of all removed jobs have ended and their files are gone; for the end
  // of the program, needs no event loop.
  static void finishStopping();
  // For the end of a program that is broken: ends a running child at once, tells nobody, and
  // returns what removal would delete, which lives as long as the job; null for nothing. The job is
  // of no use any more.
  [[nodiscard]] const OwnFile *abandon();
  // The same for all removed jobs whose children have not ended yet.
  [[nodiscard]] static QList<const OwnFile *> abandonStopping();
  // Shows the output in the file manager (the source with Shift held), or explains a failure.
  void reveal();
  void revealSource();
  // Why the job failed; only in state 4.
  [[nodiscard]] Diagnosis diagnosis() const;

 Q_SIGNALS:
  void stateChanged();
  void progressChanged();
  void fastmodeChanged();
  void stateInfoStringChanged();

 private:
  [[nodiscard]] StartOutcome refuse(StartOutcome outcome, const QString &message);
  void tellStartFailure(const QString &message);
  void taskFinished();
  void succeed();
  void fail(JobRun &run);
  void tellEnd();
  [[nodiscard]] ostrak::Alert alertAbout(const QString &message) const;
  void explainFailure();

  void setState(JobState state);
  void setProgress(double percent);
  void setFastmode(const ConversionSettings &settings);
  void stopAccess();
  [[nodiscard]] QString source() const;
  [[nodiscard]] QString destination() const;

  MKVFileInfo m_fileInfo;
  quint64 m_audioTrackIndex = 0;
  JobController &m_ad;
  const JobServices &m_services;
  JobState m_state = JobStateQueued;
  double m_progress = 0;
  bool m_finishedOK = false;
  bool m_finishedError = false;
  bool m_fastmode = false;
  std::optional<FileLook> m_replaced;  // what the user has agreed to replace
  bool m_removed = false;
  StartOutcome m_startOutcome = StartOutcome::launched;
  double m_elapsedSeconds = 0;  // of the ended run
  QString m_jobOutput;
  QStringList m_arguments;
  std::unique_ptr<ostrak::Alert> m_startAlert;
  std::unique_ptr<JobRun>
      m_run;  // child, pipe, timer, progress file and sleep assertion while it runs
  std::unique_ptr<OwnFile> m_partialOutput;  // what a failed run has left
};

}  // namespace decant
