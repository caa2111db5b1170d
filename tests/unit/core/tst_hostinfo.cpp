#include <unistd.h>

#include <QFile>
#include <QSysInfo>
#include <QTest>

#include "VKHostInformation.h"

using namespace Qt::StringLiterals;
using ostrak::VKHostInformation;

class TestHostInfo final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void machineType();
  void admin();
  void listedMember_data();
  void listedMember();
  void systemVersion();

 private:
  // The field `number` of the line of a colon-separated database that `fits`.
  static QString field(const QString &path, int number,
                       const std::function<bool(const QStringList &)> &fits);
};

QString TestHostInfo::field(const QString &path, int number,
                            const std::function<bool(const QStringList &)> &fits) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
  for (const QString &line : lines) {
    const QStringList fields = line.split(u':');
    if (fields.size() > number && fits(fields)) return fields.at(number);
  }
  return {};
}

void TestHostInfo::machineType() {
  QFile file(u"/sys/class/dmi/id/product_name"_s);
  const QString expected =
      file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : u""_s;
  QCOMPARE(VKHostInformation::machineType(), expected);
  QCOMPARE(ostrak::_machineType(), expected);
  QVERIFY(!VKHostInformation::machineType().isNull());
}

void TestHostInfo::admin() {
  const QString user = field(u"/etc/passwd"_s, 0, [](const QStringList &fields) {
    return fields.size() > 2 && fields.at(2) == QString::number(getuid());
  });
  const QStringList members = field(u"/etc/group"_s, 3, [](const QStringList &fields) {
                                return fields.at(0) == u"admin"_s;
                              }).split(u',');
  QCOMPARE(VKHostInformation::isUserAdmin(), !user.isEmpty() && members.contains(user));
  QCOMPARE(ostrak::_isUserAdmin(), VKHostInformation::isUserAdmin());
}

void TestHostInfo::listedMember_data() {
  QTest::addColumn<QString>("user");
  QTest::addColumn<QStringList>("members");
  QTest::addColumn<bool>("listed");
  const QStringList members{u"anna"_s, u"Bert"_s, u"jörg"_s};
  QTest::newRow("first") << u"anna"_s << members << true;
  QTest::newRow("last") << u"jörg"_s << members << true;
  QTest::newRow("stranger") << u"carl"_s << members << false;
  QTest::newRow("other case") << u"bert"_s << members << false;
  QTest::newRow("beginning of a member") << u"ann"_s << members << false;
  QTest::newRow("longer than a member") << u"anna2"_s << members << false;
  QTest::newRow("blank after it") << u"anna "_s << members << false;
  QTest::newRow("no members") << u"anna"_s << QStringList() << false;
  QTest::newRow("no name") << QString() << members << false;
  QTest::newRow("no name, empty member") << u""_s << QStringList{u""_s} << false;
}

void TestHostInfo::listedMember() {
  QFETCH(QString, user);
  QFETCH(QStringList, members);
  QFETCH(bool, listed);
  QCOMPARE(ostrak::isListedMember(user, members), listed);
}

void TestHostInfo::systemVersion() {
  const QString version = VKHostInformation::systemVersion();
  QVERIFY(version.startsWith(QSysInfo::prettyProductName()));
  QVERIFY(version.endsWith(QSysInfo::kernelVersion()));
}

QTEST_GUILESS_MAIN(TestHostInfo)
#include "tst_hostinfo.moc"
