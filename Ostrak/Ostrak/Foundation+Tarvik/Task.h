#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace ostrak {

// Runs the tool whose absolute path is element 0 with the other elements as its arguments, waits
// for its end and returns its standard output and standard error, merged as they came, as text.
// Nothing when it could not be started or printed what is not UTF-8. `exitStatus`, where given, is
// set only when the tool ran. Environment, working folder and standard input are the caller's.
// Blocks; any thread.
[[nodiscard]] std::optional<QString> runAsTaskWithTerminationStatus(const QStringList &command,
                                                                    qint32 *exitStatus);
[[nodiscard]] std::optional<QString> runAsTask(const QStringList &command);

}  // namespace ostrak
