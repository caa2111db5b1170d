#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QRegularExpression>
#include <QTest>

#include "BuildTree.h"
#include "DecantProgram.h"

using namespace Qt::StringLiterals;

class TestCliLanguage final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }
  void followsTheEnvironment_data();
  void followsTheEnvironment();
  void keysStayEnglish();
  void aDisplayThatDoesNotAnswer();
};

namespace {

void putCatalogueInto(const DecantProgram &program) {
  const QDir bundle = QFileInfo(program.program()).dir();
  const QString catalogue = u"resources/translations/decant_de.qm"_s;
  QVERIFY(bundle.mkpath(u"resources/translations"_s));
  QVERIFY(QFile::copy(buildtree::bundle(catalogue), bundle.filePath(catalogue)));
}

}  // namespace

void TestCliLanguage::followsTheEnvironment_data() {
  QTest::addColumn<QString>("LANGUAGE");
  QTest::addColumn<QString>("LANG");
  QTest::addColumn<QByteArray>("begin");
  const QByteArray english = "usage: decant ";
  const QByteArray german = "Aufruf: decant ";
  QTest::newRow("German") << QString() << u"de_DE.UTF-8"_s << german;
  QTest::newRow("of Austria") << QString() << u"de_AT"_s << german;
  QTest::newRow("German, then English") << u"de:en"_s << u"en_US.UTF-8"_s << german;
  QTest::newRow("English, then German") << u"en:de"_s << u"de_DE.UTF-8"_s << english;
  QTest::newRow("none that there is, then German") << u"tlh:de"_s << u"C"_s << german;
  QTest::newRow("none that there is") << QString() << u"tlh"_s << english;
  QTest::newRow("C") << QString() << u"C"_s << english;
}

void TestCliLanguage::followsTheEnvironment() {
  QFETCH(const QString, LANGUAGE);
  QFETCH(const QString, LANG);
  QFETCH(const QByteArray, begin);
  DecantProgram program;
  putCatalogueInto(program);
  program.environment().insert(u"LANG"_s, LANG);
  if (!LANGUAGE.isNull()) program.environment().insert(u"LANGUAGE"_s, LANGUAGE);
  const DecantOutcome outcome = program.run({u"--help"_s});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.output.first(begin.size()), begin);
}

// What programs read is the same for all users, what people read is in their language.
void TestCliLanguage::keysStayEnglish() {
  DecantProgram program;
  putCatalogueInto(program);
  program.environment().insert(u"LANG"_s, u"de_DE.UTF-8"_s);
  program.file(u"a.mkv"_s);
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"missing.mkv"_s});
  QCOMPARE(outcome.story().last(), u"summary 1 1"_s);
  QVERIFY(outcome.output.contains("Die Datei „missing.mkv“ gibt es nicht."));
  const DecantOutcome settings = program.run({u"settings"_s, u"get"_s, u"AutoAdd"_s});
  QCOMPARE(settings.output, QByteArray("0\n"));
}

// The toolkit gives up before there is an application that could be asked for texts.
void TestCliLanguage::aDisplayThatDoesNotAnswer() {
  DecantProgram program;
  putCatalogueInto(program);
  program.environment().insert(u"LANGUAGE"_s, u"de"_s);
  program.environment().insert(u"DISPLAY"_s, u":65000"_s);
  const DecantOutcome outcome = program.run({program.file(u"a.mkv"_s)});
  QCOMPARE(outcome.status, 1);
  QVERIFY2(outcome.error.contains("Filme umwandeln mit: decant convert DATEI\n"),
           outcome.error.constData());
}

QTEST_GUILESS_MAIN(TestCliLanguage)
#include "tst_cli_language.moc"
