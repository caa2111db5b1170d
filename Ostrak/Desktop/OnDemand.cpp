#include "OnDemand.h"

#include <QPluginLoader>

#include "Ostrak.h"

using namespace Qt::StringLiterals;

namespace ostrak::detail {

OnDemand<QObject> loadLibrary(const QString &name) {
  QPluginLoader loader(tk->setup().bundlePath + u"/lib/lib"_s + name + u".so"_s);
  QObject *object = loader.instance();
  return {object, object ? QString() : loader.errorString()};
}

QString holdsSomethingElse() {
  return u"the library holds something else"_s;
}

}  // namespace ostrak::detail
