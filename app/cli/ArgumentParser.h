#pragma once

#include "Invocation.h"

namespace decant {

struct ParsedArguments {
  Invocation invocation;  // with a problem, only its topic counts
  QString problem;        // what is wrong, as a sentence; null when nothing is
};

// Reads the arguments after the program's name. Strict: an option that the command does not have,
// one given twice, a missing or superfluous word is a problem. Options may stand anywhere before
// "--"; what follows that is taken as it is. Pure.
[[nodiscard]] ParsedArguments parseArguments(const QList<QByteArray> &arguments);

}  // namespace decant
