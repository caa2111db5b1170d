#include <QHash>
#include <QLocale>
#include <QObject>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <QTest>
#include <algorithm>

#include "LanguageTable.h"

using namespace Qt::StringLiterals;
using decant::bibliographicOfTwoLetters;
using decant::languageTable;
using decant::languageTwins;

class TestLanguageTable final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }
  void isComplete();
  void isSorted();
  void doubledLanguages_data();
  void doubledLanguages();
  void tellingRows_data();
  void tellingRows();
  void withdrawnCodesAreAbsent_data();
  void withdrawnCodesAreAbsent();
  void agreesWithTheToolkit();
};

void TestLanguageTable::isComplete() {
  QCOMPARE(languageTable().size(), 204u);
  QHash<QString, QStringList> rows;
  QSet<QString> threeLetters;
  for (const auto &row : languageTable()) {
    rows[row.twoLetters.toString()].append(row.bibliographic.toString());
    threeLetters.insert(row.bibliographic.toString());
    QCOMPARE(row.twoLetters.size(), 2);
    QCOMPARE(row.bibliographic.size(), 3);
  }
  QCOMPARE(rows.size(), 184);
  QCOMPARE(threeLetters.size(), 184);
  const auto doubled = std::count_if(rows.begin(), rows.end(), [](const QStringList &codes) {
    return codes.size() == 2 && codes[0] == codes[1];
  });
  QCOMPARE(doubled, 20);
}

void TestLanguageTable::isSorted() {
  const auto table = languageTable();
  QVERIFY(std::is_sorted(table.begin(), table.end(), [](const auto &row, const auto &other) {
    return row.twoLetters < other.twoLetters;
  }));
}

void TestLanguageTable::doubledLanguages_data() {
  QTest::addColumn<QString>("terminology");
  QTest::addColumn<QString>("bibliographic");
  const char *const rows[][3] = {
      {"bo", "bod", "tib"}, {"cs", "ces", "cze"}, {"cy", "cym", "wel"}, {"de", "deu", "ger"},
      {"el", "ell", "gre"}, {"eu", "eus", "baq"}, {"fa", "fas", "per"}, {"fr", "fra", "fre"},
      {"hy", "hye", "arm"}, {"is", "isl", "ice"}, {"ka", "kat", "geo"}, {"mi", "mri", "mao"},
      {"mk", "mkd", "mac"}, {"ms", "msa", "may"}, {"my", "mya", "bur"}, {"nl", "nld", "dut"},
      {"ro", "ron", "rum"}, {"sk", "slk", "slo"}, {"sq", "sqi", "alb"}, {"zh", "zho", "chi"}};
  for (const auto &row : rows) {
    QTest::newRow(row[0]) << QString::fromLatin1(row[1]) << QString::fromLatin1(row[2]);
  }
}

void TestLanguageTable::doubledLanguages() {
  QFETCH(QString, terminology);
  QFETCH(QString, bibliographic);
  const QString twoLetters = QString::fromLatin1(QTest::currentDataTag());
  const auto table = languageTable();
  const auto rows = std::count_if(table.begin(), table.end(), [&](const auto &row) {
    return row.twoLetters == twoLetters && row.bibliographic == bibliographic;
  });
  QCOMPARE(rows, 2);
  QCOMPARE(bibliographicOfTwoLetters(twoLetters), QStringView(bibliographic));
  QCOMPARE(decant::bibliographicOf(terminology), QStringView(bibliographic));
  QCOMPARE(decant::bibliographicOf(bibliographic), QStringView(bibliographic));
  QCOMPARE(languageTwins().size(), 20u);
}

void TestLanguageTable::tellingRows_data() {
  QTest::addColumn<QString>("code");
  const char *const rows[][2] = {{"aa", "aar"}, {"zu", "zul"}, {"en", "eng"}, {"bh", "bih"},
                                 {"hr", "hrv"}, {"sr", "srp"}, {"he", "heb"}, {"id", "ind"},
                                 {"yi", "yid"}, {"jv", "jav"}, {"ja", "jpn"}, {"ru", "rus"},
                                 {"nb", "nob"}, {"nn", "nno"}, {"no", "nor"}, {"es", "spa"}};
  for (const auto &row : rows)
    QTest::newRow(row[0]) << QString::fromLatin1(row[1]);
}

void TestLanguageTable::tellingRows() {
  QFETCH(QString, code);
  const QString twoLetters = QString::fromLatin1(QTest::currentDataTag());
  QCOMPARE(bibliographicOfTwoLetters(twoLetters), QStringView(code));
}

void TestLanguageTable::withdrawnCodesAreAbsent_data() {
  QTest::addColumn<QString>("code");
  for (const char *code : {"iw", "in", "ji", "jw", "sh", "mo", "", "e", "eng", "EN", "zz"}) {
    QTest::newRow(code) << QString::fromLatin1(code);
  }
}

void TestLanguageTable::withdrawnCodesAreAbsent() {
  QFETCH(QString, code);
  QVERIFY(bibliographicOfTwoLetters(code).isNull());
}

void TestLanguageTable::agreesWithTheToolkit() {
  int compared = 0;
  for (const auto &row : languageTable()) {
    const auto language = QLocale::codeToLanguage(row.twoLetters, QLocale::ISO639Part1);
    if (language == QLocale::AnyLanguage) continue;
    QCOMPARE(row.bibliographic.toString(),
             QLocale::languageToCode(language, QLocale::ISO639Part2B));
    ++compared;
  }
  QVERIFY(compared > 150);
}

QTEST_GUILESS_MAIN(TestLanguageTable)
#include "tst_languagetable.moc"
