#include "BuildTree.h"

namespace buildtree {

QString source(const QString &relative) {
  return QStringLiteral(DECANT_SOURCE_DIR "/") + relative;
}

QString bundle(const QString &relative) {
  return QStringLiteral(DECANT_BUNDLE_DIR "/") + relative;
}

QString scriptedTool() {
  return QStringLiteral(DECANT_SCRIPTED_TOOL);
}

}  // namespace buildtree
