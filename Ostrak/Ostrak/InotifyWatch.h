#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <functional>

#include "Descriptor.h"

namespace ostrak {

// What the kernel tells about a watched folder; the bits of `mask` are inotify's.
struct InotifyEvent {
  int watch = -1;  // -1 when events were lost
  quint32 mask = 0;
  QByteArray name;  // of the entry that it is about; empty for the folder itself
};

// The kernel's watches of folders, all on one descriptor. One thread at a time.
class InotifyWatch final {
 public:
  InotifyWatch();
  // False when the system has no more room for one.
  [[nodiscard]] bool isReady() const { return bool(m_descriptor); }
  // Readable when events wait.
  [[nodiscard]] int descriptor() const { return m_descriptor.get(); }

  // Watches a folder for the events of `mask`; one that is watched already takes the new mask and
  // keeps its number. Returns the number, or -errno.
  [[nodiscard]] int add(const QByteArray &path, quint32 mask) const;
  // The same for an open folder, wherever its path leads by now.
  [[nodiscard]] int add(int folder, quint32 mask) const;
  void remove(int watch) const;
  // Gives away all events that wait, in their order.
  void read(const std::function<void(const InotifyEvent &)> &tell) const;

 private:
  Descriptor m_descriptor;
};

}  // namespace ostrak
