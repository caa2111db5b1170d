#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QTest>

#include "DesktopBench.h"
#include "RealNotifier.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;

namespace {

const QString server = u"org.freedesktop.Notifications"_s;
const QString objectPath = u"/org/freedesktop/Notifications"_s;
const QString control = u"org.dunstproject.cmd0"_s;

Notification finished(const QString &id, const QString &text) {
  return {id, u"Decant Conversion Finished"_s, text, u"Show"_s, u"/out/"_s + id + u".mp4"_s};
}

}  // namespace

// A real notification server, dunst, on a display that nobody sees.
class TestNotifierDunst final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void showsReplacesAndAnswersTheClick();
  void theTextArrivesAsItIs_data();
  void theTextArrivesAsItIs();
  void diesAndComesBack();

 private:
  [[nodiscard]] bool startDisplay();
  [[nodiscard]] bool startDunst(const QString &markup = u"full"_s);
  void endDunst();
  // Dunst's own interface: what is on the screen, and the hand of the user.
  [[nodiscard]] uint displayed() const;
  void command(const QString &method, const QVariantList &arguments = {}) const;
  // The message that was closed last.
  [[nodiscard]] QVariantMap lastOfHistory() const;

  std::unique_ptr<DesktopBench> m_bench;
  std::unique_ptr<RealNotifier> m_notifier;
  std::unique_ptr<QProcess> m_display;
  std::unique_ptr<QProcess> m_dunst;
  QString m_displayName;
  QStringList m_activated;
};

void TestNotifierDunst::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_bench = std::make_unique<DesktopBench>();
  m_activated.clear();
  m_notifier = std::make_unique<RealNotifier>(m_bench->bus(), u"Decant"_s, u"org.decant.Decant"_s);
  m_notifier->setActivated([this](const QString &path) { m_activated.append(path); });
  QVERIFY(startDisplay());
}

void TestNotifierDunst::cleanup() {
  m_notifier.reset();
  endDunst();
  m_bench.reset();
  if (m_display) {
    m_display->terminate();
    m_display->waitForFinished();
  }
  m_display.reset();
}

bool TestNotifierDunst::startDisplay() {
  m_display = std::make_unique<QProcess>();
  m_display->setStandardErrorFile(m_bench->path(u"display-errors"_s));
  m_display->start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"800x600x24"_s,
                               u"-nolisten"_s, u"tcp"_s});
  while (!m_display->canReadLine() && m_display->waitForReadyRead()) {
  }
  m_displayName = u':' + QString::fromLatin1(m_display->readLine().trimmed());
  return m_displayName.size() > 1;
}

bool TestNotifierDunst::startDunst(const QString &markup) {
  const QString settings = m_bench->path(u"dunstrc"_s);
  if (!wholefile::write(settings, "[global]\nmarkup = " + markup.toLatin1() + "\n")) return false;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"DISPLAY"_s, m_displayName);
  environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_bench->privateBus().address());
  environment.remove(u"WAYLAND_DISPLAY"_s);
  m_dunst = std::make_unique<QProcess>();
  m_dunst->setProcessEnvironment(environment);
  m_dunst->setStandardErrorFile(m_bench->path(u"dunst-errors"_s));
  m_dunst->start(u"dunst"_s, {u"-conf"_s, settings});
  return m_dunst->waitForStarted() && QTest::qWaitFor([this] {
           return m_bench->bus().interface()->isServiceRegistered(server).value();
         });
}

void TestNotifierDunst::endDunst() {
  if (!m_dunst) return;
  m_dunst->kill();
  m_dunst->waitForFinished();
  m_dunst.reset();
}

uint TestNotifierDunst::displayed() const {
  QDBusMessage call = QDBusMessage::createMethodCall(
      server, objectPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
  call << control << u"displayedLength"_s;
  return m_bench->bus().call(call).arguments().value(0).value<QDBusVariant>().variant().toUInt();
}

void TestNotifierDunst::command(const QString &method, const QVariantList &arguments) const {
  QDBusMessage call = QDBusMessage::createMethodCall(server, objectPath, control, method);
  call.setArguments(arguments);
  const QDBusMessage answer = m_bench->bus().call(call);
  QCOMPARE(answer.type(), QDBusMessage::ReplyMessage);
  m_bench->settle(server);
}

QVariantMap TestNotifierDunst::lastOfHistory() const {
  const QDBusMessage answer = m_bench->bus().call(
      QDBusMessage::createMethodCall(server, objectPath, control, u"NotificationListHistory"_s));
  const auto list = qdbus_cast<QList<QVariantMap>>(answer.arguments().value(0));
  return list.value(0);
}

void TestNotifierDunst::showsReplacesAndAnswersTheClick() {
  QVERIFY(startDunst());
  m_notifier->post(finished(u"a"_s, u"first"_s));
  QTRY_COMPARE(displayed(), 1U);
  m_bench->settle(server);
  m_notifier->post(finished(u"a"_s, u"second"_s));
  m_notifier->post(finished(u"b"_s, u"another"_s));
  QTRY_COMPARE(displayed(), 2U);
  m_bench->settle(server);
  command(u"NotificationAction"_s, {0U});
  QTRY_COMPARE(m_activated.size(), 1);
  QVERIFY(m_activated.at(0) == u"/out/a.mp4"_s || m_activated.at(0) == u"/out/b.mp4"_s);
  command(u"NotificationCloseAll"_s);
  QTRY_COMPARE(displayed(), 0U);
  QCOMPARE(m_bench->logged(), QStringList());
}

void TestNotifierDunst::theTextArrivesAsItIs_data() {
  QTest::addColumn<QString>("markup");
  QTest::newRow("a server that reads markup") << u"full"_s;
  QTest::newRow("one that does not") << u"no"_s;
}

void TestNotifierDunst::theTextArrivesAsItIs() {
  QFETCH(QString, markup);
  QVERIFY(startDunst(markup));
  m_notifier->post(finished(u"a"_s, u"<b>Tom &amp; Jerry's</b>.mkv"_s));
  QTRY_COMPARE(displayed(), 1U);
  command(u"NotificationCloseAll"_s);
  QTRY_COMPARE(displayed(), 0U);
  // Dunst tells what it drew, in the markup that it drew it from.
  QString drawn = lastOfHistory().value(u"message"_s).toString();
  QCOMPARE(drawn.replace(u"&apos;"_s, u"'"_s),
           u"<b>Decant Conversion Finished</b>\n&lt;b&gt;Tom &amp;amp; Jerry's&lt;/b&gt;.mkv"_s);
}

void TestNotifierDunst::diesAndComesBack() {
  QVERIFY(startDunst());
  m_notifier->post(finished(u"a"_s, u"first"_s));
  QTRY_COMPARE(displayed(), 1U);
  endDunst();
  QVERIFY(startDunst());
  m_bench->settle();
  QCOMPARE(displayed(), 0U);
  m_notifier->post(finished(u"a"_s, u"second"_s));
  QTRY_COMPARE(displayed(), 1U);
  m_bench->settle(server);
  command(u"NotificationAction"_s, {0U});
  QTRY_COMPARE(m_activated, QStringList{u"/out/a.mp4"_s});
  QCOMPARE(m_bench->logged(), QStringList());
}

QTEST_GUILESS_MAIN(TestNotifierDunst)
#include "tst_notifierdunst.moc"
