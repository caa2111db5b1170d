#include <pwd.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTest>
#include <QUrlQuery>
#include <thread>
#include <utility>

#include "Defaults.h"
#include "ScratchProgram.h"
#include "SupportMail.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestOstrak final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void bundleFacts();
  void buildNumber_data();
  void buildNumber();
  void folders();
  void makesItsFolders();
  void inMemoryMakesNoSupportFolder();
  void singletonComesAndGoes();
  void setupOfProcess();
  void desktopOfProcess_data();
  void desktopOfProcess();
  void setupIgnoresRelativeFolders();
  void destinations_data();
  void destinations();
  void missingKeysOpenNothing();
  void supportMail();
  void supportMailCarriesPreferencesOnDemand();
  void factsAreGatheredByValue();

 private:
  [[nodiscard]] QList<QUrl> &opened() { return m_program->opener().opened; }

  std::unique_ptr<ScratchProgram> m_program;
};

void TestOstrak::init() {
  QTest::failOnWarning(QRegularExpression(u".?"_s));
  m_program.reset();
  m_program = std::make_unique<ScratchProgram>();
}

void TestOstrak::bundleFacts() {
  QCOMPARE(tk->appName(), u"Decant"_s);
  QCOMPARE(tk->appVersionString(), u"1.2.3"_s);
  QCOMPARE(tk->appBundleIdentifier(), u"org.decant.Decant"_s);
  QCOMPARE(tk->infoValue(u"FeedbackEmail"_s), u"support@decant.example"_s);
  QVERIFY(tk->infoValue(u"NoSuchKey"_s).isNull());
}

void TestOstrak::buildNumber_data() {
  QTest::addColumn<QJsonValue>("text");
  QTest::addColumn<qint32>("number");
  QTest::newRow("number") << QJsonValue(u"1234"_s) << 1234;
  QTest::newRow("no number") << QJsonValue(u"beta"_s) << 0;
  QTest::newRow("empty") << QJsonValue(u""_s) << 0;
  QTest::newRow("absent") << QJsonValue(QJsonValue::Null) << 0;
  QTest::newRow("too large") << QJsonValue(u"99999999999"_s) << 0;
  QTest::newRow("written as a number") << QJsonValue(7) << 7;
}

void TestOstrak::buildNumber() {
  QFETCH(QJsonValue, text);
  QFETCH(qint32, number);
  m_program->setInfo(u"CFBundleVersion"_s, text);
  m_program->restart();
  QCOMPARE(tk->appBuildNumber(), number);
}

void TestOstrak::folders() {
  QCOMPARE(tk->prefsPath(), m_program->path(u"config/org.decant.Decant.conf"_s));
  QCOMPARE(tk->suppDir(), m_program->path(u"data/Decant"_s));
  QCOMPARE(tk->docDir(), m_program->path(u"data/Decant/Documents"_s));
  QCOMPARE(tk->deskDir(), m_program->path(u"home/Desktop"_s));
  QCOMPARE(tk->resDir(), m_program->path(u"bundle/resources"_s));
  QCOMPARE(tk->tempDir(), m_program->path(u"tmp"_s));
  const QList<std::pair<QUrl, QString>> locations{
      {tk->prefsURL(), tk->prefsPath()},
      {tk->suppURL(), tk->suppDir()},
      {tk->docURL(), tk->docDir()},
      {tk->deskURL(), tk->deskDir()},
      {tk->resURL(), tk->resDir()},
      {tk->homeURLInsideSandbox(), m_program->path(u"home"_s)},
      {tk->homeURLOutsideSandbox(), m_program->path(u"home"_s)}};
  for (const auto &[url, path] : locations)
    QCOMPARE(url, QUrl::fromLocalFile(path));
}

void TestOstrak::makesItsFolders() {
  QVERIFY(QDir(m_program->path(u"data/Decant"_s)).exists());
  QVERIFY(!QDir(m_program->path(u"data/Decant/Documents"_s)).exists());
  QVERIFY(QDir(tk->docDir()).exists());
  QDir(m_program->path(u"data"_s)).removeRecursively();
  m_program->restart();
  QVERIFY(QDir(m_program->path(u"data/Decant"_s)).exists());
}

void TestOstrak::inMemoryMakesNoSupportFolder() {
  QDir(m_program->path(u"data"_s)).removeRecursively();
  m_program->restart(UserDefaults::Persistence::InMemory);
  QVERIFY(!QDir(m_program->path(u"data/Decant"_s)).exists());
}

