#include <QDir>

#include "Logging.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

// The text without what case and diacritics add.
QString folded(const QString &text) {
  QString plain;
  const QString decomposed = text.normalized(QString::NormalizationForm_KD);
  for (const QChar character : decomposed) {
    if (!character.isMark()) plain += character;
  }
  return plain.toCaseFolded();
}

// The name of the program that a core dump's file name tells.
QString crashedProgram(const QString &fileName) {
  constexpr auto systemdPrefix = "core."_L1;
  if (fileName.startsWith(systemdPrefix)) return fileName.sliced(systemdPrefix.size());
  if (fileName.startsWith(u'_')) {
    // The program's path with "_" for "/", then ".UID.crash".
    const QString path = fileName.section(u'.', 0, 0);
    return path.sliced(path.lastIndexOf(u'_') + 1);
  }
  return fileName;
}

}  // namespace

QStringList appCrashLogs(const QString &appName, const QStringList &folders) {
  QStringList found;
  const QString wanted = folded(appName);
  for (const QString &folder : folders) {
    const QStringList names = QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &name : names) {
      if (folded(crashedProgram(name)).startsWith(wanted)) found.append(name);
    }
  }
  return found;
}

}  // namespace ostrak
