#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include "BufferSink.h"
#include "Defaults.h"
#include "ScratchProgram.h"
#include "TerminalPresenter.h"

using namespace decant;
using namespace Qt::StringLiterals;

class TestTerminalPresenter final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    ostrak::setAlertPresenter(&m_presenter);
    m_presenter.setListener({});
    m_error.take();
  }
  void cleanup() { ostrak::setAlertPresenter(nullptr); }
  void answersTheDefaultButton();
  void leavesTheProgramsNameOut();
  void neverAssumesDontWarnAgain();
  void declinesProblemReports();
  void listenerComesFirst();

 private:
  ScratchProgram m_program;
  BufferSink m_error;
  TerminalPresenter m_presenter{m_error};
};

void TestTerminalPresenter::answersTheDefaultButton() {
  QCOMPARE(ostrak::alert(u"Title"_s, u"Two\nlines"_s, u"Quit"_s, u"Cancel"_s), ostrak::firstButton);
  QCOMPARE(m_error.take(), QByteArray("decant: Title: Two lines\n"));
}

void TestTerminalPresenter::leavesTheProgramsNameOut() {
  QCOMPARE(ostrak::alert_apptitled(u"Message"_s, u"OK"_s), ostrak::firstButton);
  QCOMPARE(m_error.take(), QByteArray("decant: Message\n"));
}

void TestTerminalPresenter::neverAssumesDontWarnAgain() {
  for (int times = 0; times < 2; ++times) {
    ostrak::alert_dontwarnagain_version(u"some"_s, u"Warning"_s, u"Odd."_s, u"OK"_s,
                                        u"Don't warn again"_s);
    QCOMPARE(m_error.take(), QByteArray("decant: Warning: Odd.\n"));
  }
  QVERIFY(!ostrak::isSilencedForVersion(u"some"_s));
}

void TestTerminalPresenter::declinesProblemReports() {
  ostrak::alert_feedback_nonfatal(u"It broke."_s, u"details"_s);
  QVERIFY(m_error.take().startsWith("decant: Error: It broke. You can contact our support"));
  QVERIFY(m_program.opener().opened.isEmpty());
  ostrak::Alert report;
  report.buttons = {u"Send to support"_s, u"Cancel"_s};
  report.problemReport = true;
  QCOMPARE(ostrak::presentAlert(report), ostrak::secondButton);
}

void TestTerminalPresenter::listenerComesFirst() {
  QStringList heard;
  bool handles = true;
  m_presenter.setListener([&](const ostrak::Alert &alert) {
    heard.append(alert.message);
    return handles;
  });
  ostrak::alert_apptitled(u"one"_s, u"OK"_s);
  QCOMPARE(m_error.take(), QByteArray());
  handles = false;
  ostrak::alert_apptitled(u"two"_s, u"OK"_s);
  QCOMPARE(m_error.take(), QByteArray("decant: two\n"));
  QCOMPARE(heard, (QStringList{u"one"_s, u"two"_s}));
}

QTEST_GUILESS_MAIN(TestTerminalPresenter)
#include "tst_terminalpresenter.moc"