void TestOstrak::singletonComesAndGoes() {
  QCOMPARE(tk, &m_program->library());
  m_program.reset();
  QVERIFY(!tk);
}

void TestOstrak::setupOfProcess() {
  qputenv("XDG_CONFIG_HOME", "/scratch/config");
  qputenv("XDG_DATA_HOME", "/scratch/data");
  const OstrakSetup setup = OstrakSetup::ofProcess();
  QCOMPARE(setup.bundlePath, QCoreApplication::applicationDirPath());
  QVERIFY(setup.info.isEmpty());
  QCOMPARE(setup.prefsPath, u"/scratch/config/org.decant.Decant.conf"_s);
  QCOMPARE(setup.suppDir, u"/scratch/data/Decant"_s);
  QCOMPARE(setup.homeInsideSandbox, QDir::homePath());
  QCOMPARE(setup.homeOutsideSandbox, QFile::decodeName(getpwuid(getuid())->pw_dir));
  QCOMPARE(setup.tempDir, QDir::tempPath());
  QCOMPARE(setup.crashFolders, (QStringList{u"/var/lib/systemd/coredump"_s, u"/var/crash"_s}));
  QCOMPARE(setup.persistence, UserDefaults::Persistence::Stored);
}

void TestOstrak::desktopOfProcess_data() {
  QTest::addColumn<QByteArray>("userDirs");
  QTest::addColumn<QString>("desktop");
  QTest::newRow("where the user has it")
      << QByteArray("XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n") << u"/Schreibtisch"_s;
  QTest::newRow("not named") << QByteArray("XDG_MUSIC_DIR=\"$HOME/Music\"\n") << u"/Desktop"_s;
}

void TestOstrak::desktopOfProcess() {
  QFETCH(const QByteArray, userDirs);
  QFETCH(const QString, desktop);
  qputenv("XDG_CONFIG_HOME", m_program->path(u"config"_s).toUtf8());
  QVERIFY(wholefile::write(m_program->path(u"config/user-dirs.dirs"_s), userDirs));
  QCOMPARE(OstrakSetup::ofProcess().deskDir, QString(QDir::homePath() + desktop));
}

void TestOstrak::setupIgnoresRelativeFolders() {
  for (const char *value : {"", "relative/folder"}) {
    qputenv("XDG_CONFIG_HOME", value);
    qputenv("XDG_DATA_HOME", value);
    const OstrakSetup setup = OstrakSetup::ofProcess();
    QCOMPARE(setup.prefsPath, QString(QDir::homePath() + u"/.config/org.decant.Decant.conf"_s));
    QCOMPARE(setup.suppDir, QString(QDir::homePath() + u"/.local/share/Decant"_s));
  }
}

void TestOstrak::destinations_data() {
  QTest::addColumn<int>("choice");
  QTest::addColumn<QString>("address");
  QTest::newRow("beta")
      << int{Ostrak::openBetaSignupMail}
      << u"ssupport@decant.example?subject=Decant%20Beta%20Versions&body=Hello%0AI%20would%20"
         u"like%20to%20test%20upcoming%20beta%20versions%20of%20Decant.%0ABye%0A"_s;
  QTest::newRow("homepage") << int{Ostrak::openHomepageWebsite}
                            << u"https://decant.example/vendor?a=b"_s;
  QTest::newRow("store") << int{Ostrak::openAppStoreWebsite} << u"https://decant.example/store"_s;
  QTest::newRow("store program") << int{Ostrak::openAppStoreApp}
                                 << u"macappstore://decant.example/store"_s;
  QTest::newRow("updates") << int{Ostrak::openMacupdateWebsite}
                           << u"https://decant.example/update%20x"_s;
  QTest::newRow("none") << 0 << u""_s;
  QTest::newRow("unknown") << 7 << u""_s;
}

void TestOstrak::destinations() {
  QFETCH(int, choice);
  QFETCH(QString, address);
  m_program->setInfo(u"VendorProductPage"_s, u"https://decant.example/vendor?a=b"_s);
  m_program->setInfo(u"StoreProductPage"_s, u"https://decant.example/store"_s);
  m_program->setInfo(u"MacupdateProductPage"_s, u"https://decant.example/update x"_s);
  m_program->restart();
  tk->openURL(choice);
  QCOMPARE(opened().size(), 1);
  QCOMPARE(QString::fromLatin1(opened().first().toEncoded()), address);
  QCOMPARE(tk->hasDestination(Ostrak::UrlChoice(choice)), !address.isEmpty());
}

