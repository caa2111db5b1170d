#pragma once

#include <QHash>
#include <QMutex>
#include <QSet>
#include <QString>
#include <QVariant>
#include <functional>
#include <memory>

namespace ostrak {

// The settings store: one flat key space in three layers. A read takes the per-run override (command
// line), else the stored value, else the registered default. Writes go to the stored layer at once
// and reach the disk at most a second later, or at `synchronize`.
//
// Values are text, integers, floating point numbers, booleans, byte arrays, lists and maps of these;
// they survive a restart with the type that is asked for, empty lists included.
//
// All members may be called from any thread. The mutex inside is a leaf: it is never held while
// anything outside is called.
class UserDefaults final {
 public:
  enum class Persistence {
    Stored,   // writes reach the file
    InMemory  // the file is read and never written: probe, dry run, settings list
  };

  // Reads the file at `path`; one that is missing is an empty store. One that cannot be parsed is
  // moved to the first free "path.broken-N" (N from 1) and `keptAside` tells where it went; with
  // Persistence::InMemory it is left where it is and only ignored.
  UserDefaults(QString path, Persistence persistence);
  ~UserDefaults();
  UserDefaults(const UserDefaults &) = delete;
  UserDefaults &operator=(const UserDefaults &) = delete;

  [[nodiscard]] const QString &path() const { return m_path; }
  // Where a broken settings file was moved to, null when there was none.
  [[nodiscard]] QString keptAside() const { return m_keptAside; }

  // Adds fall-back values; never overwrites what is stored.
  void registerDefaults(const QVariantMap &defaults);
  // Replaces the value of `key` for this process only.
  void setOverride(const QString &key, const QVariant &value);

  // The value from the first layer that has one; invalid when none has.
  [[nodiscard]] QVariant value(const QString &key) const;
  // The stored layer alone; invalid when absent.
  [[nodiscard]] QVariant storedValue(const QString &key) const;
  void setValue(const QString &key, const QVariant &value);
  void remove(const QString &key);

  // Writes what has changed and waits for it; merges with what another process wrote meanwhile.
  void synchronize();

 private:
  class Writer;
  QString m_path;
  QString m_keptAside;
  Persistence m_persistence;
  mutable QMutex m_mutex;
  QVariantMap m_registered;
  QVariantMap m_overrides;
  QHash<QString, QVariant> m_stored;
  QSet<QString> m_dirty;
  std::unique_ptr<Writer> m_writer;
};

}  // namespace ostrak
