// Admits 100,000 jobs at paths of 110 characters to a paused queue, the test of each destination's
// writability included (the goal: 2 s and 4 KB each), and changes states beside short and long
// queues.
//
//   queue_bench            times, and "bytes_per_job" as the heap counts them
//
// TMPDIR chooses the file system; in memory (tmpfs) the time is the program's, elsewhere mostly the
// file system's. Once a run: ext4 without a journal passes over the inodes of files that were
// deleted in the last minutes one by one, so what a first round has removed would slow down the
// second.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <memory>
#include <vector>

#include "AppDelegate.h"
#include "Clock.h"
#include "File.h"
#include "FileRevealer.h"
#include "KeyboardModifiers.h"
#include "Notifier.h"
#include "Ostrak.h"
#include "Sandbox.h"
#include "SleepInhibitor.h"
#include "TrashCan.h"
#include "UrlOpener.h"
#include "Volumes.h"

using namespace Qt::StringLiterals;
using namespace decant;

namespace {

constexpr qsizetype pathLength = 110;
constexpr int longQueue = 100'000;

// A program with its controller in a temporary folder.
class Program final {
 public:
  Program()
      : m_library(setup()),
        m_services{m_sleepInhibitor, m_notifier, m_revealer, m_urlOpener, m_keyboard,
                   m_volumes,        m_clock,    m_sandbox,  QString(),   m_folder.path()},
        m_controller(
            std::make_unique<AppDelegate>(AppServices{m_services, m_trashCan, {u"eng"_s}, [] {}})) {
    m_controller->pauseContinueClicked(true);
  }

  [[nodiscard]] AppDelegate &controller() { return *m_controller; }

  // Makes the sources, empty files, of jobs 0 to `count`.
  void makeSources(int count) {
    for (int i = 0; i < count; ++i) {
      QFile file(path(i, u".mkv"_s));
      if (!file.open(QIODevice::WriteOnly)) qFatal("source %d could not be made", i);
    }
  }

  // A job whose paths have 110 characters.
  [[nodiscard]] std::unique_ptr<ConversionJob> job(int number) {
    MKVFileInfo record;
    record.fileURL = QUrl::fromLocalFile(path(number, u".mkv"_s));
    record.destinationURL = QUrl::fromLocalFile(path(number, u".m4v"_s));
    record.fileName = record.fileURL.fileName();
    record.audioTrackInformation = {{u"#1: eng (ac3) [5.1]"_s, 48000}, {u"#2: ger (aac)"_s, 48000}};
    record.subtitleTrackIDs = {3, 4};
    record.informationString =
        u"Duration: 1h 40m   Bitrate: 5000 kb/s   Resolution: 1920x1080   Audiotracks: 2 (2)"_s;
    record.videoTrackID = 0;
    record.videoCodec = u"h264"_s;
    record.runtimeSeconds = 6000;
    record.fileSize = 4'000'000'000;
    auto made = std::make_unique<ConversionJob>(std::move(record), 0, *m_controller, m_services);
    made->presetSpeedInfo();
    return made;
  }

  [[nodiscard]] std::vector<std::unique_ptr<ConversionJob>> jobs(int count) {
    std::vector<std::unique_ptr<ConversionJob>> made;
    for (int i = 0; i < count; ++i)
      made.push_back(job(i));
    return made;
  }

  void admit(std::vector<std::unique_ptr<ConversionJob>> jobs) {
    for (auto &each : jobs) {
      if (m_controller->addJob(std::move(each)) != AppDelegate::Admission::added)
        qFatal("a job was refused");
    }
  }

 private:
  [[nodiscard]] QString path(int number, const QString &extension) const {
    const QString stem = m_folder.path() + u'/' + QString::number(number);
    return stem.leftJustified(pathLength - extension.size(), u'x') + extension;
  }
  [[nodiscard]] ostrak::OstrakSetup setup() const {
    ostrak::OstrakSetup setup;
    setup.bundlePath = m_folder.path();
    setup.info = {{u"CFBundleName"_s, u"Decant"_s}, {u"CFBundleShortVersionString"_s, u"1.0"_s}};
    setup.prefsPath = m_folder.filePath(u"settings.conf"_s);
    setup.suppDir = m_folder.filePath(u"data"_s);
    setup.tempDir = m_folder.path();
    setup.systemLog = [](int, const QString &) {};
    return setup;
  }

  QTemporaryDir m_folder;
  ostrak::Ostrak m_library;
  NullSleepInhibitor m_sleepInhibitor;
  NullNotifier m_notifier;
  NullFileRevealer m_revealer;
  NullUrlOpener m_urlOpener;
  NullKeyboardModifiers m_keyboard;
  NullVolumes m_volumes;
  SystemClock m_clock;
  NullSandbox m_sandbox;
  NullTrashCan m_trashCan;
  JobServices m_services;
  std::unique_ptr<AppDelegate> m_controller;
};

size_t bytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void addJobs(benchmark::State &state) {
  const auto count = static_cast<int>(state.range(0));
  double bytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto program = std::make_unique<Program>();
    program->makeSources(count);
    const size_t before = bytesInUse();
    auto jobs = program->jobs(count);
    state.ResumeTiming();
    program->admit(std::move(jobs));
    state.PauseTiming();
    bytes = static_cast<double>(bytesInUse() - before) / count;
    program.reset();
    state.ResumeTiming();
  }
  state.counters["bytes_per_job"] = bytes;
}
BENCHMARK(addJobs)->Arg(longQueue)->Unit(benchmark::kMillisecond)->Iterations(1);

// The part of it that is the system's: creating, writing and removing a file at each destination.
void testWriteability(benchmark::State &state) {
  const QTemporaryDir folder;
  const auto count = static_cast<int>(state.range(0));
  for (auto _ : state) {
    for (int i = 0; i < count; ++i) {
      const QString path = folder.filePath(QString::number(i)).leftJustified(pathLength, u'x');
      if (!ostrak::isWriteablePath(path)) qFatal("not writable");
    }
  }
}
BENCHMARK(testWriteability)->Arg(longQueue)->Unit(benchmark::kMillisecond)->Iterations(1);

// One more job comes, fails for want of its source and goes, which needs no child: every step
// changes counts, indexes and claims. Takes the same time whatever waits behind it.
void changeStates(benchmark::State &state) {
  const auto count = static_cast<int>(state.range(0));
  Program program;
  program.makeSources(count);
  program.admit(program.jobs(count));
  for (auto _ : state) {
    auto job = program.job(longQueue);
    ConversionJob &passing = *job;
    if (program.controller().addJob(std::move(job)) != AppDelegate::Admission::added)
      qFatal("the passing job was refused");
    benchmark::DoNotOptimize(passing.start());
    passing.remove();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}
BENCHMARK(changeStates)->Arg(10)->Arg(longQueue)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char **argv) {
  QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
