#include "NamedImage.h"

#include <QFileInfo>

#include "Logging.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace ostrak {

QImage namedImage(const QString &name) {
  for (const QString &folder : {u""_s, u"images/"_s}) {
    for (const QString &extension : {u""_s, u".svg"_s, u".png"_s}) {
      const QString path = resourcePath(folder + name + extension);
      if (path.isNull() || !QFileInfo(path).isFile()) continue;
      if (QImage image(path); !image.isNull()) return image;
    }
  }
  tk_log_level(3, u"Error: there is no named image with name: %@"_s, name);
  return {};
}

}  // namespace ostrak
