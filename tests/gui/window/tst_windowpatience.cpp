#include <QSemaphore>
#include <QTest>

#include "Dispatch.h"
#include "Patience.h"
#include "ProgressSheet.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The sheet over the main window while a person has to wait.
class TestWindowPatience final : public WindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void sheetWhileItTakesLong();
  void noSheetForQuickWork();
  void endsUnderTheSheet();

 private:
  [[nodiscard]] ostrak::ProgressSheet *sheet() { return ostrak::ProgressSheet::of(m_b->window()); }
  void startLong() {
    ostrak::patiently(
        u"Checking the Destination"_s,
        [go = m_go] {
          go->acquire();
          return 1;
        },
        [this](int result) { m_result = result; });
  }

  std::shared_ptr<QSemaphore> m_go = std::make_shared<QSemaphore>();
  int m_result = 0;
};

void TestWindowPatience::sheetWhileItTakesLong() {
  QVERIFY(m_b->open());
  m_result = 0;
  startLong();
  QTRY_VERIFY(sheet() && sheet()->isVisible());
  QCOMPARE(sheet()->accessibleName(), u"Checking the Destination"_s);
  QCOMPARE(sheet()->parentWidget(), &m_b->window());
  QCOMPARE(m_result, 0);
  m_go->release();
  QTRY_COMPARE(m_result, 1);
  QTRY_VERIFY(!sheet());
}

void TestWindowPatience::noSheetForQuickWork() {
  QVERIFY(m_b->open());
  m_result = 0;
  m_go->release();
  startLong();
  bool later = false;
  ostrak::dispatch_after_main([&] { later = true; }, 0.7F);
  QTRY_VERIFY(later);
  QTRY_COMPARE(m_result, 1);
  QVERIFY(!sheet());
}

void TestWindowPatience::endsUnderTheSheet() {
  QVERIFY(m_b->open());
  m_result = 0;
  startLong();
  QTRY_VERIFY(sheet() && sheet()->isVisible());
  m_b->close();
  m_go->release();
  QTRY_COMPARE(m_result, 1);
}

int main(int argc, char **argv) {
  return runWindowTest<TestWindowPatience>(argc, argv);
}
#include "tst_windowpatience.moc"
