#include "Task.h"

#include <QStringDecoder>

#include "../ChildProcess.h"
#include "../Logging.h"

namespace ostrak {
using namespace Qt::StringLiterals;

namespace {

// In UTF-16 code units. Well below what the system takes, so that the warning comes before the
// failure.
constexpr qint64 argumentSizeLimit = 200'000;

std::optional<QString> strictUtf8(const QByteArray &bytes) {
  using Flag = QStringConverter::Flag;
  // A byte order mark is part of the text, and a sequence cut off at the end is an error.
  QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
  QString text = decoder(bytes);
  if (decoder.hasError()) return {};
  return text.isNull() ? u""_s : text;
}

}  // namespace

std::optional<QString> runAsTaskWithTerminationStatus(const QStringList &command,
                                                      qint32 *exitStatus) {
  if (command.isEmpty()) return {};
  const QStringList arguments = command.mid(1);
  qint64 size = 0;
  for (const QString &argument : arguments)
    size += argument.size();
  if (size > argumentSizeLimit) {
    tk_log_level(3, u"Error: task argument size approaching or above limit, spawn will fail"_s);
  }

  QByteArray output;
  ChildSetup setup;
  setup.executable = command.first();
  setup.arguments = arguments;
  setup.inheritInput = true;
  const ChildResult result = runChild(setup, output);
  if (result.end == ChildResult::End::FailedToStart) return {};
  if (exitStatus) {
    *exitStatus = result.end == ChildResult::End::Exited ? result.exitStatus : result.signal;
  }
  return strictUtf8(output);
}

std::optional<QString> runAsTask(const QStringList &command) {
  return runAsTaskWithTerminationStatus(command, nullptr);
}

}  // namespace ostrak
