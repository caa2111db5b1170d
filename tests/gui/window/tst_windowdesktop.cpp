#include <QAction>
#include <QImage>
#include <QJsonValue>
#include <QList>
#include <QPalette>
#include <QSize>
#include <QStringList>
#include <QTest>
#include <QUrl>

#include "Defaults.h"
#include "Ostrak.h"
#include "ThemeIcon.h"
#include "WholeFile.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What the window and the desktop tell each other: title, pause texts, launcher, notifications,
// links, and what is said once at the start.
class TestWindowDesktop final : public WindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void titleCounts();
  void pauseAndResume();
  void pausedJobLiftsTheMarkWhenContinued();
  void titleFollowsEveryPause();
  void cleanTakesFinishedOnesOnly();
  void launcherFollowsTheConversion();
  void notificationRevealsItsFile();
  void finishedJobNotifies();
  void links_data();
  void links();
  void linksWithoutAnAddress();
  void speedHint_data();
  void speedHint();
  void speedHintIsShownOnce();
  void brokenSettingsAreTold();
  void mainWindowComesToTheFront();
  void windowRemembersItsPlace();

 private:
  [[nodiscard]] QString title() { return m_b->window().windowTitle(); }
  [[nodiscard]] QAction &action(const QString &name) { return *m_b->find<QAction>(name); }
  [[nodiscard]] QImage picture(const QString &shipped) {
    const QPalette palette = m_b->window().palette();
    return ostrak::themeIcon(u"none-of-this-name"_s, shipped, palette).pixmap(24).toImage();
  }
};

void TestWindowDesktop::titleCounts() {
  QVERIFY(m_b->open());
  QCOMPARE(title(), u"Decant "_s);
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  QCOMPARE(title(), u"Decant  [1 Job(s), 0 Queued]"_s);
  QVERIFY(m_b->queueUp({u"2.mkv"_s}));
  QCOMPARE(title(), u"Decant  [2 Job(s), 1 Queued]"_s);
  QVERIFY(m_b->trigger(u"pauseContinueMenuItem"_s));
  QCOMPARE(title(), u"Decant (Paused) [2 Job(s), 1 Queued]"_s);
  QVERIFY(m_b->trigger(u"pauseContinueMenuItem"_s));
  m_b->letGo();
  QTRY_COMPARE(title(), u"Decant  [2 Job(s), 0 Queued]"_s);
  QTRY_COMPARE(m_b->count(JobStateFinished), 2);
  QVERIFY(m_b->trigger(u"cleanAction"_s));
  QCOMPARE(title(), u"Decant "_s);
}

