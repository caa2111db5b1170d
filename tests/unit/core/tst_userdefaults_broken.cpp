#include <sys/socket.h>
#include <sys/un.h>

#include <QDir>
#include <QFile>
#include <QTest>

#include "Descriptor.h"
#include "Logging.h"
#include "ScratchProgram.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using ostrak::UserDefaults;
using Persistence = UserDefaults::Persistence;

// A settings file that cannot be parsed is kept, told once, and never rewritten.
class TestUserDefaultsBroken final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void isKeptAside();
  void isKeptAsideWhateverIsWrong_data();
  void isKeptAsideWhateverIsWrong();
  void takesTheFirstFreeNumber();
  void isLeftAloneInMemory();
  void isToldOnceByTheLibrary();
  void isKeptAsideWhileTheProgramRuns();
  void isIgnoredWhereItCannotBeMoved();
  void isNotWrittenOverWhereItCannotBeMoved();
  void isIgnoredWhereItCannotBeOpened_data();
  void isIgnoredWhereItCannotBeOpened();

 private:
  void breakFile(const QByteArray &text = garbage()) const;
  // A name with the part that is put behind it is too long for the file system.
  void takeNameThatCannotGrow() { m_path = m_program->path(u"config/"_s + QString(250, u'x')); }
  [[nodiscard]] static QByteArray garbage() { return "[General\nthis is no settings file\n"; }

  std::unique_ptr<ScratchProgram> m_program;
  QString m_path;
};

void TestUserDefaultsBroken::init() {
  QTest::failOnWarning(QRegularExpression(u".?"_s));
  m_program = std::make_unique<ScratchProgram>();
  m_path = m_program->path(u"config/x.conf"_s);
}

void TestUserDefaultsBroken::breakFile(const QByteArray &text) const {
  QVERIFY(wholefile::write(m_path, text));
}

void TestUserDefaultsBroken::isKeptAside() {
  breakFile();
  UserDefaults store(m_path, Persistence::Stored);
  QCOMPARE(store.keptAside(), QString(m_path + u".broken-1"_s));
  QCOMPARE(wholefile::read(store.keptAside()), garbage());
  QVERIFY(!QFile::exists(m_path));
  store.setValue(u"key"_s, 1);
  store.synchronize();
  QCOMPARE(wholefile::read(store.keptAside()), garbage());
  QCOMPARE(wholefile::read(m_path), "[General]\nkey=1\n");
}

void TestUserDefaultsBroken::isKeptAsideWhateverIsWrong_data() {
  QTest::addColumn<QByteArray>("text");
  QTest::newRow("words") << QByteArray("just text\n");
  QTest::newRow("bytes") << QByteArray("\xff\xfe\xfd");
  QTest::newRow("XML") << QByteArray("<?xml version='1.0'?>\n<plist>\n</plist>\n");
  QTest::newRow("zeros") << QByteArray("[General]\nkey=1\n\0\0\0", 19);
  QTest::newRow("words after entries") << QByteArray("[General]\nkey=1\nand then some\n");
  QTest::newRow("a key without a name") << QByteArray("[General]\n=1\n");
}

void TestUserDefaultsBroken::isKeptAsideWhateverIsWrong() {
  QFETCH(const QByteArray, text);
  breakFile(text);
  UserDefaults store(m_path, Persistence::Stored);
  QCOMPARE(wholefile::read(store.keptAside()), text);
}

void TestUserDefaultsBroken::takesTheFirstFreeNumber() {
  for (int number = 1; number <= 3; ++number) {
    breakFile(garbage() + QByteArray::number(number));
    const UserDefaults store(m_path, Persistence::Stored);
    QCOMPARE(store.keptAside(), QString(m_path + u".broken-%1"_s.arg(number)));
    QVERIFY(wholefile::read(store.keptAside()).endsWith(QByteArray::number(number)));
  }
}

void TestUserDefaultsBroken::isLeftAloneInMemory() {
  breakFile();
  {
    UserDefaults store(m_path, Persistence::InMemory);
    QVERIFY(store.keptAside().isNull());
    QVERIFY(!store.value(u"key"_s).isValid());
    store.setValue(u"key"_s, 1);
  }
  QCOMPARE(wholefile::read(m_path), garbage());
}

