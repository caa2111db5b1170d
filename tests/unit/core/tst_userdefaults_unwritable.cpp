#include <QTest>

#include "ScratchProgram.h"
#include "UserDefaults.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// A settings file that cannot be written is told once, and goes on to be tried.
class TestUserDefaultsUnwritable final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void toldOnce();
  void toldToWhoComesLater();
  void notInMemory();

 private:
  // Below a file there is no folder, whoever asks.
  [[nodiscard]] QString path() const { return m_program.path(u"bundle/resources/Info.json/x"_s); }
  [[nodiscard]] qsizetype logged() const {
    return m_program.logged().filter(u"cannot be written"_s).filter(path()).size();
  }

  ScratchProgram m_program;
};

void TestUserDefaultsUnwritable::toldOnce() {
  const qsizetype before = logged();
  int told = 0;
  UserDefaults store(path(), UserDefaults::Persistence::Stored);
  store.setUnwritable([&told] { ++told; });
  store.synchronize();
  QCOMPARE(told, 0);
  for (int value : {1, 2}) {
    store.setValue(u"key"_s, value);
    store.synchronize();
    QCOMPARE(told, 1);
    QCOMPARE(logged(), before + 1);
  }
  for (const ScratchProgram::Logged &line : m_program.loggedWithLevel())
    if (line.message.contains(path())) QCOMPARE(line.level, 3);
}

void TestUserDefaultsUnwritable::toldToWhoComesLater() {
  UserDefaults store(path(), UserDefaults::Persistence::Stored);
  store.setValue(u"key"_s, 1);
  store.synchronize();
  int told = 0;
  store.setUnwritable([&told] { ++told; });
  QCOMPARE(told, 1);
  store.setUnwritable({});
}

void TestUserDefaultsUnwritable::notInMemory() {
  const qsizetype before = logged();
  int told = 0;
  UserDefaults store(path(), UserDefaults::Persistence::InMemory);
  store.setUnwritable([&told] { ++told; });
  store.setValue(u"key"_s, 1);
  store.synchronize();
  QCOMPARE(told, 0);
  QCOMPARE(logged(), before);
}

QTEST_GUILESS_MAIN(TestUserDefaultsUnwritable)
#include "tst_userdefaults_unwritable.moc"
