#pragma once

#include <QString>

namespace decant {

class TextSink;

// "decant: " and the sentence, as one line on standard error.
void writeErrorLine(TextSink &standardError, const QString &sentence);
// The same about a file, whose path comes first unless the sentence names it; a null path is about
// none.
void writeErrorLine(TextSink &standardError, const QString &path, const QString &sentence);

}  // namespace decant
