#include <QCoreApplication>
#include <QFile>
#include <QMetaObject>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include "../desktop/AlertPlayer.h"
#include "Alerts.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// A signal ends the program whatever dialog is open, and leaves nothing half done behind.
class TestEndUnderDialog final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void underAnAlert_data();
  void underAnAlert();
  void underAPanel();
  void alertWhoseWindowGoes();

 private:
  void furnish() override {
    QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
    QCOMPARE(m_b->count(JobStateConverting), 1);
    m_output = m_b->queue().taskArray().first()->fileInfo().destinationURL.toLocalFile();
    QVERIFY(QFile::exists(m_output));
  }
  // Runs the event loop as the program does; `first` is called in it.
  void runLoop(const std::function<void()> &first);
  void ended();

  QString m_output;
  ostrak::WindowAlertPresenter m_dialogs;
};

void TestEndUnderDialog::runLoop(const std::function<void()> &first) {
  QMetaObject::invokeMethod(this, first, Qt::QueuedConnection);
  QTimer::singleShot(20'000, qApp, [] { QCoreApplication::exit(1); });
  QCOMPARE(QCoreApplication::exec(), 0);
}

void TestEndUnderDialog::ended() {
  QVERIFY(m_b->names().isEmpty());
  QVERIFY(!QFile::exists(m_output));
  QVERIFY(QFile::exists(m_b->path(u"slow.mkv"_s)));
}

void TestEndUnderDialog::underAnAlert_data() {
  QTest::addColumn<QString>("over");
  QTest::newRow("the main window") << u"main"_s;
  QTest::newRow("the documentation") << u"documentation"_s;
  QTest::newRow("the preferences") << u"preferences"_s;
  QTest::newRow("a panel") << u"panel"_s;
}

void TestEndUnderDialog::underAnAlert() {
  QFETCH(const QString, over);
  if (over == u"documentation"_s) {
    m_b->desktop().auxiliary().openDocumentationWindow(0);
    QVERIFY(QTest::qWaitForWindowActive(m_b->desktop().auxiliary().documentationWindow()));
  }
  if (over == u"preferences"_s) QVERIFY(m_b->trigger(u"preferencesAction"_s));
  if (over == u"panel"_s) QVERIFY(m_b->trigger(u"addAction"_s));
  ostrak::setAlertPresenter(&m_dialogs);
  const AlertPlayer player([this](const ostrak::AlertDialog &) { m_b->desktop().quitAtOnce(); });
  int code = 0;
  runLoop([&code] { code = ostrak::alert(u"Title"_s, u"Message"_s, u"Go"_s, u"Stay"_s); });
  QCOMPARE(player.shown(), 1);
  QCOMPARE(code, ostrak::secondButton);
  ended();
}

void TestEndUnderDialog::underAPanel() {
  QVERIFY(m_b->trigger(u"addAction"_s));
  QVERIFY(m_b->panel());
  runLoop([this] { m_b->desktop().quitAtOnce(); });
  ended();
}

// What is on the stack of a running dialog outlives the window that the dialog belongs to.
void TestEndUnderDialog::alertWhoseWindowGoes() {
  m_b->desktop().auxiliary().openDocumentationWindow(0);
  const QPointer<QWidget> below = m_b->desktop().auxiliary().documentationWindow();
  QVERIFY(QTest::qWaitForWindowActive(below));
  ostrak::setAlertPresenter(&m_dialogs);
  const AlertPlayer player([&below](const ostrak::AlertDialog &) { delete below; });
  QCOMPARE(ostrak::alert(u"Title"_s, u"Message"_s, u"Go"_s, u"Stay"_s), ostrak::secondButton);
  QCOMPARE(player.shown(), 1);
}

int main(int argc, char **argv) {
  return runWindowTest<TestEndUnderDialog>(argc, argv);
}
#include "tst_endunderdialog.moc"
