#include "ListOfTexts.h"

#include <QRegularExpression>

#include "Logging.h"

using namespace Qt::StringLiterals;

namespace ostrak {

QString joined(const QStringList &texts, const QString &separator) {
  return texts.join(separator);
}

QString path(const QStringList &components) {
  QString result;
  for (const QString &component : components) {
    if (result.isEmpty() && component.startsWith(u'/')) result = u"/"_s;
    for (const QStringView part : QStringView(component).split(u'/', Qt::SkipEmptyParts)) {
      if (!result.isEmpty() && !result.endsWith(u'/')) result.append(u'/');
      result.append(part);
    }
  }
  return result;
}

QString string(const QStringList &texts) {
  return texts.join(u""_s);
}

QStringList filteredUsingPredicateString(const QStringList &texts, const QString &predicate) {
  const QRegularExpression expression(predicate);
  if (!expression.isValid()) {
    tk_log_level(3, u"Error: no predicate: %@ %@"_s, predicate, expression.errorString());
    return {};
  }
  return texts.filter(expression);
}

void filterUsingPredicateString(QStringList &texts, const QString &predicate) {
  texts = filteredUsingPredicateString(texts, predicate);
}

}  // namespace ostrak
