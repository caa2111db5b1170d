#include "ProgressFileName.h"

#include "File.h"

namespace decant {
using namespace Qt::StringLiterals;

namespace {

constexpr auto extension = ".log"_L1;
constexpr qsizetype roomForNumber = 6;  // "-99999"

}  // namespace

QString progressFileName(const QString &fileName) {
  const qsizetype room = ostrak::longestFileName - extension.size() - roomForNumber;
  return ostrak::nameCutToBytes(fileName, room) + extension;
}

}  // namespace decant
