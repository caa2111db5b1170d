#include "RealProgramLauncher.h"

#include <QProcess>

bool RealProgramLauncher::launch(const QString &executable) {
  return QProcess::startDetached(executable, {});
}
