#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

// Runs the program with its window, on the desktop's real services: the files among `arguments` go
// to the running instance when there is one. `languages` are the user's identifiers. Returns the
// status that the process ends with.
[[nodiscard]] int windowMain(int argc, char **argv, const QList<QByteArray> &arguments,
                             const QStringList &languages);
