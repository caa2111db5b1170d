#include "DecantProgram.h"

#include <unistd.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include "BuildTree.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;

namespace {

// Also users without rights get through.
constexpr QFile::Permissions openToAll = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                         QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther |
                                         QFile::ExeOther;

void copyOrDie(const QString &from, const QString &to) {
  if (!QFile::copy(from, to)) qFatal("cannot copy %s", qUtf8Printable(from));
}

QString storyOf(const QJsonObject &object) {
  const QString event = object.value("event"_L1).toString();
  if (event == "failed"_L1) {
    const QString job = object.contains("job"_L1)
                            ? QString(QString::number(object.value("job"_L1).toInt()) + u' ')
                            : QString();
    return u"failed "_s + job + object.value("kind"_L1).toString();
  }
  if (event == "summary"_L1)
    return QString::asprintf("summary %d %d", object.value("finished"_L1).toInt(),
                             object.value("failed"_L1).toInt());
  if (event == "alert"_L1) return u"alert "_s + object.value("identifier"_L1).toString();
  return event + u' ' + QString::number(object.value("job"_L1).toInt());
}

}  // namespace

QList<QJsonObject> DecantOutcome::objects() const {
  QList<QJsonObject> objects;
  for (const QByteArray &line : output.split('\n')) {
    if (line.isEmpty()) continue;
    const QJsonDocument document = QJsonDocument::fromJson(line);
    if (!document.isObject()) qWarning("not JSON: %s", line.constData());
    objects.append(document.object());
  }
  return objects;
}

QList<QJsonObject> DecantOutcome::events(const QString &event) const {
  QList<QJsonObject> found;
  for (const QJsonObject &object : objects()) {
    if (object.value("event"_L1) == event) found.append(object);
  }
  return found;
}

QStringList DecantOutcome::texts(const QString &event, QLatin1StringView key) const {
  QStringList texts;
  for (const QJsonObject &each : events(event))
    texts.append(each.value(key).toString());
  return texts;
}

QStringList DecantOutcome::story() const {
  QStringList story;
  for (const QJsonObject &object : objects()) {
    if (object.value("event"_L1) != "progress"_L1) story.append(storyOf(object));
  }
  return story;
}

DecantProgram::DecantProgram() {
  QFile::setPermissions(m_folder.path(), openToAll);
  for (const auto folder :
       {"bundle/resources"_L1, "config"_L1, "data"_L1, "home"_L1, "tmp"_L1, "movies"_L1})
    QDir().mkpath(m_folder.filePath(folder));
  copyOrDie(buildtree::bundle(u"decant"_s), program());
  copyOrDie(buildtree::bundle(u"resources/Info.json"_s),
            m_folder.filePath(u"bundle/resources/Info.json"_s));
  setTool(buildtree::scriptedTool());
  // An empty one makes the tool note its calls.
  if (!scenario().write()) qFatal("cannot write the scenario");
  m_environment = QProcessEnvironment::systemEnvironment();
  for (const auto name : {"DISPLAY"_L1, "WAYLAND_DISPLAY"_L1, "LANGUAGE"_L1, "LC_ALL"_L1,
                          "LC_MESSAGES"_L1, "XDG_RUNTIME_DIR"_L1})
    m_environment.remove(name);
  m_environment.insert(u"LANG"_s, u"C.UTF-8"_s);
  m_environment.insert(u"HOME"_s, m_folder.filePath(u"home"_s));
  m_environment.insert(u"XDG_CONFIG_HOME"_s, m_folder.filePath(u"config"_s));
  m_environment.insert(u"XDG_DATA_HOME"_s, m_folder.filePath(u"data"_s));
  m_environment.insert(u"TMPDIR"_s, tempFolder());
  m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nonexistent"_s);
  m_environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, u"unix:path=/nonexistent"_s);
  m_environment.insert(u"decant"_s, program());
}

DecantProgram::~DecantProgram() = default;

QString DecantProgram::path(const QString &relative) const {
  return m_folder.filePath(u"movies/"_s + relative);
}

QString DecantProgram::program() const {
  return m_folder.filePath(u"bundle/decant"_s);
}

QString DecantProgram::tool() const {
  return m_folder.filePath(u"bundle/resources/ffmpeg"_s);
}

QString DecantProgram::settingsFile() const {
  return m_folder.filePath(u"config/org.decant.Decant.conf"_s);
}

QString DecantProgram::supportFolder() const {
  return m_folder.filePath(u"data/Decant"_s);
}

QString DecantProgram::tempFolder() const {
  return m_folder.filePath(u"tmp"_s);
}

Scenario DecantProgram::scenario() const {
  return Scenario(tool() + u".scenario"_s);
}

QStringList DecantProgram::conversion(qsizetype index) const {
  return scenario().arguments(u"conversion"_s).value(index);
}

void DecantProgram::setTool(const QString &path) const {
  QFile::remove(tool());
  if (!path.isNull()) copyOrDie(path, tool());
}

QString DecantProgram::file(const QString &relative, const QByteArray &bytes) const {
  const QString made = path(relative);
  QDir().mkpath(QFileInfo(made).path());
  if (!wholefile::write(made, bytes)) qFatal("cannot write %s", qUtf8Printable(made));
  return made;
}

QStringList DecantProgram::files() const {
  const QString root = path(QString());
  QStringList found;
  QDirIterator walk(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
  while (walk.hasNext()) {
    walk.next();
    const QString end = walk.fileInfo().isDir() ? u"/"_s : QString();
    found.append(walk.filePath().sliced(root.size()) + end);
  }
  found.sort();
  return found;
}

QByteArray DecantProgram::settings() const {
  return wholefile::read(settingsFile());
}

std::unique_ptr<QProcess> DecantProgram::launch(const QString &executable,
                                                const QStringList &arguments) const {
  auto process = std::make_unique<QProcess>();
  process->setProcessEnvironment(m_environment);
  process->setWorkingDirectory(path(QString()));
  process->setStandardInputFile(QProcess::nullDevice());
  process->start(executable, arguments);
  return process;
}

std::unique_ptr<QProcess> DecantProgram::start(const QStringList &arguments) const {
  return launch(program(), arguments);
}

DecantOutcome DecantProgram::end(QProcess &process) {
  constexpr int deadline = 60000;
  DecantOutcome outcome;
  if (process.waitForFinished(deadline) && process.exitStatus() == QProcess::NormalExit)
    outcome.status = process.exitCode();
  outcome.output = process.readAllStandardOutput();
  outcome.error = process.readAllStandardError();
  return outcome;
}

DecantOutcome DecantProgram::run(const QStringList &arguments) const {
  return end(*start(arguments));
}

DecantOutcome DecantProgram::shell(const QByteArray &script) const {
  // In a file: a process's arguments would have to be UTF-8.
  const QString scriptFile = m_folder.filePath(u"script"_s);
  if (!wholefile::write(scriptFile, script)) qFatal("cannot write a script");
  return end(*launch(u"/bin/bash"_s, {scriptFile}));
}

DecantOutcome DecantProgram::shellAsNobody(const QByteArray &script) const {
  if (::geteuid() != 0) return shell(script);
  const QByteArray given =
      "chown -R 65534:65534 \"$HOME\" \"$XDG_CONFIG_HOME\" \"$XDG_DATA_HOME\"; "
      "exec setpriv --reuid=65534 --regid=65534 --clear-groups /bin/bash -c '";
  return shell(given + script + '\'');
}
