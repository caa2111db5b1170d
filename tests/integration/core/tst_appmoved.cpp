#include <QDir>
#include <QFile>
#include <QTest>
#include <memory>

#include "ProgramLauncher.h"
#include "ScratchProgram.h"
#include "SingleInstance.h"
#include "SmallDisk.h"
#include "VKAppMovedHandler.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// A bundle that is really moved. Who starts programs, and how long three seconds are, is the test's
// business.
class TestAppMoved final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void moved_data();
  void moved();
  void changesInsideAndBeside();
  void movedBackInTime();
  void gone_data();
  void gone();
  void toAnotherVolume();
  void newInstanceDoesNotStart();
  void userKeepsIt();
  void userWantsWhatIsHeld();
  void backWhileItIsTold();
  void userKeepsWhatIsNowhere();
  void movedOnceMoreWhileItIsTold();
  void handlerEndsWhileItIsTold();
  void nothingToWatch();

 private:
  // Writes down in which order things happen.
  class Launcher final : public ProgramLauncher {
   public:
    explicit Launcher(TestAppMoved &test) : m_test(test) {}
    [[nodiscard]] bool launch(const QString &executable) override {
      m_test.note(u"launch "_s + executable);
      return m_test.m_starts;
    }

   private:
    TestAppMoved &m_test;
  };

  [[nodiscard]] QString path(const QString &name) const { return m_program->path(name); }
  [[nodiscard]] QList<Alert> &presented() { return m_program->presenter().presented; }
  void note(const QString &what) {
    m_notes.append(m_instance.held ? QString(what + u", one instance"_s) : what);
  }
  void make(const QString &name) const { QVERIFY(QDir().mkpath(path(name))); }
  void write(const QString &name) const {
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::Append));
    QCOMPARE(file.write("x"), 1);
  }
  void move(const QString &from, const QString &to) const {
    QVERIFY(QDir().rename(path(from), path(to)));
  }
  void start(const QString &executable) {
    auto countdown = std::make_unique<ManualCountdown>();
    m_countdown = countdown.get();
    m_handler = VKAppMovedHandler::startMoveObservation(
        {executable, m_instance, m_launcher, [this] { ++m_holds; }, [this] { m_holds = 0; },
         [this] {
           note(u"ask"_s);
           return m_mayQuit;
         },
         [this] { note(u"quit"_s); }},
        std::move(countdown));
  }
  void verifyTold() {
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
  void verifyCouldNotRestart() {
    QTRY_COMPARE(presented().size(), 2);
    QCOMPARE(presented().last().title, u"Decant"_s);
    QCOMPARE(presented().last().message,
             u"Decant could not restart itself. Please do so yourself."_s);
    QCOMPARE(presented().last().buttons, QStringList{u"Quit"_s});
  }

  std::unique_ptr<ScratchProgram> m_program;
  RecordingSingleInstance m_instance;
  Launcher m_launcher{*this};
  std::unique_ptr<VKAppMovedHandler> m_handler;
  ManualCountdown *m_countdown = nullptr;  // the handler's
  QStringList m_notes;
  int m_holds = 0;
  bool m_mayQuit = true;
  bool m_starts = true;
};

