#include "ControllerProgram.h"

#include <QFileInfo>

#include "Ostrak.h"
#include "SortedFiles.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

namespace {

MKVFileInfo recordOf(const QString &source) {
  MKVFileInfo info;
  info.fileURL = QUrl::fromLocalFile(source);
  info.fileName = QFileInfo(source).fileName();
  info.fileSize = static_cast<quint64>(QFileInfo(source).size());
  info.videoTrackID = 0;
  info.videoCodec = u"h264"_s;
  info.runtimeSeconds = 100;
  info.audioTrackInformation = {{u"#1: eng (mp3)"_s, 48000}};
  if (source.endsWith(u"tracks.mkv"_s))
    info.audioTrackInformation = {{u"#1: ger (aac)"_s, 48000}, {u"#2: eng (mp3)"_s, 48000}};
  return info;
}

ProbeRun probe(const QUrl &source, const ProbeSettings &) {
  ProbeRun run;
  const QString path = source.toLocalFile();
  if (!path.endsWith(u"bad.mkv"_s)) run.outcome.record = recordOf(path);
  return run;
}

}  // namespace

ControllerProgram::ControllerProgram()
    : scenario(program.path(u"bundle/resources/ffmpeg.scenario"_s)), m_jobServices(jobServices()) {
  scenario.conversion(u"slow.mkv"_s).wait(u"go"_s);
  scenario.conversion(u"fail.mkv"_s).exit(1);
  scenario.conversion(u"hang.mkv"_s).hang();
  if (!scenario.write()) qFatal("the scenario could not be written");
  restart(services());
}

AppServices ControllerProgram::services() {
  return {m_jobServices, trashCan, {u"eng"_s}, [this] { ++quits; }, &probe};
}

void ControllerProgram::restart(AppServices services) {
  controller.reset();
  controller = std::make_unique<AppDelegate>(std::move(services));
}

ControllerProgram::~ControllerProgram() {
  controller.reset();
}

JobServices ControllerProgram::jobServices() {
  return {sleepInhibitor, notifier, revealer, program.opener(),   program.keyboard(),
          volumes,        clock,    sandbox,  program.toolPath(), ostrak::tk->docDir()};
}

QString ControllerProgram::movie(const QString &name) const {
  return wholefile::made(path(name), "a movie");
}

MKVFileInfo ControllerProgram::record(const QString &source, const QString &destination) const {
  MKVFileInfo info = recordOf(source);
  info.destinationURL = QUrl::fromLocalFile(destination);
  return info;
}

std::unique_ptr<ConversionJob> ControllerProgram::job(const QString &source,
                                                      const QString &destination) {
  const QString wanted =
      destination.isNull() ? QString(withoutExtension(source) + u".m4v"_s) : destination;
  return std::make_unique<ConversionJob>(record(source, wanted), 0, *controller, m_jobServices);
}

ConversionJob *ControllerProgram::add(const QString &name) {
  auto made = job(movie(name));
  ConversionJob *const added = made.get();
  return controller->addJob(std::move(made)) == AppDelegate::Admission::added ? added : nullptr;
}

QStringList ControllerProgram::names() {
  QStringList names;
  for (const ConversionJob *each : queue().taskArray())
    names.append(each->fileInfo().fileName);
  return names;
}

QStringList ControllerProgram::converted() const {
  QStringList names;
  for (const QStringList &arguments : scenario.arguments(u"conversion"_s))
    names.append(QFileInfo(arguments.value(arguments.indexOf(u"-i"_s) + 1)).fileName());
  return names;
}
