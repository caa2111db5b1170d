#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include "BuildTree.h"
#include "DecantProgram.h"
#include "PrivateBus.h"

using namespace Qt::StringLiterals;

namespace {

QString script(const QString &path) {
  return buildtree::source(u"tests/integration/"_s + path);
}

}  // namespace

// A conversion in a desktop session: what it asks of the session's services.
class TestCliDesktop final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }
  void postsNoNotifications();
};

// The machine is kept awake over the same bus, so the program has been there.
void TestCliDesktop::postsNoNotifications() {
  const PrivateBus bus;
  const MockService notifications(bus, script(u"platform/desktopservices.py"_s),
                                  {u"notifications:actions,body"_s});
  const MockService session(bus, script(u"core/sleepservices.py"_s), {u"gnome"_s});
  QVERIFY(notifications.isReady() && session.isReady());
  DecantProgram program;
  program.environment().insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
  program.file(u"a.mkv"_s);
  program.file(u"broken.mkv"_s);
  program.scenario().conversion(u"broken.mkv"_s).exit(1).write();
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"broken.mkv"_s});
  QCOMPARE(outcome.story().last(), u"summary 1 1"_s);
  QTRY_VERIFY(session.log().filter(u"Inhibit"_s).size() >= 2);
  QCOMPARE(notifications.log(), QStringList());
}

QTEST_GUILESS_MAIN(TestCliDesktop)
#include "tst_cli_desktop.moc"
