#include <arpa/inet.h>
#include <sys/resource.h>

#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>

#include "VKHostInformation.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// Addresses, disks and what is installed.
class TestHostAddresses final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void chosen_data();
  void chosen();
  void ofThisMachine_data();
  void ofThisMachine();
  void withoutAList();
  void number_data();
  void number();
  void numberIsRememberedOnceFound();
  void ofThisRoot();
  void disks();
  void disksWithOneNumber();
  void growl();
};

void TestHostAddresses::chosen_data() {
  QTest::addColumn<QList<InterfaceAddress>>("addresses");
  QTest::addColumn<QString>("four");
  QTest::addColumn<QString>("six");
  const QString loopback = u"127.0.0.1"_s;
  const QString loopback6 = u"::1"_s;
  const QString own = u"192.0.2.7"_s;
  const QString own6 = u"2001:db8::7"_s;
  const InterfaceAddress lo{u"lo"_s, AF_INET, true, loopback};
  const InterfaceAddress lo6{u"lo"_s, AF_INET6, true, loopback6};
  const InterfaceAddress eth{u"eth0"_s, AF_INET, true, own};
  const InterfaceAddress eth6{u"eth0"_s, AF_INET6, true, own6};
  using List = QList<InterfaceAddress>;
  QTest::newRow("none") << List{} << loopback << loopback6;
  QTest::newRow("loopback only") << List{lo, lo6} << loopback << loopback6;
  QTest::newRow("several loopbacks")
      << List{lo, {u"lo1"_s, AF_INET, true, u"127.0.0.2"_s}, lo6} << loopback << loopback6;
  QTest::newRow("both") << List{lo, lo6, eth, eth6} << own << own6;
  QTest::newRow("only the one family") << List{lo, lo6, eth} << own << loopback6;
  QTest::newRow("only the other family") << List{eth6} << loopback << own6;
  QTest::newRow("the first of several")
      << List{eth, {u"wlan0"_s, AF_INET, true, u"192.0.2.8"_s}, eth6} << own << own6;
  QTest::newRow("down") << List{{u"eth1"_s, AF_INET, false, u"192.0.2.1"_s}, eth} << own
                        << loopback6;
  QTest::newRow("no address") << List{{u"eth1"_s, AF_INET, true, {}}, eth} << own << loopback6;
  QTest::newRow("another family") << List{{u"eth0"_s, AF_PACKET, true, u"aa:bb"_s}, eth} << own
                                  << loopback6;
}

void TestHostAddresses::chosen() {
  QFETCH(const QList<InterfaceAddress>, addresses);
  QTEST(chosenAddress(addresses, false), "four");
  QTEST(chosenAddress(addresses, true), "six");
}

void TestHostAddresses::ofThisMachine_data() {
  QTest::addColumn<bool>("wantIPv6");
  QTest::newRow("4") << false;
  QTest::newRow("6") << true;
}

void TestHostAddresses::ofThisMachine() {
  QFETCH(const bool, wantIPv6);
  const QByteArray text = VKHostInformation::ipAddress(wantIPv6).toUtf8();
  in6_addr parsed{};
  QCOMPARE(inet_pton(wantIPv6 ? AF_INET6 : AF_INET, text.constData(), &parsed), 1);
}

void TestHostAddresses::withoutAList() {
  QProcess process;
  // A sanitizer that is to write a file waits for ever where none can be opened.
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.remove(u"ASAN_OPTIONS"_s);
  environment.remove(u"UBSAN_OPTIONS"_s);
  process.setProcessEnvironment(environment);
  process.start(QCoreApplication::applicationFilePath(), {u"--role"_s, u"no-list"_s});
  QVERIFY(process.waitForFinished(60000));
  QCOMPARE(process.exitStatus(), QProcess::NormalExit);
  QCOMPARE(process.exitCode(), 1);
  const QByteArray told = process.readAllStandardError();
  QVERIFY2(told.startsWith("getifaddrs: "), told.constData());
  QCOMPARE(process.readAllStandardOutput(), QByteArray());
}

