#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <thread>

#include "UserDefaults.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using ostrak::UserDefaults;
using Persistence = UserDefaults::Persistence;

class TestUserDefaults final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void threeLayers();
  void survivesRestart_data();
  void survivesRestart();
  void readsFilesWrittenByHand_data();
  void readsFilesWrittenByHand();
  void removedKeysLeaveTheFile();
  void reachesTheDiskByATimer();
  void reachesTheDiskFromAThread();
  void reachesTheDiskWithoutAnEventLoop();
  void mergesWithOtherWriters();
  void writesFromManyThreads();
  void inMemoryNeverWrites();
  void aFolderThatCannotBeWritten_data();
  void aFolderThatCannotBeWritten();

 private:
  [[nodiscard]] QString path() const { return m_folder->filePath(u"settings/decant.conf"_s); }
  void write(const QByteArray &text) const;
  [[nodiscard]] QByteArray read() const;
  // The store as another process would read it, on a copy that no cache knows.
  [[nodiscard]] std::unique_ptr<UserDefaults> reopened();

  std::unique_ptr<QTemporaryDir> m_folder;
  int m_copies = 0;
};

void TestUserDefaults::init() {
  QTest::failOnWarning(QRegularExpression(u".?"_s));
  m_folder = std::make_unique<QTemporaryDir>();
}

void TestUserDefaults::write(const QByteArray &text) const {
  QDir().mkpath(m_folder->filePath(u"settings"_s));
  QVERIFY(wholefile::write(path(), text));
}

QByteArray TestUserDefaults::read() const {
  return wholefile::read(path());
}

std::unique_ptr<UserDefaults> TestUserDefaults::reopened() {
  const QString copy = m_folder->filePath(u"copy-%1.conf"_s.arg(++m_copies));
  QFile::copy(path(), copy);
  return std::make_unique<UserDefaults>(copy, Persistence::InMemory);
}

void TestUserDefaults::threeLayers() {
  UserDefaults store(path(), Persistence::Stored);
  QVERIFY(!store.value(u"key"_s).isValid());
  store.registerDefaults({{u"key"_s, 1}, {u"other"_s, 10}});
  QCOMPARE(store.value(u"key"_s), QVariant(qint64{1}));
  QVERIFY(!store.storedValue(u"key"_s).isValid());
  store.setValue(u"key"_s, 2);
  QCOMPARE(store.value(u"key"_s), QVariant(qint64{2}));
  store.registerDefaults({{u"key"_s, 3}});
  QCOMPARE(store.value(u"key"_s), QVariant(qint64{2}));
  QCOMPARE(store.value(u"other"_s), QVariant(qint64{10}));
  store.setOverride(u"key"_s, 4);
  QCOMPARE(store.value(u"key"_s), QVariant(qint64{4}));
  QCOMPARE(store.storedValue(u"key"_s), QVariant(qint64{2}));
  store.remove(u"key"_s);
  QCOMPARE(store.value(u"key"_s), QVariant(qint64{4}));
  store.synchronize();
  QVERIFY(!read().contains("key"));
  store.setValue(u""_s, 1);
  QVERIFY(!store.value(u""_s).isValid());
}

void TestUserDefaults::survivesRestart_data() {
  QTest::addColumn<QVariant>("value");
  QTest::newRow("integer") << QVariant(qint64{5});
  QTest::newRow("fraction") << QVariant(-2.25);
  QTest::newRow("boolean") << QVariant(true);
  QTest::newRow("text") << QVariant(u"a \"b\", c; d = e\n[f]\t\\ é 🎬"_s);
  QTest::newRow("text with blanks around") << QVariant(u"  a  "_s);
  QTest::newRow("text of a number") << QVariant(u"5"_s);
  QTest::newRow("text in the manner of the backend") << QVariant(u"@Invalid()"_s);
  QTest::newRow("text of bytes of the backend") << QVariant(u"@ByteArray(abc)"_s);
  QTest::newRow("empty text") << QVariant(u""_s);
  QTest::newRow("empty list") << QVariant(QVariantList());
  QTest::newRow("list of one") << QVariant(QVariantList{u"/a, b"_s});
  QTest::newRow("list of bytes") << QVariant(QVariantList{QByteArray("\0\1\xff", 3), QByteArray()});
  QTest::newRow("list of an empty text") << QVariant(QVariantList{u""_s});
  QTest::newRow("map") << QVariant(QVariantMap{{u"a/b"_s, QVariantList{qint64{1}, 1.5, u"2"_s}}});
  QTest::newRow("bytes") << QVariant(QByteArray("a\0b", 3));
}

