#include <QObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include "Printable.h"

using namespace decant;
using namespace Qt::StringLiterals;

class TestPrintable final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }
  void controlCharacters_data();
  void controlCharacters();
  void oneLine();
  void bytes_data();
  void bytes();
  void shell_data();
  void shell();
  void shellReadsItBack();
  void widths();
  void shortened_data();
  void shortened();
};

void TestPrintable::controlCharacters_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("shown");
  QTest::newRow("plain") << u"Größe 映画 %n 'x' \"y\""_s << u"Größe 映画 %n 'x' \"y\""_s;
  QTest::newRow("breaks") << u"a\nb\rc\td"_s << u"a\\nb\\rc\\td"_s;
  QTest::newRow("escape") << u"\x1b[31mred"_s << u"\\x1b[31mred"_s;
  QTest::newRow("delete") << u"\x7f"_s << u"\\x7f"_s;
  QTest::newRow("a control beyond ASCII") << u"\u009bX"_s << u"\\xc2\\x9bX"_s;
  QTest::newRow("line separator") << u"a\u2028b"_s << u"a\\xe2\\x80\\xa8b"_s;
}

void TestPrintable::controlCharacters() {
  QFETCH(const QString, text);
  QTEST(printable(text), "shown");
}

void TestPrintable::oneLine() {
  QCOMPARE(onOneLine(u"a problem:\n\nCommand-line: x\n"_s), u"a problem: Command-line: x"_s);
  QCOMPARE(onOneLine(u"a\x1b"
                     "b"_s),
           u"a\\x1b"
           "b"_s);
}

void TestPrintable::bytes_data() {
  QTest::addColumn<QByteArray>("name");
  QTest::addColumn<QString>("shown");
  QTest::newRow("UTF-8") << QByteArray("Größe 映画 \xf0\x9f\x8e\xac") << u"Größe 映画 🎬"_s;
  QTest::newRow("Latin-1") << QByteArray(
                                  "Gr\xf6\xdf"
                                  "e.mkv")
                           << u"Gr\\xf6\\xdfe.mkv"_s;
  QTest::newRow("cut") << QByteArray("\xe6\x98") << u"\\xe6\\x98"_s;
  QTest::newRow("overlong") << QByteArray("\xc0\xaf") << u"\\xc0\\xaf"_s;
  QTest::newRow("surrogate") << QByteArray("\xed\xa0\x80") << u"\\xed\\xa0\\x80"_s;
  QTest::newRow("with a break") << QByteArray("\xff\n") << u"\\xff\\n"_s;
}

void TestPrintable::bytes() {
  QFETCH(const QByteArray, name);
  QTEST(escapedBytes(name), "shown");
}

void TestPrintable::shell_data() {
  QTest::addColumn<QStringList>("words");
  QTest::addColumn<QString>("line");
  QTest::newRow("plain") << QStringList{u"-i"_s, u"/a/b.mkv"_s, u"0:1"_s} << u"-i /a/b.mkv 0:1"_s;
  QTest::newRow("blank") << QStringList{u"a b"_s} << u"'a b'"_s;
  QTest::newRow("empty") << QStringList{QString(u""_s)} << u"''"_s;
  QTest::newRow("quote") << QStringList{u"it's"_s} << u"'it'\\''s'"_s;
  QTest::newRow("brackets") << QStringList{u"[0:1]volume=1.50[out]"_s}
                            << u"'[0:1]volume=1.50[out]'"_s;
  QTest::newRow("break") << QStringList{u"a\nb'c\\"_s} << u"$'a\\nb\\'c\\\\'"_s;
}

void TestPrintable::shell() {
  QFETCH(const QStringList, words);
  QTEST(shellQuoted(words), "line");
}

void TestPrintable::shellReadsItBack() {
  const QStringList words{u"a b"_s,
                          u"it's"_s,
                          u"$HOME `x` \"y\" \\"_s,
                          u"line\nbreak\x1b!"_s,
                          u"größe 映画"_s,
                          u"*?~#"_s,
                          u"%n %s"_s,
                          u"-x"_s};
  QProcess shell;
  const QString command = u"printf '%s\\0' "_s + shellQuoted(words);
  shell.start(u"/bin/bash"_s, {u"-c"_s, command});
  QVERIFY(shell.waitForFinished());
  QCOMPARE(QString::fromUtf8(shell.readAllStandardOutput()), QString(words.join(u'\0') + u'\0'));
}

void TestPrintable::widths() {
  QCOMPARE(cellWidth(u"abc"_s), 3);
  QCOMPARE(cellWidth(u"映画"_s), 4);
  QCOMPARE(cellWidth(u"🎬"_s), 2);
  QCOMPARE(cellWidth(u"e\u0301"_s), 1);
}

void TestPrintable::shortened_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<int>("cells");
  QTest::addColumn<QString>("shown");
  QTest::newRow("fits") << u"film.mkv"_s << 8 << u"film.mkv"_s;
  QTest::newRow("does not") << u"a long film.mkv"_s << 9 << u"a lo….mkv"_s;
  QTest::newRow("wide") << u"映画映画映画"_s << 7 << u"映画…画"_s;
  QTest::newRow("one cell") << u"film"_s << 1 << u"…"_s;
  QTest::newRow("none") << u"film"_s << 0 << QString(u""_s);
}

void TestPrintable::shortened() {
  QFETCH(const QString, text);
  QFETCH(const int, cells);
  const QString shown = elided(text, cells);
  QTEST(shown.isNull() ? QString(u""_s) : shown, "shown");
  QVERIFY(cellWidth(shown) <= cells);
}

QTEST_GUILESS_MAIN(TestPrintable)
#include "tst_printable.moc"
