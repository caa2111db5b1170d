#pragma once

#include <QObject>
#include <QString>

namespace ostrak {

// What few people need is kept out of the program's start: it lies in a library of its own in the
// bundle, lib/libNAME.so, and comes when it is first wanted. It stays until the process ends.

template <typename Interface>
struct OnDemand {
  Interface *library = nullptr;  // null when it cannot be had
  QString problem;               // why not
};

namespace detail {

[[nodiscard]] OnDemand<QObject> loadLibrary(const QString &name);
[[nodiscard]] QString holdsSomethingElse();

}  // namespace detail

// Main thread.
template <typename Interface>
[[nodiscard]] OnDemand<Interface> loadOnDemand(const QString &name) {
  const OnDemand<QObject> loaded = detail::loadLibrary(name);
  if (!loaded.library) return {nullptr, loaded.problem};
  auto *library = qobject_cast<Interface *>(loaded.library);
  return {library, library ? QString() : detail::holdsSomethingElse()};
}

}  // namespace ostrak
