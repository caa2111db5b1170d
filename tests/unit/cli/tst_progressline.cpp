#include <QObject>
#include <QRegularExpression>
#include <QTest>

#include "Printable.h"
#include "ProgressLine.h"

using namespace decant;
using namespace Qt::StringLiterals;

class TestProgressLine final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }
  void lines_data();
  void lines();
  void neverWiderThanTheTerminal();
  void neverSteersTheTerminal();
};

void TestProgressLine::lines_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<double>("percent");  // negative: unknown
  QTest::addColumn<double>("eta");
  QTest::addColumn<int>("columns");
  QTest::addColumn<QString>("line");
  QTest::newRow("half") << u"film.mkv"_s << 50.0 << 125.0 << 79
                        << u"film.mkv  [###############---------------]   50%  2m 5s left"_s;
  QTest::newRow("begun") << u"film.mkv"_s << 0.0 << -1.0 << 79
                         << u"film.mkv  [------------------------------]    0%"_s;
  QTest::newRow("full") << u"film.mkv"_s << 100.0 << 0.0 << 79
                        << u"film.mkv  [##############################]  100%  0s left"_s;
  QTest::newRow("unknown") << u"film.mkv"_s << -1.0 << -1.0 << 79 << u"film.mkv  converting"_s;
  QTest::newRow("long name") << u"A Film With a Very Long Name.mkv"_s << 50.0 << 5.0 << 50
                             << u"A Fil…me.mkv  [##########---------]   50%  5s left"_s;
  QTest::newRow("narrow") << u"film.mkv"_s << 50.0 << 5.0 << 24 << u"film.mkv   50%  5s left"_s;
}

void TestProgressLine::lines() {
  QFETCH(const QString, name);
  QFETCH(const double, percent);
  QFETCH(const double, eta);
  QFETCH(const int, columns);
  const auto known = [](double value) { return value < 0 ? std::nullopt : std::optional(value); };
  QTEST(progressLine(name, known(percent), known(eta), columns), "line");
}

void TestProgressLine::neverWiderThanTheTerminal() {
  for (const QString &name : {u"a.mkv"_s, u"映画映画映画映画映画映画映画映画映画.mkv"_s,
                              QString(200, u'x'), u"🎬🎬🎬🎬🎬🎬🎬🎬.mkv"_s}) {
    for (int columns = 1; columns < 120; ++columns) {
      for (const double percent : {0.0, 33.3, 100.0}) {
        const QString line = progressLine(name, percent, 3599.0, columns);
        QVERIFY2(cellWidth(line) <= columns, qUtf8Printable(line));
        QVERIFY(cellWidth(progressLine(name, {}, {}, columns)) <= columns);
      }
    }
  }
}

void TestProgressLine::neverSteersTheTerminal() {
  const QString line = progressLine(u"a\n\x1b[2J.mkv"_s, 10.0, 1.0, 79);
  QVERIFY(line.startsWith(u"a\\n\\x1b[2J.mkv"_s));
}

QTEST_GUILESS_MAIN(TestProgressLine)
#include "tst_progressline.moc"
