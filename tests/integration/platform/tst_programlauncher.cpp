#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "Descriptor.h"
#include "RealProgramLauncher.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;

// Programs that are started to live on.
class TestProgramLauncher final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }
  void startsAProcessOfItsOwn();
  void cannotStart_data();
  void cannotStart();

 private:
  static bool write(const QString &path, const QByteArray &text, QFile::Permissions permissions) {
    return wholefile::write(path, text) && QFile::setPermissions(path, permissions);
  }
};

void TestProgramLauncher::startsAProcessOfItsOwn() {
  const QTemporaryDir folder;
  const QString program = folder.filePath(u"a b"_s);
  const QString told = folder.filePath(u"told"_s);
  const ostrak::Descriptor ours(::open("/dev/null", O_RDONLY | O_CLOEXEC));
  qputenv("TOLD", QFile::encodeName(told));
  qputenv("OURS", "/proc/$$/fd/" + QByteArray::number(ours.get()));
  // What it was given: arguments, environment, the session it is in, our descriptor.
  QVERIFY(write(program,
                "#!/bin/sh\nset -- \"$#\" $(cut -d' ' -f6 /proc/$$/stat)\n"
                "eval test -e \"$OURS\" && set -- \"$@\" leaked\n"
                "echo \"$@\" > \"$TOLD.new\" && mv \"$TOLD.new\" \"$TOLD\"\n",
                QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
  QVERIFY(RealProgramLauncher().launch(program));
  QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(told), 30'000);
  const QList<QByteArray> words = wholefile::read(told).trimmed().split(' ');
  QCOMPARE(words.size(), 2);
  QCOMPARE(words.at(0), QByteArray("0"));
  QVERIFY(words.at(1).toInt() > 0);
  QVERIFY(words.at(1).toInt() != ::getsid(0));
}

void TestProgramLauncher::cannotStart_data() {
  QTest::addColumn<QString>("name");
  QTest::newRow("missing") << u"missing"_s;
  QTest::newRow("not executable") << u"plain"_s;
  QTest::newRow("a folder") << u"folder"_s;
}

void TestProgramLauncher::cannotStart() {
  QFETCH(const QString, name);
  const QTemporaryDir folder;
  QVERIFY(write(folder.filePath(u"plain"_s), "text", QFile::ReadOwner));
  QVERIFY(QDir(folder.path()).mkdir(u"folder"_s));
  QVERIFY(!RealProgramLauncher().launch(folder.filePath(name)));
}

QTEST_GUILESS_MAIN(TestProgramLauncher)
#include "tst_programlauncher.moc"
