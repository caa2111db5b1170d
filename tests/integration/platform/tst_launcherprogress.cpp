#include <QTest>
#include <limits>

#include "DesktopBench.h"
#include "RealLauncherProgress.h"

using namespace Qt::StringLiterals;

class TestLauncherProgress final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void whatIsShown_data();
  void whatIsShown();
  void onlyWhatIsSeenIsSent();
  void theEndHidesEverything();
  void nothingShownNothingSent();
  void noBus();

 private:
  // "count count-visible progress progress-visible", as the launcher heard it, in order.
  [[nodiscard]] QStringList heard() {
    m_bench->settle();
    return m_bench->services().log();
  }
  [[nodiscard]] static QString update(int count, bool number, double progress, bool bar) {
    return u"application://org.decant.Decant.desktop count=%1 count-visible=%2 progress=%3 "
           "progress-visible=%4 IBDB"_s.arg(count)
               .arg(number ? 1 : 0)
               .arg(QString::fromLatin1(
                   QByteArray::number(progress, 'f', progress > 0 && progress < 1 ? 2 : 1)))
               .arg(bar ? 1 : 0);
  }

  std::unique_ptr<DesktopBench> m_bench;
  const QString m_entry = u"org.decant.Decant"_s;
};

void TestLauncherProgress::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_bench = std::make_unique<DesktopBench>();
  QVERIFY(m_bench->startServices({u"launcher"_s}));
}

void TestLauncherProgress::cleanup() {
  m_bench.reset();
}

void TestLauncherProgress::whatIsShown_data() {
  QTest::addColumn<double>("fraction");  // below 0: none
  QTest::addColumn<int>("count");
  QTest::addColumn<QString>("heard");
  QTest::newRow("bar and number") << 0.42 << 3 << update(3, true, 0.42, true);
  QTest::newRow("bar alone") << 0.29 << 0 << update(0, false, 0.29, true);
  QTest::newRow("number alone") << -1.0 << 2 << update(2, true, 0, false);
  QTest::newRow("begun") << 0.0 << 1 << update(1, true, 0, true);
  QTest::newRow("done") << 1.0 << 1 << update(1, true, 1, true);
  QTest::newRow("too much") << 1e300 << 1 << update(1, true, 1, true);
  QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 1
                             << update(1, true, 0, false);
}

void TestLauncherProgress::whatIsShown() {
  QFETCH(double, fraction);
  QFETCH(int, count);
  QFETCH(QString, heard);
  RealLauncherProgress progress(m_bench->bus(), m_entry);
  progress.show(fraction < 0 ? std::optional<double>() : fraction, count);
  QTRY_COMPARE(this->heard(), QStringList{heard});
}

void TestLauncherProgress::onlyWhatIsSeenIsSent() {
  RealLauncherProgress progress(m_bench->bus(), m_entry);
  for (int i = 0; i <= 10'000; ++i)
    progress.show(i / 10'000.0, 1);
  progress.show(1.0, 2);
  QTRY_VERIFY(heard().contains(update(2, true, 1, true)));
  QCOMPARE(heard().size(), 102);
}

void TestLauncherProgress::theEndHidesEverything() {
  {
    RealLauncherProgress progress(m_bench->bus(), m_entry);
    progress.show(0.5, 1);
  }
  const QStringList expected{update(1, true, 0.5, true), update(0, false, 0, false)};
  QTRY_COMPARE(heard().size(), 2);
  QCOMPARE(heard().at(1), expected.at(1));
}

void TestLauncherProgress::nothingShownNothingSent() {
  {
    RealLauncherProgress progress(m_bench->bus(), m_entry);
    progress.show({}, 0);
  }
  // Heard in order: had there been something, it would stand before this.
  RealLauncherProgress other(m_bench->bus(), m_entry);
  other.show(1.0, 1);
  QTRY_COMPARE(heard(), QStringList{update(1, true, 1, true)});
}

void TestLauncherProgress::noBus() {
  {
    RealLauncherProgress progress(::noBus(), m_entry);
    progress.show(0.5, 1);
    progress.show(0.6, 1);
  }
  QCOMPARE(m_bench->logged().size(), 1);
}

QTEST_GUILESS_MAIN(TestLauncherProgress)
#include "tst_launcherprogress.moc"