void TestWindowDesktop::pauseAndResume() {
  QVERIFY(m_b->open());
  QVERIFY(m_b->queueUp({u"slow.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateConverting), 1);
  for (const QString &name : {u"pauseContinueToolbarItem"_s, u"pauseContinueMenuItem"_s}) {
    const auto running = m_b->count(JobStateConverting);
    QCOMPARE(running, 1);
    QCOMPARE(action(u"pauseContinueToolbarItem"_s).icon().pixmap(24).toImage(),
             picture(u"toolbar_pause"_s));
    QVERIFY(m_b->trigger(name));
    QCOMPARE(m_b->count(JobStateConverting), 0);
    QVERIFY(m_b->queue().paused());
    QCOMPARE(action(u"pauseContinueToolbarItem"_s).text(), u"Resume Queue"_s);
    QCOMPARE(action(u"pauseContinueToolbarItem"_s).iconText(), u"Resume Queue"_s);
    QCOMPARE(action(u"pauseContinueMenuItem"_s).text(), u"Resume Queue"_s);
    QCOMPARE(action(u"pauseContinueToolbarItem"_s).icon().pixmap(24).toImage(),
             picture(u"toolbar_start"_s));
    QVERIFY(m_b->trigger(name));
    QCOMPARE(m_b->count(JobStateConverting), 1);
    QVERIFY(!m_b->queue().paused());
    QCOMPARE(action(u"pauseContinueToolbarItem"_s).text(), u"Pause Queue"_s);
    QCOMPARE(action(u"pauseContinueMenuItem"_s).text(), u"Pause Queue"_s);
  }
}

void TestWindowDesktop::pausedJobLiftsTheMarkWhenContinued() {
  QVERIFY(m_b->open());
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  QVERIFY(m_b->trigger(u"pauseContinueToolbarItem"_s));
  m_b->queue().taskArray().first()->continue_();
  QCOMPARE(action(u"pauseContinueToolbarItem"_s).text(), u"Pause Queue"_s);
  QCOMPARE(title(), u"Decant  [1 Job(s), 0 Queued]"_s);
}

void TestWindowDesktop::titleFollowsEveryPause() {
  QVERIFY(m_b->open());
  m_b->queue().setPaused(true);
  QCOMPARE(title(), u"Decant (Paused)"_s);
  m_b->queue().setPaused(false);
  QCOMPARE(title(), u"Decant "_s);
}

void TestWindowDesktop::cleanTakesFinishedOnesOnly() {
  QVERIFY(m_b->open());
  QVERIFY(m_b->queueUp({u"1.mkv"_s, u"fail.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished), 2);
  QTRY_COMPARE(m_b->count(JobStateFailed), 1);
  QVERIFY(m_b->trigger(u"pauseContinueToolbarItem"_s));
  QVERIFY(m_b->queueUp({u"3.mkv"_s}));
  QVERIFY(m_b->trigger(u"cleanAction"_s));
  QCOMPARE(m_b->names(), QStringList({u"fail.mkv"_s, u"3.mkv"_s}));
}

void TestWindowDesktop::launcherFollowsTheConversion() {
  QVERIFY(m_b->open());
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  QVERIFY(m_b->queueUp({u"2.mkv"_s}));
  const auto last = [this] { return m_b->launcher.shown.value(m_b->launcher.shown.size() - 1); };
  QCOMPARE(last().count, 2);
  QVERIFY(last().fraction.has_value());
  // The movie lasts 100 seconds, of which 10 are done.
  QTRY_VERIFY(m_b->queue().taskArray().first()->progress() > 0);
  QCOMPARE(qRound(last().fraction.value_or(0) * 100), 10);
  QVERIFY(m_b->trigger(u"pauseContinueToolbarItem"_s));
  QVERIFY(!last().fraction);
  QVERIFY(m_b->trigger(u"pauseContinueToolbarItem"_s));
  QVERIFY(last().fraction.has_value());
  m_b->letGo();
  QTRY_COMPARE(m_b->count(JobStateFinished), 2);
  QCOMPARE(last(), (RecordingLauncherProgress::Shown{{}, 0}));
}

void TestWindowDesktop::notificationRevealsItsFile() {
  QVERIFY(m_b->open());
  m_b->notifier.activate(u"/somewhere/Film.m4v"_s);
  QCOMPARE(m_b->revealer.revealed, QStringList{u"/somewhere/Film.m4v"_s});
  m_b->close();
  m_b->notifier.activate(u"/somewhere/Film.m4v"_s);
  QCOMPARE(m_b->revealer.revealed.size(), 1);
}

void TestWindowDesktop::finishedJobNotifies() {
  QVERIFY(m_b->open());
  QVERIFY(m_b->queueUp({u"Film.mkv"_s}));
  QTRY_COMPARE(m_b->notifier.posted.size(), 1);
  m_b->notifier.activate(m_b->notifier.posted.first().path);
  QCOMPARE(m_b->revealer.revealed, QStringList{m_b->path(u"Film.m4v"_s)});
}

void TestWindowDesktop::links_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<int>("tag");
  QTest::addColumn<QString>("begins");
  QTest::newRow("support") << u"supportAction"_s << 1 << u"mailto:help@decant.example"_s;
  QTest::newRow("beta") << u"betaAction"_s << 2 << u"shelp@decant.example"_s;
  QTest::newRow("homepage") << u"homepageAction"_s << 3 << u"https://decant.example/home"_s;
  QTest::newRow("store page") << u"storeWebAction"_s << 4 << u"https://"_s;
  QTest::newRow("store program") << u"storeAppAction"_s << 5 << u""_s;
  QTest::newRow("rating") << u"macupdateAction"_s << 6 << u"https://decant.example/rate"_s;
}

void TestWindowDesktop::links() {
  QFETCH(const QString, name);
  QFETCH(const QString, begins);
  m_b->program.setInfo(u"FeedbackEmail"_s, u"help@decant.example"_s);
  m_b->program.setInfo(u"VendorProductPage"_s, u"https://decant.example/home"_s);
  m_b->program.setInfo(u"StoreProductPage"_s, u"https://decant.example/store"_s);
  m_b->program.setInfo(u"MacupdateProductPage"_s, u"https://decant.example/rate"_s);
  m_b->program.restart();
  QVERIFY(m_b->open());
  QTEST(action(name).property("tag").toInt(), "tag");
  QVERIFY(m_b->trigger(name));
  const QList<QUrl> &opened = m_b->program.opener().opened;
  QTRY_COMPARE(opened.size(), 1);
  QVERIFY2(opened.first().toString().startsWith(begins), qPrintable(opened.first().toString()));
  QVERIFY(!opened.first().isEmpty());
}

void TestWindowDesktop::linksWithoutAnAddress() {
  m_b->program.setInfo(u"FeedbackEmail"_s, QJsonValue());
  m_b->program.restart();
  QVERIFY(m_b->open());
  for (const QString &name : {u"supportAction"_s, u"betaAction"_s, u"homepageAction"_s,
                              u"storeWebAction"_s, u"storeAppAction"_s, u"macupdateAction"_s})
    QVERIFY2(!action(name).isEnabled(), qPrintable(name));
}

void TestWindowDesktop::speedHint_data() {
  QTest::addColumn<int>("welcomeShown");
  QTest::addColumn<int>("usages");
  QTest::addColumn<int>("preset");
  QTest::addColumn<bool>("shown");
  QTest::newRow("due") << 0 << 4 << 0 << true;
  QTest::newRow("long used") << 0 << 400 << 0 << true;
  QTest::newRow("too new") << 0 << 2 << 0 << false;
  QTest::newRow("fast already") << 0 << 4 << 1 << false;
  QTest::newRow("custom") << 0 << 4 << 2 << false;
  QTest::newRow("shown before") << 1 << 4 << 0 << false;
}

void TestWindowDesktop::speedHint() {
  QFETCH(const int, welcomeShown);
  QFETCH(const int, usages);
  QFETCH(const int, preset);
  QFETCH(const bool, shown);
  ostrak::setDefaultInt(u"WelcomeShown"_s, welcomeShown);
  ostrak::setDefaultInt(u"ostrak_1.2.3_usages"_s, usages);
  ostrak::setDefaultInt(u"ConversionPreset"_s, preset);
  int before = -1;
  bool windowThere = false;
  m_b->program.presenter().setWhileShown([&](const ostrak::Alert &) {
    before = static_cast<int>(ostrak::defaultInt(u"WelcomeShown"_s));
    windowThere = m_b->window().isVisible();
  });
  QVERIFY(m_b->open());
  // What is posted comes in turn, so that nothing is left when this one has come.
  bool last = false;
  ostrak::postAlert(ostrak::apptitledAlert(u"last"_s, {}), [&](int) { last = true; });
  QTRY_VERIFY(last);
  QCOMPARE(m_b->presented().size(), shown ? 2 : 1);
  QCOMPARE(ostrak::defaultInt(u"WelcomeShown"_s), shown ? 1 : welcomeShown);
  if (!shown) return;
  QVERIFY(windowThere);
  const ostrak::Alert &hint = m_b->presented().first();
  QCOMPARE(hint.title, u"Picking up Speed!"_s);
  QCOMPARE(hint.message,
           u"Note that conversion will be much faster, more reliable and higher quality if you "
           "select 'High Speed & Quality' in the 'Audio Conversion Settings' in the Preferences, "
           "though the resulting files may not play with sound on some devices (e.g. iOS). Just "
           "try it out!"_s);
  QCOMPARE(hint.image, u"ok.png"_s);
}

void TestWindowDesktop::speedHintIsShownOnce() {
  ostrak::setDefaultInt(u"WelcomeShown"_s, 0);
  ostrak::setDefaultInt(u"ostrak_1.2.3_usages"_s, 4);
  QVERIFY(m_b->open());
  QTRY_COMPARE(m_b->presented().size(), 1);
  QTRY_COMPARE(ostrak::defaultInt(u"WelcomeShown"_s), 1);
  m_b->close();
  m_b->program.restart();
  QCOMPARE(ostrak::defaultInt(u"WelcomeShown"_s), 1);
  QVERIFY(m_b->open());
  bool last = false;
  ostrak::postAlert(ostrak::apptitledAlert(u"last"_s, {}), [&](int) { last = true; });
  QTRY_VERIFY(last);
  QCOMPARE(m_b->presented().size(), 2);
}

void TestWindowDesktop::brokenSettingsAreTold() {
  const QString path = m_b->path(u"config/org.decant.Decant.conf"_s);
  QVERIFY(wholefile::write(path, "[General\nno settings \x01 at all"));
  m_b->program.restart();
  QVERIFY(m_b->open());
  QTRY_COMPARE(m_b->presented().size(), 1);
  QVERIFY(m_b->told().first().contains(path));
}

void TestWindowDesktop::mainWindowComesToTheFront() {
  QVERIFY(m_b->open());
  m_b->window().showMinimized();
  QVERIFY(m_b->trigger(u"mainWindowAction"_s));
  QVERIFY(!m_b->window().isMinimized());
  QVERIFY(m_b->window().isVisible());
}

void TestWindowDesktop::windowRemembersItsPlace() {
  QVERIFY(m_b->open());
  m_b->window().resize(781, 613);
  QVERIFY(m_b->desktop().quit());
  m_b->close();
  m_b->program.restart();
  QVERIFY(m_b->open());
  QCOMPARE(m_b->window().size(), QSize(781, 613));
}

int main(int argc, char **argv) {
  return runWindowTest<TestWindowDesktop>(argc, argv);
}
#include "tst_windowdesktop.moc"
