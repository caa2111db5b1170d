#pragma once

#include <signal.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QHash>
#include <QList>

// The processes that draw the pages of this test: the engine forks them from helpers of its own.
[[nodiscard]] inline QList<pid_t> renderers() {
  QHash<pid_t, pid_t> parents;  // of the engine's processes
  const QStringList numbers = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
  for (const QString &number : numbers) {
    QFile stat(QString(QStringLiteral("/proc/") + number + QStringLiteral("/stat")));
    if (number.toInt() <= 0 || !stat.open(QIODevice::ReadOnly)) continue;
    const QByteArray line = stat.readAll();
    if (!line.contains("(QtWebEngine")) continue;
    const QByteArray parent = line.mid(line.lastIndexOf(')') + 4).split(' ').constFirst();
    parents.insert(number.toInt(), parent.toInt());
  }
  const auto isOurs = [&](pid_t pid) {
    while (parents.contains(pid))
      pid = parents.value(pid);
    return pid == getpid();
  };
  QList<pid_t> drawing = parents.keys();
  drawing.removeIf([&](pid_t pid) {
    return !parents.contains(parents.value(pid)) || !parents.keys(pid).isEmpty() || !isOurs(pid);
  });
  return drawing;
}

// As when the machine is short of memory.
[[nodiscard]] inline bool endRenderers() {
  const QList<pid_t> found = renderers();
  for (const pid_t pid : found)
    kill(pid, SIGKILL);
  return !found.isEmpty();
}
