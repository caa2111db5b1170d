#include <QTest>

#include "ProgressFileName.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

constexpr int longestName = 255;
// The most that stays of a name.
constexpr int room = longestName - int(sizeof(".log") - 1) - int(sizeof("-99999") - 1);

}  // namespace

class TestProgressFileName : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

  void shortNamesStayWhole_data() {
    QTest::addColumn<QString>("name");
    for (const QString &name : {u"movie.mkv"_s, u""_s, u"a"_s, u"no ending"_s, u"Füße 🎬.mkv"_s,
                                u"a\nb.mkv"_s, QString(room, u'x')})
      QTest::newRow(qPrintable(name)) << name;
  }
  void shortNamesStayWhole() {
    QFETCH(QString, name);
    QCOMPARE(progressFileName(name), QString(name + u".log"_s));
  }

  // Each at every distance from the limit, so that a character stands across it.
  void longNamesAreCutBetweenCharacters_data() {
    QTest::addColumn<QString>("character");
    QTest::newRow("one byte") << u"x"_s;
    QTest::newRow("two bytes") << u"ü"_s;
    QTest::newRow("three bytes") << u"映"_s;
    QTest::newRow("four bytes") << u"🎬"_s;
  }
  void longNamesAreCutBetweenCharacters() {
    QFETCH(QString, character);
    for (int shift = 0; shift < 8; ++shift) {
      const QString name = QString(shift, u'a') + character.repeated(260) + u".mkv"_s;
      const QString made = progressFileName(name);
      QVERIFY(made.endsWith(u".log"));
      const QString stem = made.chopped(4);
      QVERIFY(name.startsWith(stem));
      QCOMPARE((stem.size() - shift) % character.size(), 0);
      const qsizetype bytes = stem.toUtf8().size();
      QVERIFY(bytes <= room);
      // Nothing more is cut than must be.
      QVERIFY(bytes > room - character.toUtf8().size());
      const QString unique = stem + u"-99999.log"_s;
      QVERIFY(unique.toUtf8().size() <= longestName);
      QVERIFY(QFile::encodeName(made).size() <= longestName);
    }
  }

  void halvedPairsDoNoHarm() {
    const QString broken = QString(300, QChar(0xD83C));
    QVERIFY(progressFileName(broken).toUtf8().size() <= longestName);
    QVERIFY(progressFileName(QString(room, u'x') + QChar(0xDFAC)).size() == room + 4);
  }
};

QTEST_GUILESS_MAIN(TestProgressFileName)
#include "tst_progressfilename.moc"
