#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "RealSandbox.h"

using namespace Qt::StringLiterals;

class TestSandbox final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void outsideEverythingGoes();
  void insideTheFolderHasToBeThere_data();
  void insideTheFolderHasToBeThere();
  void insideTheFolderHasToBeOpen();

 private:
  [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }
  [[nodiscard]] bool makeFile(const QString &name) const {
    return QFile(path(name)).open(QIODevice::WriteOnly);
  }
  QTemporaryDir m_folder;
};

void TestSandbox::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  QVERIFY(makeFile(u".flatpak-info"_s));
}

void TestSandbox::outsideEverythingGoes() {
  RealSandbox sandbox(path(u"no-such-info"_s));
  QVERIFY(!sandbox.isActive());
  QVERIFY(sandbox.startAccess(path(u"no-such-folder"_s)));
  sandbox.stopAccess(path(u"no-such-folder"_s));
}

void TestSandbox::insideTheFolderHasToBeThere_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<bool>("usable");
  QTest::newRow("a folder") << u"granted"_s << true;
  QTest::newRow("a link to one") << u"link"_s << true;
  QTest::newRow("gone") << u"gone"_s << false;
  QTest::newRow("a link to what is gone") << u"broken"_s << false;
  QTest::newRow("a file") << u"file"_s << false;
}

void TestSandbox::insideTheFolderHasToBeThere() {
  QFETCH(QString, name);
  QFETCH(bool, usable);
  QDir().mkpath(path(u"granted"_s));
  QFile::link(path(u"granted"_s), path(u"link"_s));
  QFile::link(path(u"gone"_s), path(u"broken"_s));
  QVERIFY(makeFile(u"file"_s));
  RealSandbox sandbox(path(u".flatpak-info"_s));
  QVERIFY(sandbox.isActive());
  QCOMPARE(sandbox.startAccess(path(name)), usable);
}

void TestSandbox::insideTheFolderHasToBeOpen() {
  const QString closed = path(u"closed"_s);
  QDir().mkpath(closed);
  QVERIFY(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7755)));
  QVERIFY(QFile::setPermissions(closed, QFile::Permissions()));
  RealSandbox sandbox(path(u".flatpak-info"_s));
  const uid_t user = ::geteuid();
  // To root no folder is closed.
  if (user == 0) QCOMPARE(::seteuid(65534), 0);
  const bool usable = sandbox.startAccess(closed);
  const bool outside = sandbox.startAccess(m_folder.path());
  if (user == 0) QCOMPARE(::seteuid(user), 0);
  QFile::setPermissions(closed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  QVERIFY(!usable);
  QVERIFY(outside);
}

QTEST_GUILESS_MAIN(TestSandbox)
#include "tst_sandbox.moc"
