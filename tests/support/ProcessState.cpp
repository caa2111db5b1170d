#include "ProcessState.h"

#include "WholeFile.h"

using namespace Qt::StringLiterals;

char processState(qint64 pid) {
  const QByteArray line = wholefile::read(u"/proc/%1/stat"_s.arg(pid));
  const qsizetype endOfName = line.lastIndexOf(')');  // which may hold any letter
  return endOfName < 0 ? ' ' : line.at(endOfName + 2);
}
