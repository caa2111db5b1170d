#include "AppMovedTest.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// Writes down in which order things happen.
class AppMovedTest::Launcher final : public ProgramLauncher {
 public:
  explicit Launcher(AppMovedTest &test) : m_test(test) {}
  [[nodiscard]] bool launch(const QString &executable) override {
    m_test.note(u"launch "_s + executable);
    return m_test.m_starts;
  }

 private:
  AppMovedTest &m_test;
};

AppMovedTest::AppMovedTest() : m_launcher(std::make_unique<Launcher>(*this)) {}

AppMovedTest::~AppMovedTest() = default;

void AppMovedTest::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_program = std::make_unique<ScratchProgram>();
  m_notes.clear();
  m_holds = 0;
  m_mayQuit = m_starts = true;
  m_instance.held = true;
  make(u"top/mid/bundle/resources"_s);
  make(u"elsewhere"_s);
  write(u"top/mid/bundle/decant"_s);
  start(path(u"top/mid/bundle/decant"_s));
}

void AppMovedTest::cleanup() {
  m_handler.reset();
  m_program.reset();
}

void AppMovedTest::note(const QString &what) {
  m_notes.append(m_instance.held ? QString(what + u", one instance"_s) : what);
}

void AppMovedTest::make(const QString &name) const {
  QVERIFY(QDir().mkpath(path(name)));
}

void AppMovedTest::write(const QString &name) const {
  QVERIFY(wholefile::write(path(name), "x"));
}

void AppMovedTest::move(const QString &from, const QString &to) const {
  QVERIFY(QDir().rename(path(from), path(to)));
}

void AppMovedTest::start(const QString &executable) {
  auto countdown = std::make_unique<ManualCountdown>();
  m_countdown = countdown.get();
  m_handler = VKAppMovedHandler::startMoveObservation(
      {executable, m_instance, *m_launcher, [this] { ++m_holds; }, [this] { m_holds = 0; },
       [this] {
         note(u"ask"_s);
         return m_mayQuit;
       },
       [this] { note(u"quit"_s); }},
      std::move(countdown));
}

void AppMovedTest::verifyTold() {
  QTRY_VERIFY(m_countdown->isRunning());
  QCOMPARE(m_countdown->lastSpan, std::chrono::milliseconds(3000));
  QCOMPARE(presented().size(), 0);
  m_countdown->elapse();
  QTRY_VERIFY(!presented().isEmpty());
  QVERIFY(m_holds > 0);
  QCOMPARE(presented().first().title, u"Decant"_s);
  QCOMPARE(presented().first().message,
           u"Decant has been moved, but applications should never be moved while they are "
           "running."_s);
  QCOMPARE(presented().first().buttons, QStringList{u"Restart Decant"_s});
}

void AppMovedTest::verifyCouldNotRestart() {
  QTRY_COMPARE(presented().size(), 2);
  QCOMPARE(presented().last().title, u"Decant"_s);
  QCOMPARE(presented().last().message,
           u"Decant could not restart itself. Please do so yourself."_s);
  QCOMPARE(presented().last().buttons, QStringList{u"Quit"_s});
}