void TestUserDefaultsBroken::isToldOnceByTheLibrary() {
  m_path = m_program->library().prefsPath();
  breakFile();
  m_program->restart();
  const QString aside = m_program->library().userDefaults().keptAside();
  const QString told = u"Warning: the settings file could not be read and was kept as "_s + aside;
  QCOMPARE(aside, QString(m_path + u".broken-1"_s));
  QCOMPARE(m_program->logged(), QStringList{told});
  m_program->restart();
  QVERIFY(m_program->library().userDefaults().keptAside().isNull());
  QCOMPARE(m_program->logged(), QStringList{told});
}

void TestUserDefaultsBroken::isKeptAsideWhileTheProgramRuns() {
  UserDefaults store(m_path, Persistence::Stored);
  store.setValue(u"first"_s, 1);
  store.synchronize();
  breakFile();
  store.setValue(u"second"_s, 2);
  store.synchronize();
  QCOMPARE(wholefile::read(store.keptAside()), garbage());
  QVERIFY(wholefile::read(m_path).contains("second=2"));
  QCOMPARE(store.value(u"first"_s), QVariant(qint64{1}));
  QCOMPARE(m_program->logged().size(), 1);
}

void TestUserDefaultsBroken::isIgnoredWhereItCannotBeMoved() {
  takeNameThatCannotGrow();
  breakFile();
  {
    UserDefaults store(m_path, Persistence::Stored);
    QVERIFY(store.isFileIgnored());
    QVERIFY(store.keptAside().isNull());
    int told = 0;
    store.setUnwritable([&told] { ++told; });
    store.setValue(u"key"_s, 1);
    store.synchronize();
    QCOMPARE(store.value(u"key"_s), QVariant(qint64{1}));
    QCOMPARE(told, 1);
  }
  QCOMPARE(wholefile::read(m_path), garbage());
}

void TestUserDefaultsBroken::isNotWrittenOverWhereItCannotBeMoved() {
  takeNameThatCannotGrow();
  UserDefaults store(m_path, Persistence::Stored);
  store.setValue(u"first"_s, 1);
  store.synchronize();
  QVERIFY(!store.isFileIgnored());
  breakFile();
  store.setValue(u"second"_s, 2);
  store.synchronize();
  QCOMPARE(wholefile::read(m_path), garbage());
  QCOMPARE(m_program->logged().filter(u"(null)"_s), QStringList());
  QCOMPARE(m_program->logged().filter(u"cannot be written"_s).size(), 1);
  // What waits is written once it can be.
  QVERIFY(QFile::remove(m_path));
  store.setValue(u"third"_s, 3);
  store.synchronize();
  for (const char *key : {"second=2", "third=3"})
    QVERIFY2(wholefile::read(m_path).contains(key), key);
}

void TestUserDefaultsBroken::isIgnoredWhereItCannotBeOpened_data() {
  QTest::addColumn<Persistence>("persistence");
  QTest::newRow("stored") << Persistence::Stored;
  QTest::newRow("in memory") << Persistence::InMemory;
}

// A socket has no contents for anybody, root included.
void TestUserDefaultsBroken::isIgnoredWhereItCannotBeOpened() {
  QFETCH(const Persistence, persistence);
  const ostrak::Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const QByteArray path = QFile::encodeName(m_path);
  QVERIFY(path.size() < qsizetype{sizeof address.sun_path});
  std::copy(path.cbegin(), path.cend(), std::begin(address.sun_path));
  const void *generic = &address;
  QCOMPARE(::bind(socket.get(), static_cast<const sockaddr *>(generic), sizeof address), 0);
  UserDefaults store(m_path, persistence);
  QVERIFY(store.isFileIgnored());
  QVERIFY(store.keptAside().isNull());
  store.setValue(u"key"_s, 1);
  store.synchronize();
  QVERIFY(QFileInfo::exists(m_path));
  QVERIFY(!QFileInfo(m_path).isFile());
  QCOMPARE(QDir(QFileInfo(m_path).path()).entryList({u"*broken*"_s}), QStringList());
}

QTEST_GUILESS_MAIN(TestUserDefaultsBroken)
#include "tst_userdefaults_broken.moc"
