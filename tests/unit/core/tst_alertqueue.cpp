#include <QEventLoop>
#include <QTest>
#include <thread>

#include "AlertQueue.h"
#include "Alerts.h"
#include "Dispatch.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// Posted alerts: one at a time, after the handler that raised them.
class TestAlertQueue final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void waitsForTheHandler();
  void showsOneAfterTheOther();
  void waitsForAnAlertOnTheScreen();
  void showsEqualsStillWaitingOnce();
  void oneAnswerForEqualReports();
  void nothingOutlivesThePresenter();
  void tellsWhenItIsIdle();
  void showsAnEqualAgainOnceAnswered();
  void manyThatDifferAreEachShown();
  void anAnswerMayRaiseAnother();
  void comesFromAnyThread();
  void silencedWhileWaiting_data();
  void silencedWhileWaiting();
  void aTickedBoxIsNotUndone();

 private:
  [[nodiscard]] QStringList titles() const;
  [[nodiscard]] static Alert titled(const QString &title);
  // Answers a shown alert only after all that waits for the event loop has run, as a window does.
  void showLikeAWindow();

  std::unique_ptr<ScratchProgram> m_program;
  int m_nested = 0;      // alerts on the screen
  int m_mostNested = 0;  // ever
};

void TestAlertQueue::init() {
  QTest::failOnWarning(QRegularExpression(u".?"_s));
  m_program.reset();
  m_program = std::make_unique<ScratchProgram>();
  m_nested = 0;
  m_mostNested = 0;
}

QStringList TestAlertQueue::titles() const {
  QStringList all;
  for (const Alert &shown : m_program->presenter().presented)
    all.append(shown.title);
  return all;
}

Alert TestAlertQueue::titled(const QString &title) {
  Alert made;
  made.title = title;
  return made;
}

void TestAlertQueue::showLikeAWindow() {
  m_program->presenter().setWhileShown([this](Alert &shown) {
    m_mostNested = qMax(m_mostNested, ++m_nested);
    QEventLoop loop;
    dispatch_async_main([&loop] { dispatch_async_main([&loop] { loop.quit(); }); });
    loop.exec();
    --m_nested;
    if (shown.control == Alert::Control::Suppression && shown.title == u"1") shown.value = 1;
  });
}

void TestAlertQueue::waitsForTheHandler() {
  bool answered = false;
  QStringList shownInside;
  dispatch_async_main([&] {
    postAlert(titled(u"one"_s), [&](int code) { answered = code == secondButton; });
    shownInside = titles();
  });
  m_program->presenter().answer(secondButton);
  QTRY_VERIFY_WITH_TIMEOUT(answered, 20000);
  QVERIFY(shownInside.isEmpty());
  QCOMPARE(titles(), QStringList{u"one"_s});
}

void TestAlertQueue::showsOneAfterTheOther() {
  showLikeAWindow();
  QStringList steps;
  for (const QString &title : {u"one"_s, u"two"_s, u"three"_s}) {
    postAlert(titled(title), [&steps, title, this](int) {
      steps.append(title + u" after "_s + QString::number(titles().size()));
    });
  }
  QTRY_COMPARE_WITH_TIMEOUT(steps.size(), 3, 20000);
  QCOMPARE(steps, (QStringList{u"one after 1"_s, u"two after 2"_s, u"three after 3"_s}));
}

void TestAlertQueue::waitsForAnAlertOnTheScreen() {
  showLikeAWindow();
  postAlert(titled(u"posted"_s));
  Alert direct = titled(u"direct"_s);
  (void)presentAlert(direct);
  QCOMPARE(titles(), QStringList{u"direct"_s});
  QTRY_COMPARE_WITH_TIMEOUT(titles(), (QStringList{u"direct"_s, u"posted"_s}), 20000);
}

void TestAlertQueue::showsEqualsStillWaitingOnce() {
  int answers = 0;
  for (int round = 0; round < 3; ++round) {
    postAlert(titled(u"same"_s), [&answers](int) { ++answers; });
  }
  bool last = false;
  postAlert(titled(u"other"_s), [&last](int) { last = true; });
  QTRY_VERIFY_WITH_TIMEOUT(last, 20000);
  QCOMPARE(titles(), (QStringList{u"same"_s, u"other"_s}));
  QCOMPARE(answers, 3);
}

void TestAlertQueue::oneAnswerForEqualReports() {
  int answers = 0;
  Alert report = titled(u"report"_s);
  report.problemReport = true;
  for (int round = 0; round < 3; ++round)
    postAlert(report, [&answers](int) { ++answers; });
  bool last = false;
  postAlert(titled(u"other"_s), [&last](int) { last = true; });
  QTRY_VERIFY_WITH_TIMEOUT(last, 20000);
  QCOMPARE(answers, 1);
}

void TestAlertQueue::nothingOutlivesThePresenter() {
  AlertQueue &queue = AlertQueue::instance();
  bool called = false;
  postAlert(titled(u"late"_s), [&called](int) { called = true; });
  queue.whenIdle([&called] { called = true; });
  QVERIFY(!queue.isIdle());
  setAlertPresenter(nullptr);
  QVERIFY(queue.isIdle());
  setAlertPresenter(&m_program->presenter());
  bool last = false;
  postAlert(titled(u"other"_s), [&last](int) { last = true; });
  QTRY_VERIFY_WITH_TIMEOUT(last, 20000);
  QCOMPARE(titles(), QStringList{u"other"_s});
  QVERIFY(!called);
}

