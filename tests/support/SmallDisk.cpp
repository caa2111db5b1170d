#include "SmallDisk.h"

#include <sched.h>
#include <sys/mount.h>

SmallDisk::SmallDisk(const QString &folder) : m_folder(QFile::encodeName(folder)) {
  m_mounted = ::unshare(CLONE_NEWNS) == 0 &&
              ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
              ::mount("tmpfs", m_folder.constData(), "tmpfs", 0, "size=1m") == 0;
}

SmallDisk::~SmallDisk() {
  if (m_mounted) ::umount2(m_folder.constData(), MNT_DETACH);
}
