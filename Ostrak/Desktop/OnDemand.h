#pragma once

#include <QObject>
#include <QString>

namespace ostrak {

// What few people need is kept out of the program's start: it lies in a library of its own in the
// bundle, lib/libNAME.so, and comes when it is first wanted. It stays until the process ends.

struct OnDemandLibrary {
  QObject *object = nullptr;  // the library's; null when it cannot be had
  QString problem;            // why not
};

// Main thread.
[[nodiscard]] OnDemandLibrary loadOnDemand(const QString &name);

}  // namespace ostrak
