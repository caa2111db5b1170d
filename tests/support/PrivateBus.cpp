#include "PrivateBus.h"

#include <sys/prctl.h>

#include <QDir>
#include <QFile>
#include <csignal>

#include "ProcessState.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto configuration =
    "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
    " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
    "<busconfig><type>session</type><listen>unix:path=%1/bus</listen>\n"
    "<servicedir>%1/services</servicedir>\n"
    "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>\n"
    "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n";

// Starts it so that it dies with the test, and returns the first line that it prints.
QByteArray firstLine(QProcess &process, const QString &program, const QStringList &arguments) {
  process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
  process.start(program, arguments);
  while (!process.canReadLine() && process.waitForReadyRead()) {
  }
  return process.readLine().trimmed();
}

void stop(QProcess &process) {
  if (process.state() == QProcess::NotRunning) return;
  process.kill();
  process.waitForFinished();
}

}  // namespace

PrivateBus::PrivateBus() {
  QDir(m_folder.path()).mkdir(u"services"_s);
  const QString file = m_folder.filePath(u"bus.conf"_s);
  if (!wholefile::write(file, QString::fromLatin1(configuration).arg(m_folder.path()).toUtf8()))
    return;
  m_address = QString::fromUtf8(
      firstLine(m_daemon, u"dbus-daemon"_s,
                {u"--nofork"_s, u"--print-address"_s, u"--config-file="_s + file}));
}

PrivateBus::~PrivateBus() {
  end();
}

void PrivateBus::end() {
  stop(m_daemon);
}

bool PrivateBus::makeActivatable(const QString &name, const QStringList &command) const {
  const QString text =
      u"[D-BUS Service]\nName=%1\nExec=\"%2\"\n"_s.arg(name, command.join(u"\" \""_s));
  return wholefile::write(m_folder.filePath(u"services/%1.service"_s.arg(name)), text.toUtf8());
}

MockService::MockService(const PrivateBus &bus, const QString &script,
                         const QStringList &arguments) {
  const QStringList words{script, bus.address(), m_folder.filePath(u"log"_s)};
  m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  m_ready = firstLine(m_process, interpreter(), words + arguments) == "ready";
}

MockService::~MockService() {
  stop(m_process);
}

QString MockService::interpreter() {
  // The mock library belongs to the system's Python, whatever else PATH has.
  return u"/usr/bin/python3"_s;
}

QStringList MockService::log() const {
  return logOf(m_folder.filePath(u"log"_s));
}

QStringList MockService::logOf(const QString &path) {
  QStringList lines;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return lines;
  while (!file.atEnd()) {
    const QString line = QString::fromUtf8(file.readLine()).trimmed();
    lines.append(line.mid(line.indexOf(u' ') + 1));
  }
  return lines;
}

bool MockService::isFrozen() const {
  return processState(m_process.processId()) == 'T';
}

void MockService::thaw() const {
  // 0 would mean every process of the test's group.
  const pid_t pid = static_cast<pid_t>(m_process.processId());
  if (pid > 0) ::kill(pid, SIGCONT);
}
