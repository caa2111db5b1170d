// Watches 100,000 files in 10,000 folders (the goal: all watched within 5 s, in at most 60 MB).
//
//   observing_bench        times; "caller_ms" is how long who starts the watch is held up,
//                          "resident_MB" the whole program afterwards
//
// TMPDIR chooses the file system; `cold` lets the system forget the files first, where it is
// allowed to ask for that. Needs 10,000 free watches (fs.inotify.max_user_watches).
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <memory>

#include "FolderTreeThread.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int outerFolders = 100;
constexpr int innerFolders = 99;
constexpr int filesInEach = 10;

// A folder tree that stays for the whole run.
class Tree final {
 public:
  Tree() {
    for (int outer = 0; outer < outerFolders; ++outer) {
      const QString folder = m_folder.filePath(u"folder number %1"_s.arg(outer));
      fill(folder);
      for (int inner = 0; inner < innerFolders; ++inner)
        fill(folder + u"/inner folder number %1"_s.arg(inner));
    }
  }
  [[nodiscard]] QByteArray path() const { return QFile::encodeName(m_folder.path()); }
  [[nodiscard]] QString lastFolder() const {
    return m_folder.filePath(
        u"folder number %1/inner folder number %2"_s.arg(outerFolders - 1).arg(innerFolders - 1));
  }

 private:
  static void fill(const QString &folder) {
    if (!QDir().mkdir(folder)) qFatal("a folder could not be made");
    for (int i = 0; i < filesInEach; ++i) {
      QFile file(folder + u"/file number %1.mkv"_s.arg(i));
      if (!file.open(QIODevice::WriteOnly)) qFatal("a file could not be made");
    }
  }
  QTemporaryDir m_folder;
};

const Tree &tree() {
  static const Tree made;
  return made;
}

double residentMegabytes() {
  QFile file(u"/proc/self/statm"_s);
  if (!file.open(QIODevice::ReadOnly)) return 0;
  constexpr double megabyte = 1024 * 1024;
  return file.readAll().split(' ').value(1).toDouble() *
         static_cast<double>(::sysconf(_SC_PAGESIZE)) / megabyte;
}

bool forgetFiles() {
  ::sync();
  QFile caches(u"/proc/sys/vm/drop_caches"_s);
  return caches.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && caches.write("3") == 1;
}

void untilAllIsWatched(benchmark::State &state, bool cold) {
  const QByteArray path = tree().path();
  double caller = 0;
  double resident = 0;
  for (auto _ : state) {
    state.PauseTiming();
    if (cold && !forgetFiles()) {
      state.SkipWithError("the system may not be asked to forget files");
      break;
    }
    QElapsedTimer timer;
    timer.start();
    state.ResumeTiming();
    auto thread = std::make_unique<ostrak::FolderTreeThread>(path);
    constexpr std::chrono::milliseconds asStartObserving{20};
    thread->waitUntilWatched(asStartObserving);
    caller = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    if (!thread->waitUntilWatched(std::chrono::minutes(5))) qFatal("it takes for ever");
    state.PauseTiming();
    if (thread->takeNews() != ostrak::FolderTree::News()) qFatal("not all could be watched");
    resident = residentMegabytes();
    thread.reset();
    state.ResumeTiming();
  }
  state.counters["caller_ms"] = caller;
  state.counters["resident_MB"] = resident;
}
BENCHMARK_CAPTURE(untilAllIsWatched, warm, false)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(5);
BENCHMARK_CAPTURE(untilAllIsWatched, cold, true)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);

// From a change in the folder that was watched last until the thread has told of it.
void untilAChangeIsHeard(benchmark::State &state) {
  ostrak::FolderTreeThread thread(tree().path());
  if (!thread.waitUntilWatched(std::chrono::minutes(5))) qFatal("it takes for ever");
  const QByteArray name = QFile::encodeName(tree().lastFolder() + u"/new"_s);
  for (auto _ : state) {
    const ostrak::Descriptor file(::open(name.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    while (!thread.takeNews().changed) {
    }
    state.PauseTiming();
    ::unlink(name.constData());
    while (!thread.takeNews().changed) {
    }
    state.ResumeTiming();
  }
}
BENCHMARK(untilAChangeIsHeard)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

int main(int argc, char **argv) {
  QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
