#include <QCoreApplication>
#include <QSemaphore>
#include <QTest>
#include <atomic>

#include "Dispatch.h"
#include "Patience.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

// Keeps what handlers throw, as the application object of the program does.
class CatchingApplication final : public QCoreApplication {
 public:
  using QCoreApplication::QCoreApplication;
  bool notify(QObject *receiver, QEvent *event) override {
    try {
      return QCoreApplication::notify(receiver, event);
    } catch (const std::exception &exception) {
      caught.append(QString::fromUtf8(exception.what()));
      return true;
    }
  }
  QStringList caught;
};

class RecordingPatience final : public PatiencePresenter {
 public:
  void begin(const QString &title) override { seen.append(u"begin "_s + title); }
  void end() override { seen.append(u"end"_s); }
  QStringList seen;
};

}  // namespace

class TestPatience final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();

  void worksInTheBack();
  void quickWorkIsDoneAtOnce();
  void quickWorkIsNotTold();
  void longWorkIsTold();
  void oneTellingForSeveral();
  void withoutAPresenter();
  void presenterThatGoes();
  void exceptionsOfDoneReachTheCaller();
  void exceptionsOfQuickWorkReachTheMainThread();
  void exceptionsOfLongWorkReachTheEventLoop();

 private:
  // Starts work that goes on until `m_go` is released.
  void startLong(const QString &name) {
    patiently(
        name,
        [this] {
          m_go.acquire();
          return 1;
        },
        [this, name](int) { m_presenter->seen.append(u"done "_s + name); });
  }
  [[nodiscard]] QStringList &seen() { return m_presenter->seen; }
  [[nodiscard]] static QStringList &caught() {
    return static_cast<CatchingApplication *>(QCoreApplication::instance())->caught;
  }

  std::unique_ptr<RecordingPatience> m_presenter;
  QSemaphore m_go;
};

void TestPatience::init() {
  QTest::failOnWarning(QRegularExpression(u".?"_s));
  caught().clear();
  m_presenter = std::make_unique<RecordingPatience>();
  setPatiencePresenter(m_presenter.get());
}

void TestPatience::cleanup() {
  setPatiencePresenter(nullptr);
  dispatch_end();
  QCOMPARE(m_go.available(), 0);
}

void TestPatience::worksInTheBack() {
  std::atomic<bool> inTheBack{false};
  bool onMain = false;
  patiently(
      u"t"_s, [&] { return inTheBack = !onMainThread(); }, [&](bool) { onMain = onMainThread(); });
  QTRY_VERIFY(onMain);
  QVERIFY(inTheBack);
}

// A machine may be too busy for that, but hardly ten times in a row.
void TestPatience::quickWorkIsDoneAtOnce() {
  int atOnce = 0;
  for (int round = 0; round < 10; ++round) {
    int result = 0;
    patiently(
        u"t"_s, [] { return 42; }, [&](int got) { result = got; });
    atOnce += result == 42 ? 1 : 0;
    QTRY_COMPARE(result, 42);
  }
  QVERIFY(atOnce > 0);
}

void TestPatience::quickWorkIsNotTold() {
  bool later = false;
  m_go.release();
  startLong(u"quick"_s);
  dispatch_after_main([&] { later = true; }, 0.7F);
  QTRY_VERIFY(later);
  QTRY_VERIFY(seen().contains(u"done quick"_s));
  // Once each: what was done at once does not come again from the queue.
  QCOMPARE(seen().count(u"done quick"_s), 1);
  QCOMPARE(seen(), QStringList{u"done quick"_s});
}

void TestPatience::longWorkIsTold() {
  startLong(u"long"_s);
  QCOMPARE(seen(), QStringList());
  QTRY_COMPARE(seen(), QStringList{u"begin long"_s});
  m_go.release();
  QTRY_COMPARE(seen(), QStringList({u"begin long"_s, u"end"_s, u"done long"_s}));
}

void TestPatience::oneTellingForSeveral() {
  startLong(u"one"_s);
  startLong(u"two"_s);
  QTRY_COMPARE(seen(), QStringList{u"begin one"_s});
  bool later = false;
  dispatch_after_main([&] { later = true; }, 0.7F);
  QTRY_VERIFY(later);
  QCOMPARE(seen().size(), 1);
  m_go.release(2);
  QTRY_COMPARE(seen().size(), 4);
  // It goes with the last one.
  QCOMPARE(seen().indexOf(u"end"_s), 2);
}

void TestPatience::withoutAPresenter() {
  setPatiencePresenter(nullptr);
  startLong(u"long"_s);
  bool later = false;
  dispatch_after_main([&] { later = true; }, 0.7F);
  QTRY_VERIFY(later);
  m_go.release();
  QTRY_COMPARE(seen(), QStringList{u"done long"_s});
}

void TestPatience::presenterThatGoes() {
  startLong(u"long"_s);
  QTRY_COMPARE(seen().size(), 1);
  setPatiencePresenter(nullptr);
  m_go.release();
  QTRY_COMPARE(seen(), QStringList({u"begin long"_s, u"done long"_s}));
}

void TestPatience::exceptionsOfDoneReachTheCaller() {
  int caught = 0;
  for (int round = 0; round < 10 && caught == 0; ++round) {
    try {
      patiently(
          u"t"_s, [] { return 1; }, [](int) { throw std::runtime_error("done"); });
    } catch (const std::runtime_error &) {
      ++caught;
    }
    dispatch_end();
  }
  QCOMPARE(caught, 1);
}

// At once or, on a busy machine, from the event loop; once in either case.
void TestPatience::exceptionsOfQuickWorkReachTheMainThread() {
  const auto work = []() -> int { throw std::runtime_error("quick"); };
  try {
    patiently(u"t"_s, work, [this](int) { seen().append(u"done"_s); });
  } catch (const std::runtime_error &exception) {
    caught().append(QString::fromUtf8(exception.what()));
  }
  QTRY_COMPARE(caught(), QStringList{u"quick"_s});
  bool later = false;
  dispatch_after_main([&] { later = true; }, 0.7F);
  QTRY_VERIFY(later);
  QCOMPARE(caught(), QStringList{u"quick"_s});
  QCOMPARE(seen(), QStringList());
}

void TestPatience::exceptionsOfLongWorkReachTheEventLoop() {
  const auto work = [this]() -> int {
    m_go.acquire();
    throw std::runtime_error("long");
  };
  patiently(u"t"_s, work, [this](int) { seen().append(u"done"_s); });
  QTRY_COMPARE(seen(), QStringList{u"begin t"_s});
  m_go.release();
  QTRY_COMPARE(caught(), QStringList{u"long"_s});
  // The telling has ended, and nothing was done.
  QCOMPARE(seen(), QStringList({u"begin t"_s, u"end"_s}));
}

int main(int argc, char **argv) {
  CatchingApplication application(argc, argv);
  TestPatience test;
  return QTest::qExec(&test, argc, argv);
}
#include "tst_patience.moc"