void TestAppMoved::init() {
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

void TestAppMoved::cleanup() {
  m_handler.reset();
  m_program.reset();
}

void TestAppMoved::moved_data() {
  QTest::addColumn<QString>("from");
  QTest::addColumn<QString>("to");
  QTest::addColumn<QString>("place");
  const auto row = [](const char *name, const QString &from, const QString &to,
                      const QString &place) { QTest::newRow(name) << from << to << place; };
  const QString bundle = u"top/mid/bundle"_s;
  row("renamed", bundle, u"top/mid/other"_s, u"top/mid/other"_s);
  row("moved", bundle, u"elsewhere/bundle"_s, u"elsewhere/bundle"_s);
  row("deeper", bundle, u"top/mid/sub/a b ä"_s, u"top/mid/sub/a b ä"_s);
  row("named as if deleted", bundle, u"top/mid/bundle (deleted)"_s, u"top/mid/bundle (deleted)"_s);
  row("parent renamed", u"top/mid"_s, u"top/other"_s, u"top/other/bundle"_s);
  row("parent moved", u"top/mid"_s, u"elsewhere/mid"_s, u"elsewhere/mid/bundle"_s);
  row("grandparent renamed", u"top"_s, u"other"_s, u"other/mid/bundle"_s);
}

void TestAppMoved::moved() {
  QFETCH(const QString, from);
  QFETCH(const QString, to);
  QFETCH(const QString, place);
  make(u"top/mid/sub"_s);
  move(from, to);
  verifyTold();
  QTRY_COMPARE(m_notes, (QStringList{u"ask, one instance"_s,
                                     u"launch "_s + path(place) + u"/decant"_s, u"quit"_s}));
  QCOMPARE(presented().size(), 1);
}

void TestAppMoved::changesInsideAndBeside() {
  write(u"top/mid/bundle/decant"_s);
  write(u"top/mid/bundle/new"_s);
  move(u"top/mid/bundle/new"_s, u"top/mid/bundle/resources/new"_s);
  QVERIFY(QDir(path(u"top/mid/bundle/resources"_s)).removeRecursively());
  make(u"top/mid/bundle/resources/sub"_s);
  QVERIFY(QFile::setPermissions(path(u"top/mid/bundle/decant"_s), QFile::ReadOwner));
  make(u"top/mid/bundle2"_s);
  move(u"top/mid/bundle2"_s, u"top/bundle"_s);
  write(u"top/file"_s);
  move(u"elsewhere"_s, u"top/elsewhere"_s);
  // All of it has been told by now.
  QCoreApplication::processEvents();
  QCOMPARE(m_countdown->starts, 0);
  move(u"top/mid/bundle"_s, u"bundle3"_s);
  QCoreApplication::processEvents();
  QCOMPARE(m_countdown->starts, 1);
}

void TestAppMoved::movedBackInTime() {
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  move(u"elsewhere/bundle"_s, u"top/mid/bundle"_s);
  m_countdown->elapse();
  move(u"top"_s, u"other"_s);
  move(u"other"_s, u"top"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  m_countdown->elapse();
  QCoreApplication::processEvents();
  QCOMPARE(presented().size(), 0);
  // From other folders of the same names it is noticed, too.
  move(u"top"_s, u"old"_s);
  make(u"top/mid"_s);
  move(u"old/mid/bundle"_s, u"top/mid/bundle"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  m_countdown->elapse();
  move(u"top/mid"_s, u"top/moved"_s);
  verifyTold();
  QTRY_COMPARE(m_notes.value(1), u"launch "_s + path(u"top/moved/bundle/decant"_s));
}

void TestAppMoved::gone_data() {
  QTest::addColumn<bool>("replaced");
  QTest::newRow("deleted") << false;
  QTest::newRow("another one in its place") << true;
}

void TestAppMoved::gone() {
  QFETCH(const bool, replaced);
  QVERIFY(QDir(path(u"top/mid/bundle"_s)).removeRecursively());
  if (replaced) {
    make(u"top/mid/bundle"_s);
    write(u"top/mid/bundle/decant"_s);
  }
  verifyTold();
  verifyCouldNotRestart();
  QTRY_COMPARE(m_notes, (QStringList{u"ask, one instance"_s, u"quit"_s}));
}

void TestAppMoved::toAnotherVolume() {
  make(u"disk"_s);
  const SmallDisk disk(path(u"disk"_s));
  if (!disk.isThere()) qInfo("no file system may be mounted here: a plain folder takes its place");
  // As a move between volumes is done.
  make(u"disk/bundle"_s);
  QVERIFY(QFile::copy(path(u"top/mid/bundle/decant"_s), path(u"disk/bundle/decant"_s)));
  QVERIFY(QDir(path(u"top/mid/bundle"_s)).removeRecursively());
  verifyTold();
  verifyCouldNotRestart();
  QTRY_COMPARE(m_notes, (QStringList{u"ask, one instance"_s, u"quit"_s}));
}

void TestAppMoved::newInstanceDoesNotStart() {
  m_starts = false;
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  verifyTold();
  verifyCouldNotRestart();
  QTRY_COMPARE(m_notes,
               (QStringList{u"ask, one instance"_s,
                            u"launch "_s + path(u"elsewhere/bundle/decant"_s), u"quit"_s}));
}

void TestAppMoved::userKeepsIt() {
  m_mayQuit = false;
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  verifyTold();
  const QStringList asked{u"ask, one instance"_s};
  QTRY_COMPARE(m_notes, asked);
  // Away from where the user knows it to be, and back.
  move(u"elsewhere"_s, u"other"_s);
  move(u"other"_s, u"elsewhere"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  m_countdown->elapse();
  // Home again.
  move(u"elsewhere/bundle"_s, u"top/mid/bundle"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  m_countdown->elapse();
  QCoreApplication::processEvents();
  QCOMPARE(presented().size(), 1);
  QCOMPARE(m_notes, asked);
  QCOMPARE(m_holds, 0);
  // And somewhere else.
  presented().clear();
  m_mayQuit = true;
  move(u"top/mid"_s, u"top/other"_s);
  verifyTold();
  QTRY_COMPARE(m_notes.last(), u"quit"_s);
  QCOMPARE(m_notes.at(2), u"launch "_s + path(u"top/other/bundle/decant"_s));
}

void TestAppMoved::userWantsWhatIsHeld() {
  m_mayQuit = false;
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  verifyTold();
  QTRY_COMPARE(m_notes.size(), 1);
  m_handler->tellAgain();
  QTRY_COMPARE(m_notes, (QStringList{u"ask, one instance"_s, u"ask, one instance"_s}));
  QCOMPARE(presented().size(), 2);
  QCOMPARE(presented().last().message, presented().first().message);
  QVERIFY(m_holds > 0);
  move(u"elsewhere/bundle"_s, u"top/mid/bundle"_s);
  m_handler->tellAgain();
  QCOMPARE(m_holds, 0);
  QCOMPARE(m_notes.size(), 2);
}

// The user moves it back, and only then answers.
void TestAppMoved::backWhileItIsTold() {
  m_mayQuit = false;
  m_program->presenter().setWhileShown(
      [this](Alert &) { move(u"elsewhere/bundle"_s, u"top/mid/bundle"_s); });
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  m_countdown->elapse();
  QTRY_COMPARE(m_notes.size(), 1);
  QCOMPARE(presented().size(), 1);
  QCOMPARE(m_holds, 0);
}

void TestAppMoved::userKeepsWhatIsNowhere() {
  m_mayQuit = false;
  QVERIFY(QDir(path(u"top/mid/bundle"_s)).removeRecursively());
  verifyTold();
  QTRY_COMPARE(m_notes, QStringList{u"ask, one instance"_s});
  make(u"top/mid/bundle"_s);
  QVERIFY(QDir(path(u"top"_s)).removeRecursively());
  QCoreApplication::processEvents();
  QVERIFY(!m_countdown->isRunning());
  QCOMPARE(presented().size(), 1);
}

void TestAppMoved::movedOnceMoreWhileItIsTold() {
  m_program->presenter().setWhileShown(
      [this](Alert &) { move(u"elsewhere/bundle"_s, u"elsewhere/again"_s); });
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  verifyTold();
  QTRY_COMPARE(m_notes.value(1), u"launch "_s + path(u"elsewhere/again/decant"_s));
  QCoreApplication::processEvents();
  QCOMPARE(presented().size(), 1);
  QCOMPARE(m_countdown->starts, 1);
}

void TestAppMoved::handlerEndsWhileItIsTold() {
  m_program->presenter().setWhileShown([this](Alert &) { m_handler.reset(); });
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  verifyTold();
  QCoreApplication::processEvents();
  QCOMPARE(m_notes, QStringList());
}

void TestAppMoved::nothingToWatch() {
  start(path(u"missing/bundle/decant"_s));
  make(u"missing/bundle"_s);
  move(u"missing"_s, u"other"_s);
  QCoreApplication::processEvents();
  QCOMPARE(m_countdown->starts, 0);
  QCOMPARE(m_program->logged(), QStringList());
}

QTEST_GUILESS_MAIN(TestAppMoved)
#include "tst_appmoved.moc"