void TestOstrak::missingKeysOpenNothing() {
  m_program->setInfo(u"FeedbackEmail"_s, QJsonValue::Null);
  m_program->setInfo(u"CFBundleName"_s, u"Decant-Pro Edition"_s);
  m_program->restart();
  for (const int choice : {2, 4, 5, 6})
    tk->openURL(choice);
  QVERIFY(opened().isEmpty());
  for (int choice = 1; choice <= 6; ++choice)
    QVERIFY(!tk->hasDestination(Ostrak::UrlChoice(choice)));
  tk->openURL(Ostrak::openHomepageWebsite);
  QCOMPARE(opened(), QList<QUrl>{QUrl(u"https://decant.example/decant/"_s)});
}

void TestOstrak::supportMail() {
  QVERIFY(QFile(m_program->path(u"crashes/decant.1.crash"_s)).open(QIODevice::WriteOnly));
  QCOMPARE(tk->appCrashLogs(), QStringList{u"decant.1.crash"_s});
  tk->openURL(Ostrak::openSupportRequestMail);
  QTRY_COMPARE(opened().size(), 1);
  QCOMPARE(opened().first().scheme(), u"mailto"_s);
  QCOMPARE(opened().first().path(), u"support@decant.example"_s);
  const QUrlQuery query(opened().first());
  QCOMPARE(query.queryItemValue(u"subject"_s, QUrl::FullyDecoded),
           u"Decant v1.2.3 (45) Support Request"_s);
  const QString body = query.queryItemValue(u"body"_s, QUrl::FullyDecoded);
  QVERIFY(body.startsWith(u"<Insert Support Request Here>\n\n\n\nP.S: Hardware: "_s));
  QVERIFY(body.endsWith(u" Problems: 1\n"_s));
}

void TestOstrak::supportMailCarriesPreferencesOnDemand() {
  m_program->setInfo(u"FeedbackEmail"_s, u"other@decant.example"_s);
  m_program->restart();
  setDefaultInt(u"key"_s, 12345);
  m_program->keyboard().alt = true;
  tk->sendSupportRequestMail(u"Help"_s);
  // It is the key at the time of the call that counts.
  m_program->keyboard().alt = false;
  QTRY_COMPARE(opened().size(), 1);
  QCOMPARE(opened().first().path(), u"other@decant.example"_s);
  const QString body = QUrlQuery(opened().first()).queryItemValue(u"body"_s, QUrl::FullyDecoded);
  QVERIFY(QByteArray::fromBase64(body.section(u'\n', -1).toLatin1()).contains("key=12345"));
  m_program->setInfo(u"FeedbackEmail"_s, QJsonValue::Null);
  m_program->restart();
  tk->sendSupportRequestMail(u"Help"_s);
  QTRY_COMPARE(opened().size(), 2);
  QCOMPARE(opened().last().path(), u"support@decant.example"_s);
}

// A worker that reads a slow disk may still be at it when the program has gone.
void TestOstrak::factsAreGatheredByValue() {
  QVERIFY(QFile(m_program->path(u"crashes/decant.1.crash"_s)).open(QIODevice::WriteOnly));
  setDefaultInt(u"key"_s, 12345);
  const auto gather = SupportFacts::gatherer(true);
  const auto without = SupportFacts::gatherer(false);
  const QByteArray flushed = wholefile::read(tk->prefsPath());
  QVERIFY(flushed.contains("key=12345"));
  const Ostrak *library = std::exchange(tk, nullptr);
  const auto back = qScopeGuard([&] { tk = &m_program->library(); });
  SupportFacts facts;
  SupportFacts fewer;
  std::thread([&] {
    facts = gather();
    fewer = without();
  }).join();
  QCOMPARE(library, &m_program->library());
  QCOMPARE(facts.appName, u"Decant"_s);
  QCOMPARE(facts.appVersion, u"1.2.3"_s);
  QCOMPARE(facts.appBuild, 45);
  QCOMPARE(facts.crashLogs, 1);
  QCOMPARE(facts.preferences, flushed);
  QVERIFY(fewer.preferences.isEmpty());
}

QTEST_GUILESS_MAIN(TestOstrak)
#include "tst_ostrak.moc"
