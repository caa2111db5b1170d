#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>

#include "Diagnosis.h"
#include "JobState.h"
#include "MKVFileInfo.h"

class Clock;
class FileRevealer;
class KeyboardModifiers;
class Notifier;
class SleepInhibitor;
class UrlOpener;
class Volumes;

namespace decant {

class JobController;
class JobRun;

// The services that jobs use; all outlive every job.
struct JobServices {
  SleepInhibitor &sleepInhibitor;
  Notifier &notifier;
  FileRevealer &revealer;
  UrlOpener &urlOpener;
  KeyboardModifiers &keyboard;
  Volumes &volumes;
  Clock &clock;
  QString toolPath;         // resources/ffmpeg
  QString progressFolder;   // where progress files are kept; exists
};

// How `start` ended.
enum class StartOutcome {
  launched,
  sourceRemoved,  // the job has failed
  noRoom,         // the job stays queued; the user has been told
  toolMissing,    // the job has failed; the user has been told
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
  [[nodiscard]] const QString &jobOutput() const { return m_jobOutput; }
  [[nodiscard]] const QStringList &arguments() const { return m_arguments; }
  // Seconds of the run so far, pauses not counted; of an ended one, how long it took.
  [[nodiscard]] double elapsedSeconds() const;
  // By the documented estimate, for a converting job.
  [[nodiscard]] double etaSeconds() const;
  // The user has agreed to replace what is at the destination.
  void setReplacesDestination(bool agreed) { m_replacesDestination = agreed; }

  // Decides `fastmode` for the chosen track; without audio it stays as it is.
  void presetSpeedInfo();
  // Prepares and launches. Only a launched job goes on to an end.
  StartOutcome start();
  void pause();
  void continue_();
  // Ends a running child, deletes what the job itself wrote unless it is finished, and leaves the queue.
  void remove();
  // Shows the output in the file manager (the source with Shift held), or explains a failure.
  void reveal();
  // Why the job failed; only in state 4.
  [[nodiscard]] Diagnosis diagnosis() const;

 Q_SIGNALS:
  void stateChanged();
  void progressChanged();
  void fastmodeChanged();
  void stateInfoStringChanged();

 private:
  friend class JobRun;
  void setState(JobState state);
  void setProgress(double percent);
  // see ConversionJob.cpp for the road through start and completion

  MKVFileInfo m_fileInfo;
  quint64 m_audioTrackIndex = 0;
  JobController &m_ad;
  const JobServices &m_services;
  JobState m_state = JobStateQueued;
  double m_progress = 0;
  bool m_finishedOK = false;
  bool m_finishedError = false;
  bool m_fastmode = false;
  bool m_replacesDestination = false;
  QString m_jobOutput;
  QStringList m_arguments;
  std::unique_ptr<JobRun> m_run;  // child, pipe, timer, progress file and sleep assertion while it runs
};

}  // namespace decant
