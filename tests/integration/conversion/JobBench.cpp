#include "JobBench.h"

#include <QCoreApplication>
#include <QDir>
#include <QTest>
#include <QTimer>
#include <csignal>

#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

namespace {
constexpr int patience = 30'000;
}

JobBench::JobBench()
    : scenario(program.path(u"bundle/resources/ffmpeg.scenario"_s)),
      services{inhibitor,
               notifier,
               revealer,
               opener,
               keyboard,
               volumes,
               clock,
               sandbox,
               program.toolPath(),
               program.library().docDir()} {
  services.progressInterval = std::chrono::milliseconds(10);
  // Calls are written down only where there is a scenario.
  if (!scenario.write()) qFatal("the scenario cannot be written");
  QDir(program.root()).mkpath(u"in"_s);
  QDir(program.root()).mkpath(u"out"_s);
}

JobBench::~JobBench() {
  // Alerts and ended runs that are still posted belong to this test, not to the next one.
  QCoreApplication::processEvents();
  jobs.clear();
  ConversionJob::finishStopping();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

MKVFileInfo JobBench::record(const QString &name) {
  const QString source = program.path(u"in/"_s + name);
  write(source, QByteArray(1000, 's'));
  MKVFileInfo info;
  info.fileName = name;
  info.fileURL = QUrl::fromLocalFile(source);
  info.destinationURL =
      QUrl::fromLocalFile(outputPath(name.left(name.lastIndexOf(u'.')) + u".m4v"_s));
  info.fileSize = 1000;
  info.videoTrackID = 0;
  info.runtimeSeconds = 100;
  info.videoCodec = u"h264"_s;
  info.audioTrackInformation = {{u"#1: eng (ac3)"_s, 48000}};
  return info;
}

ConversionJob &JobBench::addJob(const MKVFileInfo &record) {
  jobs.push_back(std::make_unique<ConversionJob>(record, 0, controller, services));
  controller.jobs.append(jobs.back().get());
  return *jobs.back();
}

bool JobBench::waitForEnd(const ConversionJob &job) {
  return QTest::qWaitFor(
      [&job] { return job.state() == JobStateFinished || job.state() == JobStateFailed; },
      patience);
}

bool JobBench::waitFor(const QString &announcement) const {
  return QTest::qWaitFor([this, &announcement] { return scenario.announced(announcement); },
                         patience);
}

// A timer of the same interval in the same event loop: when it has fired three times, the job's has
// fired in between.
bool JobBench::waitForLooksAtProgress() const {
  QTimer timer;
  timer.setTimerType(Qt::PreciseTimer);
  int looks = 0;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&looks] { ++looks; });
  timer.start(services.progressInterval);
  return QTest::qWaitFor([&looks] { return looks >= 3; }, patience);
}

bool JobBench::anyChildAlive() const {
  for (const QJsonObject &call : scenario.calls()) {
    if (::kill(call.value(u"pid"_s).toInt(), 0) == 0) return true;
  }
  return false;
}

QStringList JobBench::outputs() const {
  return QDir(program.path(u"out"_s))
      .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
}

QStringList JobBench::progressFiles() const {
  return QDir(services.progressFolder).entryList(QDir::Files);
}

QString JobBench::outputPath(const QString &name) const {
  return program.path(u"out/"_s + name);
}

QStringList JobBench::alertMessages() {
  QCoreApplication::processEvents();
  QStringList messages;
  for (const ostrak::Alert &alert : program.presenter().presented)
    messages.append(alert.message);
  return messages;
}

void JobBench::write(const QString &path, const QByteArray &bytes) {
  if (!wholefile::write(path, bytes)) qFatal("a file of the test cannot be written");
}