void TestUserDefaults::survivesRestart() {
  QFETCH(QVariant, value);
  const QStringList keys{u"key"_s, u"ostrak_1/2_usages"_s, u"back\\slash"_s, u"per%2Fcent"_s,
                         u"ümlaut key"_s};
  {
    UserDefaults store(path(), Persistence::Stored);
    for (const QString &key : keys)
      store.setValue(key, value);
  }
  const auto store = reopened();
  for (const QString &key : keys) {
    const QVariant back = store->value(key);
    QCOMPARE(back.typeId(), value.typeId());
    QCOMPARE(back, value);
  }
}

void TestUserDefaults::readsFilesWrittenByHand_data() {
  QTest::addColumn<QByteArray>("text");
  QTest::addColumn<QVariant>("value");
  QTest::newRow("integer") << QByteArray("key=2\n") << QVariant(qint64{2});
  QTest::newRow("in the general group")
      << QByteArray("[General]\nkey = 2\n") << QVariant(qint64{2});
  QTest::newRow("quoted by the backend") << QByteArray("key=\"2\"\n") << QVariant(qint64{2});
  QTest::newRow("text") << QByteArray("key=eng ger\n") << QVariant(u"eng ger"_s);
  QTest::newRow("commas") << QByteArray("key=1, two\n")
                          << QVariant(QVariantList{qint64{1}, u"two"_s});
  QTest::newRow("nothing") << QByteArray("key=\n") << QVariant(u""_s);
  QTest::newRow("comment") << QByteArray("; said by hand\nkey=true\n") << QVariant(true);
  QTest::newRow("carriage returns") << QByteArray("[General]\r\nkey=7\r\n") << QVariant(qint64{7});
}

void TestUserDefaults::readsFilesWrittenByHand() {
  QFETCH(QByteArray, text);
  QFETCH(QVariant, value);
  write(text);
  const UserDefaults store(path(), Persistence::Stored);
  QCOMPARE(store.value(u"key"_s), value);
  QVERIFY(store.keptAside().isNull());
}

void TestUserDefaults::removedKeysLeaveTheFile() {
  write("[General]\nkey=2\nother=3\n");
  UserDefaults store(path(), Persistence::Stored);
  store.remove(u"key"_s);
  store.setValue(u"other"_s, QVariant());
  QVERIFY(!store.value(u"key"_s).isValid());
  store.synchronize();
  QVERIFY(!read().contains("key"));
  QVERIFY(!read().contains("other"));
}

void TestUserDefaults::reachesTheDiskByATimer() {
  UserDefaults store(path(), Persistence::Stored);
  store.setValue(u"key"_s, 1);
  store.setValue(u"later"_s, 2);
  // Not at once: both go together.
  QVERIFY(!read().contains("key=1"));
  QTRY_VERIFY_WITH_TIMEOUT(read().contains("key=1"), 20000);
  QVERIFY(read().contains("later=2"));
  store.setValue(u"key"_s, 3);
  QTRY_VERIFY_WITH_TIMEOUT(read().contains("key=3"), 20000);
}

void TestUserDefaults::reachesTheDiskFromAThread() {
  UserDefaults store(path(), Persistence::Stored);
  std::thread([&store] { store.setValue(u"key"_s, 1); }).join();
  QTRY_VERIFY_WITH_TIMEOUT(read().contains("key=1"), 20000);
}

