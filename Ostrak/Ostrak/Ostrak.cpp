#include "Ostrak.h"

#include <QDir>

#include "Dispatch.h"
#include "KeyboardModifiers.h"
#include "Logging.h"
#include "Patience.h"
#include "SupportMail.h"
#include "Text.h"
#include "UrlOpener.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

// Where the maker's pages are when the bundle does not say.
const QString makersAddress = u"https://decant.example/"_s;

// Where the bundle's information names a destination; null for a number that is none.
QString keyOf(int choice) {
  switch (choice) {
    case Ostrak::openSupportRequestMail:
    case Ostrak::openBetaSignupMail:
      return u"FeedbackEmail"_s;
    case Ostrak::openHomepageWebsite:
      return u"VendorProductPage"_s;
    case Ostrak::openAppStoreWebsite:
    case Ostrak::openAppStoreApp:
      return u"StoreProductPage"_s;
    case Ostrak::openMacupdateWebsite:
      return u"MacupdateProductPage"_s;
    default:
      return {};
  }
}

}  // namespace

Ostrak *tk = nullptr;

Ostrak::Ostrak(OstrakSetup setup)
    : m_setup(std::move(setup)), m_userDefaults(m_setup.prefsPath, m_setup.persistence) {
  tk = this;
  restartLogRings();
  if (m_setup.persistence != UserDefaults::Persistence::InMemory) QDir().mkpath(m_setup.suppDir);
  installExceptionHandler();
  if (const QString aside = m_userDefaults.keptAside(); !aside.isNull()) {
    tk_log_level(3, u"Warning: the settings file could not be read and was kept as %@"_s, aside);
  }
}

Ostrak::~Ostrak() {
  dispatch_end();
  if (tk == this) tk = nullptr;
}

QString Ostrak::infoValue(const QString &key) const {
  return m_setup.info.value(key).toVariant().toString();
}

QString Ostrak::appName() const {
  return infoValue(u"CFBundleName"_s);
}

QString Ostrak::appVersionString() const {
  return infoValue(u"CFBundleShortVersionString"_s);
}

qint32 Ostrak::appBuildNumber() const {
  return infoValue(u"CFBundleVersion"_s).toInt();
}

QString Ostrak::appBundleIdentifier() const {
  return infoValue(u"CFBundleIdentifier"_s);
}

QString Ostrak::prefsPath() const {
  return m_setup.prefsPath;
}

QUrl Ostrak::prefsURL() const {
  return QUrl::fromLocalFile(prefsPath());
}

QString Ostrak::suppDir() const {
  return m_setup.suppDir;
}

QUrl Ostrak::suppURL() const {
  return QUrl::fromLocalFile(suppDir());
}

QString Ostrak::docDir() const {
  const QString folder = suppDir() + u"/Documents"_s;
  QDir().mkpath(folder);
  return folder;
}

QUrl Ostrak::docURL() const {
  return QUrl::fromLocalFile(docDir());
}

QString Ostrak::deskDir() const {
  return m_setup.deskDir;
}

QUrl Ostrak::deskURL() const {
  return QUrl::fromLocalFile(deskDir());
}

QString Ostrak::resDir() const {
  return m_setup.bundlePath + u"/resources"_s;
}

QUrl Ostrak::resURL() const {
  return QUrl::fromLocalFile(resDir());
}

QString Ostrak::tempDir() const {
  return m_setup.tempDir;
}

QUrl Ostrak::homeURLInsideSandbox() const {
  return QUrl::fromLocalFile(m_setup.homeInsideSandbox);
}

QUrl Ostrak::homeURLOutsideSandbox() const {
  return QUrl::fromLocalFile(m_setup.homeOutsideSandbox);
}

QStringList Ostrak::appCrashLogs() const {
  return ostrak::appCrashLogs(appName(), m_setup.crashFolders);
}

void Ostrak::sendSupportRequestMail(const QString &usersText) {
  const auto gather = SupportFacts::gatherer(keyboard() && keyboard()->altHeld());
  const QString configured = infoValue(keyOf(openSupportRequestMail));
  const QString address = configured.isNull() ? builtInSupportAddress() : configured;
  patiently(
      localized(u"Preparing the Message"_s),
      [gather, address, usersText] {
        return mailUrl(cutMailLink(supportRequestMail(gather(), address, usersText)));
      },
      [](const QUrl &link) {
        if (tk && tk->workspace()) tk->workspace()->open(link);
      });
}

void Ostrak::openURL(int choice) {
  if (choice == openSupportRequestMail) {
    sendSupportRequestMail(u"<Insert Support Request Here>"_s);
    return;
  }
  if (const QString address = destination(choice); workspace() && !address.isNull()) {
    workspace()->open(QUrl(escaped(address)));
  }
}

bool Ostrak::hasDestination(UrlChoice choice) const {
  return !infoValue(keyOf(choice)).isNull();
}

QString Ostrak::destination(int choice) const {
  const QString named = infoValue(keyOf(choice));
  switch (choice) {
    case openBetaSignupMail:
      if (named.isNull()) return {};
      return makeString(
          u"s%@?subject=%@ Beta Versions&body=Hello\nI would like to test upcoming beta "
          u"versions of %@.\nBye\n"_s,
          named, appName(), appName());
    case openHomepageWebsite: {
      if (!named.isNull()) return named;
      const QString firstWord = appName().toLower().section(u' ', 0, 0).section(u'-', 0, 0);
      return makeString(u"%@%@/"_s, makersAddress, firstWord);
    }
    case openAppStoreApp:
      return QString(named).replace("https"_L1, "macappstore"_L1);
    case openAppStoreWebsite:
    case openMacupdateWebsite:
      return named;
    default:
      return u""_s;
  }
}

}  // namespace ostrak
