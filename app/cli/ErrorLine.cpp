#include "ErrorLine.h"

#include "Printable.h"
#include "TextSink.h"

using namespace Qt::StringLiterals;

namespace decant {

void writeErrorLine(TextSink &standardError, const QString &sentence) {
  const QString line = u"decant: "_s + onOneLine(sentence) + u'\n';
  standardError.write(line.toUtf8());
}

void writeErrorLine(TextSink &standardError, const QString &path, const QString &sentence) {
  // Below its first line a problem report shows the command line, which holds every path.
  const QString first = sentence.section(u'\n', 0, 0);
  const bool isNamed = path.isNull() || first.contains(printable(path));
  writeErrorLine(standardError, isNamed ? sentence : QString(path + u": "_s + sentence));
}

}  // namespace decant
