#include <QLocale>
#include <QRegularExpression>
#include <QTest>
#include <limits>

#include "Date.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestDate final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void formatsIntervals_data() {
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing") << 0.0 << u"0s"_s;
    QTest::newRow("below a second") << 0.99 << u"0s"_s;
    QTest::newRow("below a minute") << 59.9 << u"59s"_s;
    QTest::newRow("a minute") << 60.0 << u"1m 0s"_s;
    QTest::newRow("minutes") << 125.9 << u"2m 5s"_s;
    QTest::newRow("hours") << 7200.0 << u"120m 0s"_s;
    QTest::newRow("negative") << -5.5 << u"-5s"_s;
    QTest::newRow("negative minutes") << -65.0 << u"-1m -5s"_s;
    QTest::newRow("years") << 1e10 << u"166666666m 40s"_s;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << u"0s"_s;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity()
                              << u"150000000000000m 0s"_s;
    QTest::newRow("infinite before")
        << -std::numeric_limits<double>::infinity() << u"-150000000000000m 0s"_s;
  }
  void formatsIntervals() {
    QFETCH(double, seconds);
    QTEST(formattedTimeFromTimeInterval(seconds), "expected");
  }

  void readsDates_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QDateTime>("expected");
    const QDateTime may(QDate(2024, 5, 7), QTime(8, 9, 10));
    QTest::newRow("numbers") << u"2024-05-07 08:09:10"_s << u"yyyy-MM-dd HH:mm:ss"_s << u"en_US"_s
                             << may;
    QTest::newRow("German") << u"7. Mai 2024"_s << u"d. MMMM yyyy"_s << u"de_DE"_s
                            << QDateTime(QDate(2024, 5, 7), QTime(0, 0));
    QTest::newRow("other language")
        << u"7. Mai 2024"_s << u"d. MMMM yyyy"_s << u"en_US"_s << QDateTime();
    QTest::newRow("unknown language") << u"7 May 2024"_s << u"d MMMM yyyy"_s << u"??"_s
                                      << QDateTime(QDate(2024, 5, 7), QTime(0, 0));
    QTest::newRow("other format") << u"7.5.2024"_s << u"yyyy-MM-dd"_s << u"en_US"_s << QDateTime();
    QTest::newRow("no such day") << u"2023-02-29"_s << u"yyyy-MM-dd"_s << u"en_US"_s << QDateTime();
    QTest::newRow("empty") << u""_s << u"yyyy"_s << u"en_US"_s << QDateTime();
  }
  void readsDates() {
    QFETCH(QString, text);
    QFETCH(QString, format);
    QFETCH(QString, locale);
    QFETCH(QDateTime, expected);
    QCOMPARE(dateWithString(text, format, locale), expected);
    if (locale == "en_US"_L1) QCOMPARE(dateWithString(text, format), expected);
  }

  void readsPreprocessorDates() {
    QCOMPARE(dateWithPreprocessorDate("Jan  5 2026").date(), QDate(2026, 1, 5));
    QCOMPARE(dateWithPreprocessorDate("Dec 31 1999").date(), QDate(1999, 12, 31));
    QVERIFY(dateWithPreprocessorDate(__DATE__).isValid());
    QVERIFY(!dateWithPreprocessorDate("").isValid());
    QVERIFY(!dateWithPreprocessorDate("Mai 5 2026").isValid());
  }

  void writesInAmericanEnglish() {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const QDateTime date(QDate(2024, 5, 7), QTime(20, 9));
    const QString text = stringUsingFormat(date, u"dddd, d MMMM yyyy, h:mm AP"_s);
    QLocale::setDefault(before);
    QCOMPARE(text, u"Tuesday, 7 May 2024, 8:09 PM"_s);
    QCOMPARE(stringUsingFormat(QDateTime(), u"yyyy"_s), u""_s);
  }

  void writesInCurrentLocale() {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const QDateTime date(QDate(2024, 5, 7), QTime(20, 9, 30), Qt::UTC);
    const QString both = stringUsingDateStyle(date, DateStyle::Short, DateStyle::Short);
    const QString longDay = stringUsingDateStyle(date, DateStyle::Long, DateStyle::None);
    const QString longTime = stringUsingDateStyle(date, DateStyle::None, DateStyle::Long);
    QLocale::setDefault(before);
    QCOMPARE(both, u"07.05.24 20:09"_s);
    QCOMPARE(longDay, u"Dienstag, 7. Mai 2024"_s);
    QVERIFY2(longTime.startsWith(u"20:09:30 "_s), qPrintable(longTime));
    QVERIFY2(longTime.contains(u"UTC"_s), qPrintable(longTime));
    QCOMPARE(stringUsingDateStyle(date, DateStyle::None, DateStyle::None), u""_s);
    QCOMPARE(stringUsingDateStyle(QDateTime(), DateStyle::Short, DateStyle::Short), u""_s);
  }
};

QTEST_GUILESS_MAIN(TestDate)
#include "tst_date.moc"
