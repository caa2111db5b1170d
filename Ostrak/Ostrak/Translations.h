#pragma once

#include <QStringList>
#include <QTranslator>

namespace ostrak {

// What `localized` gives: the program's own catalogue, "decant_LANGUAGE.qm", and beside it that of
// Qt's dialogs and menus. The source texts are English. Made once, after the application object
// and before the first text is shown, on the main thread; the texts are English again when it is
// gone.
class Translations final {
 public:
  // `folder` holds the program's catalogues. `languages` are the user's identifiers ("de", "en"),
  // most preferred first; the first one that is English or has a catalogue is taken, English when
  // none is. A missing or damaged catalogue of Qt leaves Qt's texts English and is no error.
  Translations(const QString &folder, const QStringList &languages);
  Translations(const Translations &) = delete;
  Translations &operator=(const Translations &) = delete;

  // The identifier of the language taken.
  [[nodiscard]] const QString &language() const { return m_language; }

  // What `localized` would give, where no application object can be made: reads the catalogue for
  // this one text.
  [[nodiscard]] static QString textOf(const QString &folder, const QStringList &languages,
                                      const QString &key);

 private:
  QTranslator m_toolkit;
  QTranslator m_program;
  QString m_language;
};

}  // namespace ostrak
