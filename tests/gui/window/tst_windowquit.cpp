#include <QtTest>

#include "Defaults.h"
#include "WindowBench.h"
#include "WindowTestMain.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The ways in which the program ends.
class TestWindowQuit final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    failOnWindowWarning();
    m_b = std::make_unique<WindowBench>();
    QVERIFY(m_b->open());
  }
  void cleanup() { m_b.reset(); }

  void endsTheEventLoop_data();
  void endsTheEventLoop();

 private:
  std::unique_ptr<WindowBench> m_b;
};

void TestWindowQuit::endsTheEventLoop_data() {
  QTest::addColumn<QString>("how");
  QTest::newRow("menu") << u"menu"_s;
  QTest::newRow("close button") << u"close"_s;
  QTest::newRow("signal") << u"signal"_s;
  QTest::newRow("toolkit") << u"toolkit"_s;
}

void TestWindowQuit::endsTheEventLoop() {
  QFETCH(const QString, how);
  bool hung = false;
  QTimer::singleShot(10'000, this, [&] {
    hung = true;
    QCoreApplication::exit();
  });
  QMetaObject::invokeMethod(
      this,
      [&] {
        if (how == u"menu"_s) m_b->trigger(u"quitAction"_s);
        if (how == u"close"_s) m_b->window().close();
        if (how == u"signal"_s) m_b->desktop().quitAtOnce();
        if (how == u"toolkit"_s) QCoreApplication::quit();
      },
      Qt::QueuedConnection);
  QCoreApplication::exec();
  QVERIFY(!hung);
}

int main(int argc, char **argv) {
  return runWindowTest<TestWindowQuit>(argc, argv);
}
#include "tst_windowquit.moc"
