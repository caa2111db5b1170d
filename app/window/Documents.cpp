#include "Documents.h"

#include "Text.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace decant {

QString documentName(const QString &name) {
  // The folder is translated like a text, so that the documents go with the language of the texts.
  const QString own = ostrak::localized(u"documents/en"_s) + u'/' + name;
  if (!ostrak::resourcePath(own).isNull()) return own;
  return u"documents/en/"_s + name;
}

}  // namespace decant
