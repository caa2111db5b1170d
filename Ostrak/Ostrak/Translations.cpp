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

// Loads the catalogue of the first language that has one; returns that language.
QString loadFirst(QTranslator &translator, const QString &folder, const QStringList &languages) {
  for (const QString &language : languages) {
    if (language == u"en"_s) break;
    if (language.contains(u'/')) continue;
    if (loadCatalogue(translator, folder, u"decant_"_s + language)) return language;
  }
  return u"en"_s;
}

}  // namespace

Translations::Translations(const QString &folder, const QStringList &languages)
    : m_language(loadFirst(m_program, folder, languages)) {
  if (m_program.isEmpty()) return;
  QCoreApplication::installTranslator(&m_program);
  const QString shared = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (loadCatalogue(m_toolkit, shared, u"qtbase_"_s + m_language))
    QCoreApplication::installTranslator(&m_toolkit);
}

QString Translations::textOf(const QString &folder, const QStringList &languages,
                             const QString &key) {
  QTranslator catalogue;
  (void)loadFirst(catalogue, folder, languages);
  const QString text = catalogue.translate("decant", key.toUtf8().constData());
  return text.isEmpty() ? key : text;
}

}  // namespace ostrak
