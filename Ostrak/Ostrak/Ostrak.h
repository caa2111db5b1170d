#pragma once

#include <QJsonObject>
#include <QString>
#include <QUrl>
#include <functional>
#include <memory>

#include "UserDefaults.h"

class KeyboardModifiers;
class UrlOpener;

namespace ostrak {

// What the library learns once, as values, so that a test makes a whole program in a scratch
// folder. All paths are absolute.
struct OstrakSetup {
  QString bundlePath;  // the folder that holds the executable and resources/
  QJsonObject info;    // the bundle's information, resources/Info.json
  QString prefsPath;   // the settings file
  QString suppDir;     // the program's own data folder, $XDG_DATA_HOME/Decant
  QString deskDir;
  QString homeInsideSandbox;
  QString homeOutsideSandbox;
  QString tempDir;
  QStringList crashFolders;  // where core dumps are looked for
  UserDefaults::Persistence persistence = UserDefaults::Persistence::Stored;
  UrlOpener *workspace = nullptr;         // not owned; null opens nothing
  KeyboardModifiers *keyboard = nullptr;  // not owned; null means no key is held
  // Where messages go besides capture file and ring; empty means syslog.
  std::function<void(int level, const QString &message)> systemLog;

  // The setup of the running process: bundle from /proc/self/exe, folders from the environment.
  [[nodiscard]] static OstrakSetup ofProcess();
};

// The library singleton: bundle facts, standard folders, the settings store. Made once, at the very
// start of the program; `tk` points to it for as long as it lives. Its getters may be called from
// any thread.
class Ostrak final {
 public:
  // Sets `tk`, opens the settings store, creates the support folder with its parents (errors are
  // ignored; not with Persistence::InMemory) and installs the handler for uncaught exceptions.
  explicit Ostrak(OstrakSetup setup);
  // Main thread: ends the work of other threads first, which may use `tk`, see dispatch_end.
  ~Ostrak();
  Ostrak(const Ostrak &) = delete;
  Ostrak &operator=(const Ostrak &) = delete;

  [[nodiscard]] UserDefaults &userDefaults() { return m_userDefaults; }
  [[nodiscard]] UrlOpener *workspace() const { return m_setup.workspace; }
  [[nodiscard]] KeyboardModifiers *keyboard() const { return m_setup.keyboard; }
  [[nodiscard]] const OstrakSetup &setup() const { return m_setup; }

  [[nodiscard]] QString appName() const;           // "CFBundleName"
  [[nodiscard]] QString appVersionString() const;  // "CFBundleShortVersionString"
  [[nodiscard]] qint32 appBuildNumber() const;     // "CFBundleVersion"; 0 when not a number
  [[nodiscard]] QString appBundleIdentifier() const;
  // A text of the bundle's information, null when the key is absent.
  [[nodiscard]] QString infoValue(const QString &key) const;

  [[nodiscard]] QString prefsPath() const;
  [[nodiscard]] QUrl prefsURL() const;
  [[nodiscard]] QString suppDir() const;
  [[nodiscard]] QUrl suppURL() const;
  // The Documents folder inside the support folder, created before it is returned.
  [[nodiscard]] QString docDir() const;
  [[nodiscard]] QUrl docURL() const;
  [[nodiscard]] QString deskDir() const;
  [[nodiscard]] QUrl deskURL() const;
  [[nodiscard]] QString resDir() const;
  [[nodiscard]] QUrl resURL() const;
  [[nodiscard]] QString tempDir() const;
  [[nodiscard]] QUrl homeURLInsideSandbox() const;
  [[nodiscard]] QUrl homeURLOutsideSandbox() const;

  // Names of this program's crash reports.
  [[nodiscard]] QStringList appCrashLogs() const;
  // Composes a support request in the user's mail program; at the latest when its facts have been
  // gathered. Main thread.
  void sendSupportRequestMail(const QString &usersText);
  // Opens one of the program's web or mail destinations. One that the bundle's information does not
  // name opens nothing; a number that is none of these opens the empty address.
  enum UrlChoice {
    openSupportRequestMail = 1,
    openBetaSignupMail = 2,
    openHomepageWebsite = 3,
    openAppStoreWebsite = 4,
    openAppStoreApp = 5,
    openMacupdateWebsite = 6
  };
  void openURL(int choice);
  // Whether the bundle's information names this destination.
  [[nodiscard]] bool hasDestination(UrlChoice choice) const;

 private:
  [[nodiscard]] QString destination(int choice) const;

  OstrakSetup m_setup;
  UserDefaults m_userDefaults;
};

// The singleton; null before it is made and after it is gone.
extern Ostrak *tk;

}  // namespace ostrak
