#pragma once

#include <QHash>
#include <QMutex>
#include <QSet>
#include <QString>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>

namespace ostrak {

// The settings store: one flat key space in three layers. A read takes the per-run override
// (command line), else the stored value, else the registered default. Writes go to the stored layer
// at once and reach the disk at most a second later, or at `synchronize`.
//
// Values are text, integers, floating point numbers, booleans, byte arrays, lists and maps of
// these; they survive a restart with the type that is asked for, empty lists included.
//
// All members may be called from any thread. The mutex around the values is a leaf: it is never
// held while anything outside is called. The timer that writes needs the event loop of the
// application object's thread; without one, changes reach the disk at `synchronize` and at the end.
// A file that cannot be written is logged once, and told by `setUnwritable`: its changes stay in
// memory and are tried again with the next.
class UserDefaults final {
 public:
  enum class Persistence {
    Stored,   // writes reach the file
    InMemory  // the file is read and never written: probe, dry run, settings list
  };

  // Reads the file at `path`; one that is missing is an empty store. One that cannot be parsed is
  // moved to the first free "path.broken-N" (N from 1) and `keptAside` tells where it went. With
  // Persistence::InMemory, and where it cannot be moved, it is left where it is and only ignored,
  // as is always a file that may not be opened, or a folder in its place: none of them is written
  // over.
  UserDefaults(QString path, Persistence persistence);
  ~UserDefaults();
  UserDefaults(const UserDefaults &) = delete;
  UserDefaults &operator=(const UserDefaults &) = delete;

  [[nodiscard]] const QString &path() const { return m_path; }
  // Where the last broken settings file was moved to, null when there was none. One that was found
  // while the store was made is left to its maker to tell; a later one is logged here.
  [[nodiscard]] QString keptAside() const;
  // Whether a settings file that cannot be read was left where it is and not used.
  [[nodiscard]] bool isFileIgnored() const { return m_fileIgnored; }

  // `tell` is called once, when a write fails for the first time: on the thread that writes, or
  // here when one has failed already. Empty tells nobody.
  void setUnwritable(std::function<void()> tell);

  // Adds fall-back values; never overwrites what is stored.
  void registerDefaults(const QVariantMap &defaults);
  // Replaces the value of `key` for this process only.
  void setOverride(const QString &key, const QVariant &value);
  [[nodiscard]] bool isOverridden(const QString &key) const;

  // The value from the first layer that has one; invalid when none has.
  [[nodiscard]] QVariant value(const QString &key) const;
  // The stored layer alone; invalid when absent.
  [[nodiscard]] QVariant storedValue(const QString &key) const;
  // An invalid value removes the key.
  void setValue(const QString &key, const QVariant &value);
  void remove(const QString &key);

  // Writes what has changed and waits for it; merges with what another process wrote meanwhile.
  void synchronize();

 private:
  class Timer;
  using Values = QHash<QString, QVariant>;

  // The values of the file; nothing when it cannot be opened or parsed.
  [[nodiscard]] std::optional<Values> readFile() const;
  // False when it is left where it is.
  [[nodiscard]] bool moveAside();
  void writeFailed();
  [[nodiscard]] QSet<QString> takeDirty(Values &changes);
  void keepDirty(const QSet<QString> &dirty);
  [[nodiscard]] bool writeChanges(const QSet<QString> &dirty, const Values &changes);

  QString m_path;
  Persistence m_persistence;
  bool m_fileIgnored = false;
  // Held while the file is read and written, so that an older write never follows a newer one.
  QMutex m_fileMutex;
  mutable QMutex m_mutex;
  QString m_keptAside;
  QVariantMap m_registered;
  QVariantMap m_overrides;
  Values m_stored;
  QSet<QString> m_dirty;
  bool m_scheduled = false;
  bool m_unwritable = false;  // a write has failed
  std::function<void()> m_tellUnwritable;
  std::unique_ptr<Timer> m_timer;
};

}  // namespace ostrak
