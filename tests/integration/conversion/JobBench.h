#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "Clock.h"
#include "ConversionJob.h"
#include "FakeController.h"
#include "FileRevealer.h"
#include "KeyboardModifiers.h"
#include "Notifier.h"
#include "Sandbox.h"
#include "Scenario.h"
#include "ScratchProgram.h"
#include "SleepInhibitor.h"
#include "UrlOpener.h"
#include "Volumes.h"

// One job with the scripted ffmpeg, recording services and a controller of straw, in a scratch
// folder with a source in "in" and room for the output in "out".
class JobBench final {
 public:
  JobBench();
  ~JobBench();

  // A record of a source that exists; its first audio track is "#1: eng (ac3)", which is
  // transcoded.
  [[nodiscard]] decant::MKVFileInfo record(const QString &name = QStringLiteral("movie.mkv"));
  // A job in the fake queue.
  decant::ConversionJob &addJob(const decant::MKVFileInfo &record);
  decant::ConversionJob &addJob() { return addJob(record()); }

  // Waits until the job has ended, within half a minute.
  [[nodiscard]] static bool waitForEnd(const decant::ConversionJob &job);
  // Waits until what the tool has written to the progress file by now has been read.
  [[nodiscard]] bool waitForLooksAtProgress() const;
  // Waits until the scripted tool has come to this announcement.
  [[nodiscard]] bool waitFor(const QString &announcement) const;
  // Process ids of all children that the tool's calls told of; and whether one is still there.
  [[nodiscard]] bool anyChildAlive() const;
  // Names in the folder of outputs and in that of progress files.
  [[nodiscard]] QStringList outputs() const;
  [[nodiscard]] QStringList progressFiles() const;
  [[nodiscard]] QString outputPath(const QString &name) const;
  // Shows the posted alerts and returns the messages of all so far.
  [[nodiscard]] QStringList alertMessages();
  static void write(const QString &path, const QByteArray &bytes);

  ScratchProgram program;
  Scenario scenario;
  RecordingSleepInhibitor inhibitor;
  RecordingNotifier notifier;
  RecordingFileRevealer revealer;
  RecordingUrlOpener opener;
  FakeKeyboardModifiers keyboard;
  FakeVolumes volumes;
  FakeClock clock;
  FakeSandbox sandbox;
  FakeController controller;
  decant::JobServices services;
  std::vector<std::unique_ptr<decant::ConversionJob>> jobs;
};
