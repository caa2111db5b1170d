#pragma once

#include <QString>
#include <QStringList>

namespace decant {

// Puts `piece` into the list so that its first argument stands at `position`.
inline void insertAt(QStringList &arguments, qsizetype position, const QStringList &piece) {
  for (const QString &argument : piece)
    arguments.insert(position++, argument);
}

// A stream of the first input as "-map" takes it: "0:3".
[[nodiscard]] inline QString streamSpecifier(int stream) {
  return u"0:" + QString::number(stream);
}

}  // namespace decant