void TestAlertQueue::tellsWhenItIsIdle() {
  showLikeAWindow();
  QStringList steps;
  AlertQueue &queue = AlertQueue::instance();
  for (const QString &title : {u"one"_s, u"two"_s})
    postAlert(titled(title), [&steps, title](int) { steps.append(title); });
  queue.whenIdle([&] { steps.append(queue.isIdle() ? u"idle"_s : u"busy"_s); });
  QTRY_COMPARE_WITH_TIMEOUT(steps, QStringList({u"one"_s, u"two"_s, u"idle"_s}), 20000);
  // And while only one that was not posted is on the screen.
  steps.clear();
  m_program->presenter().setWhileShown([&](Alert &) {
    queue.whenIdle([&steps] { steps.append(u"idle"_s); });
    QCoreApplication::processEvents();
    steps.append(u"shown"_s);
  });
  Alert direct = titled(u"direct"_s);
  (void)presentAlert(direct);
  QTRY_COMPARE_WITH_TIMEOUT(steps, QStringList({u"shown"_s, u"idle"_s}), 20000);
}

void TestAlertQueue::showsAnEqualAgainOnceAnswered() {
  for (int round = 1; round <= 2; ++round) {
    postAlert(titled(u"same"_s));
    QTRY_COMPARE_WITH_TIMEOUT(titles().size(), round, 20000);
  }
}

// So many that looking through all of them for each would not come to an end in a test's time.
void TestAlertQueue::manyThatDifferAreEachShown() {
  constexpr int many = 100'000;
  for (int i = 0; i < 2 * many; ++i)
    postAlert(titled(QString::number(i % many)));
  QTRY_COMPARE_WITH_TIMEOUT(m_program->presenter().presented.size(), many, 60'000);
  QCOMPARE(m_program->presenter().presented.last().title, QString::number(many - 1));
}

void TestAlertQueue::anAnswerMayRaiseAnother() {
  bool done = false;
  postAlert(titled(u"one"_s), [&](int) {
    postAlert(titled(u"two"_s), [&](int) { done = true; });
    QCOMPARE(titles(), QStringList{u"one"_s});
  });
  QTRY_VERIFY_WITH_TIMEOUT(done, 20000);
  QCOMPARE(titles(), (QStringList{u"one"_s, u"two"_s}));
}

void TestAlertQueue::comesFromAnyThread() {
  bool onMain = false;
  std::thread([&] { postAlert(titled(u"one"_s), [&](int) { onMain = onMainThread(); }); }).join();
  QVERIFY(titles().isEmpty());
  QTRY_VERIFY_WITH_TIMEOUT(onMain, 20000);
  QCOMPARE(titles(), QStringList{u"one"_s});
}

using Raise = void (*)(const QString &title);
Q_DECLARE_METATYPE(Raise)

void TestAlertQueue::silencedWhileWaiting_data() {
  QTest::addColumn<Raise>("raise");
  QTest::newRow("for this version") << +[](const QString &title) {
    std::thread([&title] {
      alert_dontwarnagain_version(u"warn"_s, title, u"m"_s, u"OK"_s, u"c"_s);
    }).join();
  };
  QTest::newRow("for ever") << +[](const QString &title) {
    std::thread([&title] {
      alert_dontwarnagain_ever(u"warn"_s, title, u"m"_s, u"OK"_s, u"c"_s);
    }).join();
  };
  QTest::newRow("as a value") << +[](const QString &title) {
    Alert made = titled(title);
    made.identifier = u"warn"_s;
    made.control = Alert::Control::Suppression;
    postSilenceableAlert(made);
  };
}

void TestAlertQueue::silencedWhileWaiting() {
  QFETCH(Raise, raise);
  showLikeAWindow();
  constexpr int many = 50;
  for (int number = 1; number <= many; ++number)
    raise(QString::number(number));
  bool last = false;
  postAlert(titled(u"last"_s), [&last](int) { last = true; });
  QTRY_VERIFY_WITH_TIMEOUT(last, 20000);
  QCOMPARE(titles(), (QStringList{u"1"_s, u"last"_s}));
  QCOMPARE(m_mostNested, 1);
  raise(u"again"_s);
  bool later = false;
  postAlert(titled(u"later"_s), [&later](int) { later = true; });
  QTRY_VERIFY_WITH_TIMEOUT(later, 20000);
  QCOMPARE(titles(), (QStringList{u"1"_s, u"last"_s, u"later"_s}));
}

void TestAlertQueue::aTickedBoxIsNotUndone() {
  // Both on the main thread, the second while the first is on the screen.
  const auto warn = [](const QString &title) {
    alert_dontwarnagain_version(u"warn"_s, title, u"m"_s, u"OK"_s, u"c"_s);
  };
  m_program->presenter().setWhileShown([&warn](Alert &shown) {
    if (shown.title == u"outer") warn(u"inner"_s);
    shown.value = shown.title == u"inner" ? 1 : 0;
  });
  warn(u"outer"_s);
  QCOMPARE(titles().size(), 2);
  QVERIFY(isSilencedForVersion(u"warn"_s));
}

QTEST_GUILESS_MAIN(TestAlertQueue)
#include "tst_alertqueue.moc"