void TestUserDefaults::reachesTheDiskWithoutAnEventLoop() {
  {
    UserDefaults store(path(), Persistence::Stored);
    store.setValue(u"key"_s, 1);
    store.synchronize();
    QVERIFY(read().contains("key=1"));
    store.setValue(u"key"_s, 2);
    QVERIFY(read().contains("key=1"));
  }
  QVERIFY(read().contains("key=2"));
}

void TestUserDefaults::mergesWithOtherWriters() {
  UserDefaults one(path(), Persistence::Stored);
  UserDefaults other(path(), Persistence::Stored);
  one.setValue(u"one"_s, 1);
  one.synchronize();
  other.setValue(u"other"_s, 2);
  other.synchronize();
  QCOMPARE(other.value(u"one"_s), QVariant(qint64{1}));
  QCOMPARE(reopened()->value(u"one"_s), QVariant(qint64{1}));
  QCOMPARE(reopened()->value(u"other"_s), QVariant(qint64{2}));

  const QByteArray byHand = read() + "written_by_hand=yes\n";
  write(byHand);
  one.setValue(u"one"_s, 11);
  one.synchronize();
  QCOMPARE(one.value(u"written_by_hand"_s), QVariant(u"yes"_s));
  QCOMPARE(one.value(u"other"_s), QVariant(qint64{2}));
  QCOMPARE(reopened()->value(u"written_by_hand"_s), QVariant(u"yes"_s));
  QCOMPARE(reopened()->value(u"one"_s), QVariant(qint64{11}));
}

void TestUserDefaults::writesFromManyThreads() {
  constexpr int writers = 8;
  constexpr int writes = 200;
  {
    UserDefaults store(path(), Persistence::Stored);
    std::vector<std::thread> threads;
    for (int writer = 0; writer < writers; ++writer) {
      threads.emplace_back([&store, writer] {
        for (int number = 0; number < writes; ++number) {
          store.setValue(u"%1-%2"_s.arg(writer).arg(number), number);
          (void)store.value(u"0-0"_s);
          if (number % 50 == 0) store.synchronize();
        }
      });
    }
    for (std::thread &thread : threads)
      thread.join();
  }
  const auto store = reopened();
  for (int writer = 0; writer < writers; ++writer) {
    for (int number = 0; number < writes; ++number) {
      QCOMPARE(store->value(u"%1-%2"_s.arg(writer).arg(number)), QVariant(qint64{number}));
    }
  }
}

void TestUserDefaults::inMemoryNeverWrites() {
  write("key=2\n");
  const QByteArray before = read();
  {
    UserDefaults store(path(), Persistence::InMemory);
    store.setValue(u"key"_s, 5);
    store.setValue(u"new"_s, 6);
    QCOMPARE(store.value(u"key"_s), QVariant(qint64{5}));
    store.synchronize();
  }
  QCOMPARE(read(), before);
  { UserDefaults(m_folder->filePath(u"none/x.conf"_s), Persistence::InMemory).setValue(u"a"_s, 1); }
  QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
           QStringList{u"settings"_s});
  QCOMPARE(QDir(m_folder->filePath(u"settings"_s)).entryList(QDir::Files | QDir::Hidden),
           QStringList{u"decant.conf"_s});
}

void TestUserDefaults::aFolderThatCannotBeWritten_data() {
  QTest::addColumn<QString>("path");
  QTest::newRow("no such place") << u"/proc/no-such-place/decant.conf"_s;
  QTest::newRow("below a file") << u"/etc/passwd/decant.conf"_s;
  QTest::newRow("a folder in its place") << u"/proc"_s;
}

void TestUserDefaults::aFolderThatCannotBeWritten() {
  QFETCH(QString, path);
  UserDefaults store(path, Persistence::Stored);
  store.setValue(u"key"_s, 1);
  store.synchronize();
  store.setValue(u"other"_s, 2);
  store.synchronize();
  QCOMPARE(store.value(u"key"_s), QVariant(qint64{1}));
  QCOMPARE(store.value(u"other"_s), QVariant(qint64{2}));
}

QTEST_GUILESS_MAIN(TestUserDefaults)
#include "tst_userdefaults.moc"
