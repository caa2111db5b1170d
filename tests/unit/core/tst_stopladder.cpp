#include <QSignalSpy>
#include <QTest>
#include <csignal>

#include "StopLadder.h"

using namespace std::chrono_literals;
using ostrak::StopLadder;

class TestStopLadder final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void sendsNothingBeforeItIsClimbed() {
    StopLadder ladder(0ms, record());
    ladder.takeDueRung();
    QVERIFY(m_sent.isEmpty());
    QVERIFY(!ladder.wasClimbed());
    QVERIFY(ladder.nextRung().isForever());
  }

  // A stopped child gets a signal only when it continues, so SIGTERM must already be waiting.
  void continuesAfterAsking() {
    StopLadder ladder(1h, record());
    ladder.climb();
    QCOMPARE(m_sent, (QList<int>{SIGTERM, SIGCONT}));
    QVERIFY(ladder.wasClimbed());
    QVERIFY(!ladder.nextRung().isForever());
  }

  void asksOnlyOnce() {
    StopLadder ladder(1h, record());
    ladder.climb();
    ladder.climb();
    QCOMPARE(m_sent.size(), 2);
  }

  void killsAfterTheGrace() {
    StopLadder ladder(1ms, record());
    ladder.climb();
    QTRY_COMPARE(m_sent, (QList<int>{SIGTERM, SIGCONT, SIGKILL}));
    QVERIFY(ladder.nextRung().isForever());
    ladder.takeDueRung();
    QCOMPARE(m_sent.size(), 3);
  }

  void doesNotKillWithinTheGrace() {
    StopLadder ladder(1h, record());
    ladder.climb();
    ladder.takeDueRung();
    QCOMPARE(m_sent, (QList<int>{SIGTERM, SIGCONT}));
  }

  void sendsNothingToAChildThatHasEnded() {
    StopLadder ladder(0ms, record());
    ladder.climb();
    ladder.leave();
    ladder.takeDueRung();
    ladder.climb();
    QCOMPARE(m_sent, (QList<int>{SIGTERM, SIGCONT}));
    QVERIFY(ladder.wasClimbed());
    QVERIFY(ladder.nextRung().isForever());
  }

  void leavingUnusedIsNoClimb() {
    StopLadder ladder(0ms, record());
    ladder.leave();
    QVERIFY(!ladder.wasClimbed());
  }

  void cleanup() { m_sent.clear(); }

 private:
  std::function<void(int)> record() {
    return [this](int signal) { m_sent.append(signal); };
  }
  QList<int> m_sent;
};

QTEST_GUILESS_MAIN(TestStopLadder)
#include "tst_stopladder.moc"
