#include <QTest>
#include <QUrlQuery>
#include <atomic>

#include "Alerts.h"
#include "Defaults.h"
#include "Dispatch.h"
#include "File.h"
#include "ScratchProgram.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestProblemReport final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void tellsAndGoesOn();
  void sendsToSupport();
  void clampsTheDetails_data();
  void clampsTheDetails();
  void mailCarriesRecentMessages();
  void gathersNothingThatIsNotSent();
  void gathersWhatThereIsWhenSent();
  void usesTheBuiltInAddress();
  void isCutToOneArgument();
  void aWorkerWaitsForTheAnswer();
  void postedReportWaitsForTheHandler();

 private:
  [[nodiscard]] QString openedBody() const;
  [[nodiscard]] QList<Alert> &presented() { return m_program->presenter().presented; }

  std::unique_ptr<ScratchProgram> m_program;
};

void TestProblemReport::init() {
  QTest::failOnWarning(QRegularExpression(u".?"_s));
  m_program.reset();
  m_program = std::make_unique<ScratchProgram>();
}

QString TestProblemReport::openedBody() const {
  const QList<QUrl> &opened = m_program->opener().opened;
  if (opened.size() != 1) return {};
  return QUrlQuery(opened.first()).queryItemValue(u"body"_s, QUrl::FullyDecoded);
}

void TestProblemReport::tellsAndGoesOn() {
  m_program->presenter().answer(secondButton);
  alert_feedback_nonfatal(u"It broke"_s, u"at line 3"_s);
  Alert expected;
  expected.title = u"Error"_s;
  expected.message =
      u"It broke\n\n You can contact our support with detailed information so that we can fix this "
      u"problem.\n\n"
      u"Information: at line 3"_s;
  expected.buttons = QStringList{u"Send to support"_s, u"Continue"_s};
  expected.problemReport = true;
  QCOMPARE(presented(), QList<Alert>{expected});
  QVERIFY(m_program->opener().opened.isEmpty());
  QCOMPARE(m_program->logged(), QStringList{u"alert_feedback It broke at line 3"_s});
  QCOMPARE(m_program->loggedWithLevel().first().level, 3);
}

void TestProblemReport::sendsToSupport() {
  alert_feedback(u"It broke"_s, u"Tom & Jerry #1 100%"_s, false);
  QVERIFY(openedBody().startsWith(
      u"Hello\nA  error in Decant occured (It broke).\n\nBye\n\nP.S. Details: Tom & Jerry #1 100%\n\n\nP.P.S: "_s));
}

void TestProblemReport::clampsTheDetails_data() {
  QTest::addColumn<int>("length");
  QTest::addColumn<QString>("omission");
  QTest::newRow("fits") << 400 << u""_s;
  QTest::newRow("too long") << 401 << u"  …\n(Remaining message omitted)"_s;
}

void TestProblemReport::clampsTheDetails() {
  QFETCH(int, length);
  QFETCH(QString, omission);
  const QString details(length, u'd');
  alert_feedback_nonfatal(u"m"_s, details);
  const QString shown = presented().first().message.section(u"Information: "_s, 1);
  QCOMPARE(shown, QString(details.first(400) + omission));
  QVERIFY(openedBody().contains(QString(u"Details: "_s + details + u'\n')));
}

void TestProblemReport::mailCarriesRecentMessages() {
  alert_feedback_nonfatal(u"very recent"_s, u"details"_s);
  const QString encoded = openedBody().section(u"Preferences: "_s, 1).trimmed();
  const QByteArray preferences = QByteArray::fromBase64(encoded.toLatin1());
  QVERIFY(preferences.contains("alert_feedback very recent details"));
  QCOMPARE(preferences, wholefile::read(m_program->library().prefsPath()));
}

// The settings are not even written.
void TestProblemReport::gathersNothingThatIsNotSent() {
  m_program->library().userDefaults().synchronize();
  setDefaultString(u"key"_s, u"unwritten"_s);
  m_program->presenter().answer(secondButton);
  alert_feedback_nonfatal(u"m"_s, u"d"_s);
  const auto written = contents(m_program->library().prefsPath());
  QVERIFY(!written.value_or(QByteArray()).contains("unwritten"));
}

void TestProblemReport::gathersWhatThereIsWhenSent() {
  m_program->presenter().setWhileShown(
      [](Alert &) { setDefaultString(u"key"_s, u"set meanwhile"_s); });
  alert_feedback_nonfatal(u"m"_s, u"d"_s);
  const QString encoded = openedBody().section(u"Preferences: "_s, 1).trimmed();
  QVERIFY(QByteArray::fromBase64(encoded.toLatin1()).contains("set meanwhile"));
}

void TestProblemReport::usesTheBuiltInAddress() {
  m_program->setInfo(u"FeedbackEmail"_s, u"other@decant.example"_s);
  m_program->restart();
  alert_feedback_nonfatal(u"m"_s, u"d"_s);
  QCOMPARE(m_program->opener().opened.first().path(), u"support@decant.example"_s);
}

void TestProblemReport::isCutToOneArgument() {
  setDefaultString(u"large"_s, QString(200000, u'p'));
  alert_feedback_nonfatal(u"m"_s, QString(200000, u'd'));
  constexpr qsizetype longest = 131071;
  QVERIFY(m_program->opener().opened.first().toEncoded().size() <= longest);
  QVERIFY(openedBody().contains(u"characters left out"_s));
  QVERIFY(openedBody().contains(u"Hardware: "_s));
}

void TestProblemReport::aWorkerWaitsForTheAnswer() {
  std::atomic<bool> answered{false};
  std::atomic<bool> waited{false};
  std::atomic<bool> done{false};
  std::atomic<bool> onMain{false};
  m_program->presenter().setWhileShown([&](Alert &) {
    onMain = onMainThread();
    answered = true;
  });
  m_program->presenter().answer(secondButton);
  dispatch_async_back([&] {
    alert_feedback_nonfatal(u"m"_s, u"d"_s);
    waited = answered.load();
    done = true;
  });
  QTRY_VERIFY_WITH_TIMEOUT(done.load(), 20000);
  QVERIFY(waited);
  QVERIFY(onMain);
}

void TestProblemReport::postedReportWaitsForTheHandler() {
  postFeedback(u"It broke"_s, u"d"_s);
  QVERIFY(presented().isEmpty());
  QTRY_COMPARE_WITH_TIMEOUT(presented().size(), 1, 20000);
  QCOMPARE(presented().first().title, u"Error"_s);
  QTRY_VERIFY(openedBody().contains(u"(It broke)"_s));
  QVERIFY(openedBody().contains(u"Details: d\n"_s));
}

QTEST_GUILESS_MAIN(TestProblemReport)
#include "tst_problemreport.moc"
