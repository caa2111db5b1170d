#include "Logging.h"

#include <fcntl.h>
#include <syslog.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QLocale>
#include <QStringEncoder>
#include <array>
#include <atomic>
#include <cerrno>

#include "Defaults.h"
#include "Ostrak.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

constexpr int levels = 8;
constexpr quint64 slotsPerLevel = 10;
constexpr quint64 generalSlots = 43;

constexpr std::array<const char *, levels> levelNames{"Emergency", "Alert",  "Critical", "Error",
                                                      "Warning",   "Notice", "Info",     "Debug"};

std::array<std::atomic<quint64>, levels> ringPositions{};
std::atomic<quint64> generalPosition{0};
std::atomic<int> captureDescriptor{-1};

int validLevel(int level) {
  return qBound(0, level, levels - 1);
}

// The value of a ring's slot.
QString ringEntry(const QString &message) {
  const QString date = QDateTime::currentDateTimeUtc().toString(u"yyyy-MM-dd hh:mm:ss '+0000'"_s);
  return makeString(u"date: %@ message: %@"_s, date, message);
}

void writeWhole(int descriptor, const QByteArray &bytes) {
  for (qsizetype at = 0; at < bytes.size();) {
    const ssize_t written =
        ::write(descriptor, bytes.constData() + at, static_cast<std::size_t>(bytes.size() - at));
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    at += written;
  }
}

// Cuts a file to its last `maxSize` bytes.
void trimToEnd(QFile &file, quint64 maxSize) {
  const auto kept = static_cast<qint64>(maxSize);
  if (!file.open(QIODevice::ReadWrite)) return;
  if (file.seek(file.size() - kept)) {
    const QByteArray end = file.readAll();
    if (file.seek(0) && file.write(end) == end.size() && file.flush()) {
      (void)file.resize(kept);
      (void)::fsync(file.handle());
    }
  }
  file.close();
}

void toSystemLog(int level, const QString &message) {
  if (tk && tk->setup().systemLog) {
    tk->setup().systemLog(level, message);
  } else {
    ::syslog(level, "%s", message.toUtf8().constData());
  }
}

int levelOfQtMessage(QtMsgType type) {
  switch (type) {
    case QtFatalMsg:
      return LOG_CRIT;
    case QtCriticalMsg:
      return LOG_ERR;
    case QtWarningMsg:
      return LOG_WARNING;
    case QtInfoMsg:
      return LOG_INFO;
    case QtDebugMsg:
      break;
  }
  return LOG_DEBUG;
}

QString prefixOfQtMessage(QtMsgType type) {
  switch (type) {
    case QtFatalMsg:
    case QtCriticalMsg:
      return u"Error: "_s;
    case QtWarningMsg:
      return u"Warning: "_s;
    case QtInfoMsg:
    case QtDebugMsg:
      break;
  }
  return u"Info: "_s;
}

void logQtMessage(QtMsgType type, const QMessageLogContext &, const QString &text) {
  // A message that logging itself brings about goes no further.
  thread_local bool busy = false;
  if (busy) return;
  busy = true;
  tk_log_level(levelOfQtMessage(type), u"%@%@"_s, prefixOfQtMessage(type), text);
  busy = false;
}

}  // namespace

void deliverLog(int level, const QString &message) {
  const int valid = validLevel(level);
  _tk_log_tologfile(valid, message);
  _tk_log_toprefs(valid, message);
  toSystemLog(valid, message);
}

void _tk_log_tologfile(int level, const QString &message) {
  const int descriptor = captureDescriptor.load();
  if (descriptor < 0) return;
  const QDateTime now = QDateTime::currentDateTime();
  const QString date =
      QLocale(QLocale::English, QLocale::UnitedStates).toString(now.date(), u"MMM dd"_s);
  const QString time = QLocale::system().toString(now.time(), QLocale::ShortFormat);
  const QString line = makeString(
      u"%@ %@  %@[%i] <%@>: %@\n"_s, date, time, tk ? tk->appName() : QString(),
      QCoreApplication::applicationPid(),
      QString::fromLatin1(levelNames.at(static_cast<std::size_t>(validLevel(level)))), message);
  QStringEncoder encoder(QStringEncoder::Utf8);
  const QByteArray bytes = encoder.encode(line);
  if (encoder.hasError()) {
    // The line itself cannot be written; what can be of it goes into the message.
    tk_log_level(LOG_ERR, u"could not open create data from string %@ for log"_s,
                 QString::fromUtf8(bytes));
    return;
  }
  writeWhole(descriptor, bytes);
}

void _tk_log_toprefs(int level, const QString &message) {
  const int valid = validLevel(level);
  const quint64 position = ringPositions.at(static_cast<std::size_t>(valid))++ % slotsPerLevel;
  setDefaultString(makeString(u"ostrak_asl_lev%i_pos%i"_s, valid, position), ringEntry(message));
}

void log_to_prefs(const QString &message) {
  const quint64 position = generalPosition++ % generalSlots;
  setDefaultString(makeString(u"ostrak_logtoprefs_pos%i"_s, position), ringEntry(message));
}

void restartLogRings() {
  for (auto &position : ringPositions)
    position = 0;
  generalPosition = 0;
}

void tk_log_enablecapturetofile(const QUrl &fileLocation, quint64 maxSize) {
  const QString path = fileLocation.toLocalFile();
  QFile file(path);
  if (maxSize != 0 && file.exists() && static_cast<quint64>(file.size()) > maxSize) {
    trimToEnd(file, maxSize);
  }
  constexpr mode_t permissions = 0644;
  const int opened = ::open(QFile::encodeName(path).constData(),
                            O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, permissions);
  if (opened < 0) {
    tk_log_level(LOG_ERR, u"could not open file %@ for log file usage"_s, path);
    return;
  }
  int earlier = -1;
  if (captureDescriptor.compare_exchange_strong(earlier, opened)) return;
  // Another thread may be writing: the number stays and means the new file from now on.
  ::dup3(opened, earlier, O_CLOEXEC);
  ::close(opened);
}

QtMessageHandler installQtMessageLog() {
  return qInstallMessageHandler(logQtMessage);
}

}  // namespace ostrak