void TestHostAddresses::number_data() {
  QTest::addColumn<QString>("device");
  QTest::addColumn<int>("number");  // -1 is none
  QTest::newRow("slice") << u"/dev/disk1s1"_s << 1;
  QTest::newRow("whole disk") << u"/dev/disk0"_s << 0;
  QTest::newRow("long number") << u"/dev/disk12s3s4"_s << 12;
  QTest::newRow("partition of this system") << u"/dev/sda1"_s << -1;
  QTest::newRow("by its identifier") << u"/dev/disk/by-uuid/5s6"_s << -1;
  QTest::newRow("no number") << u"/dev/disk"_s << -1;
  QTest::newRow("below zero") << u"/dev/disk-100"_s << -1;
  QTest::newRow("elsewhere") << u"/mnt/dev/disk1s1"_s << -1;
  QTest::newRow("overlay") << u"overlay"_s << -1;
  QTest::newRow("none") << QString() << -1;
}

void TestHostAddresses::number() {
  QFETCH(const QString, device);
  QTEST(diskNumber(device).value_or(-1), "number");
}

void TestHostAddresses::numberIsRememberedOnceFound() {
  RememberedDiskNumber remembered;
  int asked = 0;
  QString device = u"/dev/sda1"_s;
  const auto ask = [&] {
    ++asked;
    return device;
  };
  QCOMPARE(remembered.find(ask), -1);
  QCOMPARE(remembered.find(ask), -1);
  QCOMPARE(asked, 2);
  device = u"/dev/disk3s2"_s;
  QCOMPARE(remembered.find(ask), 3);
  device = u"/dev/disk4s1"_s;
  QCOMPARE(remembered.find(ask), 3);
  QCOMPARE(asked, 3);
}

void TestHostAddresses::ofThisRoot() {
  // No device of this system is called like a numbered disk.
  QCOMPARE(VKHostInformation::bootDiskBSDNum(), -1);
  QCOMPARE(VKHostInformation::bootDiskBSDNum(), -1);
}

void TestHostAddresses::disks() {
  QList<QVariantMap> list;
  VKHostInformation::_addDiskToList(list, 1, u"System"_s, u"SSD"_s);
  VKHostInformation::_addDiskToList(list, 2, u"Movies"_s);
  VKHostInformation::_addDiskToList(list, 3, u"Bare"_s, u""_s);
  const QList<QVariantMap> expected{
      {{u"DiskNumber"_s, 1}, {u"DiskName"_s, u"System (SSD)"_s}},
      {{u"DiskNumber"_s, 2}, {u"DiskName"_s, u"Movies"_s}},
      {{u"DiskNumber"_s, 3}, {u"DiskName"_s, u"Bare ()"_s}},
  };
  QCOMPARE(list, expected);
}

void TestHostAddresses::disksWithOneNumber() {
  QList<QVariantMap> list;
  VKHostInformation::_addDiskToList(list, 0, u"Other"_s);
  VKHostInformation::_addDiskToList(list, 1, u"First"_s, u"detail"_s);
  VKHostInformation::_addDiskToList(list, 1, u"%@ Second"_s, u"not used"_s);
  const QList<QVariantMap> expected{
      {{u"DiskNumber"_s, 0}, {u"DiskName"_s, u"Other"_s}},
      {{u"DiskNumber"_s, 1}, {u"DiskName"_s, u"%@ Second, First (detail)"_s}},
  };
  QCOMPARE(list, expected);
}

void TestHostAddresses::growl() {
  const QTemporaryDir folder;
  const QString root = folder.filePath(u"root"_s);
  const QString home = folder.filePath(u"home"_s);
  const QString pane =
      u"/Library/PreferencePanes/Growl.prefPane/Contents/Resources/GrowlHelperApp.app"_s;
  const auto found = [&] { return VKHostInformation::growlInstallURL(root, home); };
  QVERIFY(!found());
  for (const QString &place :
       QStringList{root + pane, home + pane, root + u"/Applications/Growl.app"_s}) {
    QVERIFY(QDir().mkpath(place));
    QCOMPARE(found(), std::optional(QUrl::fromLocalFile(place)));
  }
}

namespace {

// The list of interfaces comes through a socket, and there is no descriptor left for one.
int askWithoutDescriptors() {
  const rlimit none{0, 0};
  if (setrlimit(RLIMIT_NOFILE, &none) != 0) return 2;
  std::puts(qPrintable(VKHostInformation::ipAddress(false)));
  return 3;
}

}  // namespace

int main(int argc, char **argv) {
  if (argc == 3 && qstrcmp(argv[1], "--role") == 0) return askWithoutDescriptors();
  const QCoreApplication application(argc, argv);
  TestHostAddresses test;
  return QTest::qExec(&test, argc, argv);
}
#include "tst_hostaddresses.moc"
