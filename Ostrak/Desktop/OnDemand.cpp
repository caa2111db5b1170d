#include "OnDemand.h"

#include <QPluginLoader>

#include "Ostrak.h"

using namespace Qt::StringLiterals;

namespace ostrak {

OnDemandLibrary loadOnDemand(const QString &name) {
  QPluginLoader loader(tk->setup().bundlePath + u"/lib/lib"_s + name + u".so"_s);
  OnDemandLibrary library;
  library.object = loader.instance();
  if (!library.object) library.problem = loader.errorString();
  return library;
}

}  // namespace ostrak
