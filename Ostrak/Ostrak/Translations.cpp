#include "Translations.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>

namespace ostrak {
using namespace Qt::StringLiterals;

namespace {

// Only a file of that very name: the loader would go on with shorter ones, up to another language.
bool loadCatalogue(QTranslator &translator, const QString &folder, const QString &name) {
  const QString path = folder + u'/' + name;
  return QFileInfo::exists(path + u".qm"_s) && translator.load(path);
}

}  // namespace

Translations::Translations(const QString &folder, const QStringList &languages)
    : m_language(u"en"_s) {
  for (const QString &language : languages) {
    if (language == u"en"_s) return;
    if (language.contains(u'/')) continue;
    if (!loadCatalogue(m_program, folder, u"decant_"_s + language)) continue;
    m_language = language;
    break;
  }
  if (m_program.isEmpty()) return;
  QCoreApplication::installTranslator(&m_program);
  const QString shared = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (loadCatalogue(m_toolkit, shared, u"qtbase_"_s + m_language))
    QCoreApplication::installTranslator(&m_toolkit);
}

}  // namespace ostrak
