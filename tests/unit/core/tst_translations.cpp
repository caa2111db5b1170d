#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include "BuildTree.h"
#include "Text.h"
#include "Translations.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using ostrak::localized;
using ostrak::Translations;

namespace {

const QString catalogues = buildtree::bundle(u"resources/translations"_s);

QString toolkitsCancel() {
  return QCoreApplication::translate("QPlatformTheme", "Cancel");
}

}  // namespace

class TestTranslations final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void takesTheFirstLanguageThereIs_data() {
    QTest::addColumn<QStringList>("languages");
    QTest::addColumn<QString>("language");
    QTest::newRow("German first") << QStringList{u"de"_s, u"en"_s} << u"de"_s;
    QTest::newRow("English first") << QStringList{u"en"_s, u"de"_s} << u"en"_s;
    QTest::newRow("one without a catalogue first") << QStringList{u"xx"_s, u"de"_s} << u"de"_s;
    QTest::newRow("one without a catalogue, then English")
        << QStringList{u"xx"_s, u"en"_s, u"de"_s} << u"en"_s;
    QTest::newRow("no catalogue at all") << QStringList{u"xx"_s, u"yy"_s} << u"en"_s;
    QTest::newRow("no language") << QStringList() << u"en"_s;
    QTest::newRow("an empty one") << QStringList{u""_s, u"de"_s} << u"de"_s;
    QTest::newRow("a region of one") << QStringList{u"de_AT"_s} << u"en"_s;
    QTest::newRow("a path") << QStringList{u"x/../decant_de"_s} << u"en"_s;
  }

  void takesTheFirstLanguageThereIs() {
    QFETCH(const QStringList, languages);
    QFETCH(const QString, language);
    const bool german = language == u"de"_s;
    {
      const Translations translations(catalogues, languages);
      QCOMPARE(translations.language(), language);
      QCOMPARE(localized(u"Finished"_s), german ? u"Fertig"_s : u"Finished"_s);
      QCOMPARE(toolkitsCancel(), german ? u"Abbrechen"_s : u"Cancel"_s);
    }
    QCOMPARE(localized(u"Finished"_s), u"Finished"_s);
    QCOMPARE(toolkitsCancel(), u"Cancel"_s);
  }

  void givesOneTextWithoutBeingInstalled() {
    const QString none =
        u"There is no display to open a window on; convert movies with: decant convert FILE"_s;
    const auto textFor = [&none](const QString &language) {
      return Translations::textOf(catalogues, {language}, none);
    };
    QCOMPARE(textFor(u"de"_s),
             u"Für ein Fenster fehlt der Bildschirm; Filme umwandeln mit: decant convert DATEI"_s);
    QCOMPARE(textFor(u"en"_s), none);
    QCOMPARE(textFor(u"xx"_s), none);
    QCOMPARE(Translations::textOf(catalogues, {u"de"_s}, u"not in there"_s), u"not in there"_s);
    QCOMPARE(localized(u"Finished"_s), u"Finished"_s);
  }

  // Texts with several lines, arguments and letters beyond ASCII are found, too.
  void translatesAllKindsOfTexts() {
    const Translations translations(catalogues, {u"de"_s});
    QCOMPARE(localized(u"%@ Conversion Failed"_s), u"%@: Umwandlung fehlgeschlagen"_s);
    QCOMPARE(localized(u"%@  …\n(Remaining message omitted)"_s),
             u"%@  …\n(Rest der Meldung weggelassen)"_s);
    QCOMPARE(localized(u"no text of the program"_s), u"no text of the program"_s);
  }

  // The folder of the documents is a text of the catalogue; each language has every page.
  void leadsToDocumentsOfItsOwn() {
    const Translations translations(catalogues, {u"de"_s});
    QCOMPARE(localized(u"documents/en"_s), u"documents/de"_s);
    const auto pagesIn = [](const QString &folder) {
      return QDir(buildtree::source(QString(u"app/resources/"_s + folder))).entryList(QDir::Files);
    };
    QVERIFY(pagesIn(u"documents/en"_s).size() > 1);
    QCOMPARE(pagesIn(u"documents/de"_s), pagesIn(u"documents/en"_s));
  }

  void passesOverADamagedCatalogue() {
    const QTemporaryDir folder;
    QVERIFY(wholefile::write(folder.filePath(u"decant_xx.qm"_s), "no catalogue"));
    QVERIFY(QFile::copy(catalogues + u"/decant_de.qm"_s, folder.filePath(u"decant_de.qm"_s)));
    const Translations translations(folder.path(), {u"xx"_s, u"de"_s});
    QCOMPARE(translations.language(), u"de"_s);
  }
};

QTEST_GUILESS_MAIN(TestTranslations)
#include "tst_translations.moc"
