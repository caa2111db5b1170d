#include <QTest>

#include "BracketingTranslator.h"
#include "StatusText.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

QList<AudioTrackDescription> tracks(const QStringList &descriptions) {
  QList<AudioTrackDescription> list;
  for (const QString &description : descriptions)
    list.append({description, 0});
  return list;
}

const QStringList three{u"#1: eng (ac3)"_s, u"#2: ger (dts) [5.1]"_s, u"#3: fra (ac3)"_s};

}  // namespace

class TestStatusText : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

  void states_data() {
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("text");
    QTest::newRow("queued") << 0 << u"Status: Queued"_s;
    QTest::newRow("paused") << 2 << u"Status: Paused"_s;
    QTest::newRow("finished") << 3 << u"Status: Finished [Conversion took: 2m 5s]"_s;
    QTest::newRow("failed")
        << 4 << u"Status: Failed   Click the arrow at the right to get more information."_s;
  }
  void states() {
    QFETCH(int, state);
    for (const QStringList &list : {QStringList(), three})
      QTEST(stateInfoString({JobState(state), tracks(list), 0, 40, 125.9}), "text");
  }

  void converting_data() {
    QTest::addColumn<QStringList>("descriptions");
    QTest::addColumn<int>("chosen");
    QTest::addColumn<QString>("text");
    const QString eta = u"   ETA: 1m 40s"_s;
    QTest::newRow("no audio") << QStringList() << 0 << QString(u"Status: Converting"_s + eta);
    QTest::newRow("one track") << three.first(1) << 0
                               << QString(u"Status: Converting   Audio:  eng (ac3)"_s + eta);
    QTest::newRow("two, the first")
        << three.first(2) << 0
        << QString(u"Status: Converting   Audio:  eng (ac3) (Discarded:  ger (dts) [5.1])"_s + eta);
    QTest::newRow("two, the second")
        << three.first(2) << 1
        << QString(u"Status: Converting   Audio:  ger (dts) [5.1] (Discarded:  eng (ac3))"_s + eta);
    QTest::newRow("three: the last that is not taken")
        << three << 0
        << QString(u"Status: Converting   Audio:  eng (ac3) (Discarded:  fra (ac3))"_s + eta);
    QTest::newRow("three, the middle")
        << three << 1
        << QString(u"Status: Converting   Audio:  ger (dts) [5.1] (Discarded:  fra (ac3))"_s + eta);
    QTest::newRow("three, the last")
        << three << 2
        << QString(u"Status: Converting   Audio:  fra (ac3) (Discarded:  ger (dts) [5.1])"_s + eta);
    QTest::newRow("up to the second colon") << QStringList{u"#1: a:b (ac3)"_s} << 0
                                            << QString(u"Status: Converting   Audio:  a"_s + eta);
    QTest::newRow("without a colon")
        << QStringList{u"#1"_s} << 0 << QString(u"Status: Converting   Audio: "_s + eta);
    QTest::newRow("placeholders stay") << QStringList{u"#1: %@ (%i)"_s} << 0
                                       << QString(u"Status: Converting   Audio:  %@ (%i)"_s + eta);
  }
  void converting() {
    QFETCH(QStringList, descriptions);
    QFETCH(int, chosen);
    QTEST(stateInfoString({JobStateConverting, tracks(descriptions), quint64(chosen), 50, 100}),
          "text");
  }

  void chosenTrackThatIsNotThere() {
    QCOMPARE(stateInfoString({JobStateConverting, tracks(three), 3, 50, 100}),
             u"Status: Converting   ETA: 1m 40s"_s);
  }

  void shorter() {
    QCOMPARE(shorterStateInfoStrings({JobStateConverting, tracks(three), 1, 50, 100}),
             QStringList({u"Status: Converting   Audio:  ger (dts) [5.1]   ETA: 1m 40s"_s,
                          u"Status: Converting   ETA: 1m 40s"_s}));
    QCOMPARE(
        shorterStateInfoStrings({JobStateConverting, tracks({u"#1: eng (ac3)"_s}), 0, 50, 100}),
        QStringList{u"Status: Converting   ETA: 1m 40s"_s});
    QCOMPARE(shorterStateInfoStrings({JobStateConverting, {}, 0, 50, 100}), QStringList());
    QCOMPARE(shorterStateInfoStrings({JobStateConverting, tracks(three), 3, 50, 100}),
             QStringList{u"Status: Converting   ETA: 1m 40s"_s});
    QCOMPARE(shorterStateInfoStrings({JobStateFailed, tracks(three), 0, 50, 100}),
             QStringList{u"Status: Failed"_s});
    for (const JobState state : {JobStateQueued, JobStatePaused, JobStateFinished})
      QCOMPARE(shorterStateInfoStrings({state, tracks(three), 0, 50, 100}), QStringList());
  }

  void eta_data() {
    QTest::addColumn<double>("progress");
    QTest::addColumn<double>("elapsed");
    QTest::addColumn<double>("eta");
    QTest::newRow("half") << 50.0 << 60.0 << 60.0;
    QTest::newRow("a quarter") << 25.0 << 60.0 << 180.0;
    QTest::newRow("done") << 100.0 << 60.0 << 0.0;
    QTest::newRow("more than done") << 120.0 << 60.0 << 0.0;
    QTest::newRow("no progress after some time") << 0.0 << 60.0 << 18000.0;
    QTest::newRow("no progress at the start") << 0.0 << 0.0 << 18000.0;
    QTest::newRow("negative progress") << -1.0 << 60.0 << 18000.0;
    QTest::newRow("slower than the cap") << 0.1 << 60.0 << 18000.0;
    QTest::newRow("just the cap") << 50.0 << 18000.0 << 18000.0;
    QTest::newRow("at the start") << 10.0 << 0.0 << 0.0;
    QTest::newRow("a clock that went back") << 10.0 << -60.0 << 0.0;
  }
  void eta() {
    QFETCH(double, progress);
    QFETCH(double, elapsed);
    QTEST(etaSeconds(progress, elapsed), "eta");
  }

  void capIsShownAsMinutes() {
    QCOMPARE(stateInfoString({JobStateConverting, {}, 0, 0, 5}),
             u"Status: Converting   ETA: 300m 0s"_s);
  }

  void everyWordIsTranslated() {
    const BracketingTranslator translator;
    QCOMPARE(stateInfoString({JobStateQueued, {}, 0, 0, 0}), u"<Status: ><Queued>"_s);
    QCOMPARE(stateInfoString({JobStatePaused, {}, 0, 0, 0}), u"<Status: ><Paused>"_s);
    QCOMPARE(stateInfoString({JobStateFinished, {}, 0, 0, 5}),
             u"<Status: ><Finished>< [Conversion took: 5s]>"_s);
    QCOMPARE(stateInfoString({JobStateFailed, {}, 0, 0, 0}),
             u"<<Status: ><Failed>   Click the arrow at the right to get more information.>"_s);
    QCOMPARE(stateInfoString({JobStateConverting, tracks(three.first(2)), 0, 50, 5}),
             u"<<<<Status: ><Converting>   Audio:  eng (ac3)> (Discarded:  ger (dts) [5.1])>   "
             "ETA: 5s>"_s);
  }
};

QTEST_GUILESS_MAIN(TestStatusText)
#include "tst_statustext.moc"
