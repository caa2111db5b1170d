#pragma once

#include <QFile>
#include <QString>

// A real file system of 1 MiB at an existing folder, for as long as it lives. Only this process and
// its children see it, so it goes with them whatever happens. Needs the right to mount: where the
// machine does not give it, `isThere` is false.
class SmallDisk final {
 public:
  explicit SmallDisk(const QString &folder);
  ~SmallDisk();
  SmallDisk(const SmallDisk &) = delete;
  SmallDisk &operator=(const SmallDisk &) = delete;

  [[nodiscard]] bool isThere() const { return m_mounted; }

 private:
  QByteArray m_folder;
  bool m_mounted = false;
};
