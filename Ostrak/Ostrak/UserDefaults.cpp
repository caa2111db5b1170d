#include "UserDefaults.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QThread>
#include <QTimer>
#include <chrono>

#include "Logging.h"
#include "StoredValue.h"

using namespace Qt::StringLiterals;

namespace ostrak {

// Writes a second after the first change since the last write. Lives in the application's thread.
class UserDefaults::Timer final : public QObject {
 public:
  explicit Timer(UserDefaults &store) {
    constexpr std::chrono::seconds interval{1};
    m_timer.setSingleShot(true);
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, [&store] { store.synchronize(); });
    if (const QCoreApplication *application = QCoreApplication::instance()) {
      moveToThread(application->thread());
    }
  }

  // From any thread.
  void startSoon() {
    QMetaObject::invokeMethod(
        this, [this] { m_timer.start(); }, Qt::QueuedConnection);
  }

 private:
  QTimer m_timer{this};
};

UserDefaults::UserDefaults(QString path, Persistence persistence)
    : m_path(std::move(path)), m_persistence(persistence) {
  std::optional<Values> values = readFile();
  m_fileIgnored = !values && (m_persistence == Persistence::InMemory || !moveAside());
  m_stored = std::move(values).value_or(Values());
  if (m_persistence == Persistence::Stored) m_timer = std::make_unique<Timer>(*this);
}

UserDefaults::~UserDefaults() {
  synchronize();
}

QString UserDefaults::keptAside() const {
  const QMutexLocker locker(&m_mutex);
  return m_keptAside;
}

void UserDefaults::registerDefaults(const QVariantMap &defaults) {
  QVariantMap normalized = defaults;
  for (QVariant &value : normalized)
    value = normalizedForStore(value);
  const QMutexLocker locker(&m_mutex);
  m_registered.insert(normalized);
}

void UserDefaults::setOverride(const QString &key, const QVariant &value) {
  const QVariant normalized = normalizedForStore(value);
  const QMutexLocker locker(&m_mutex);
  m_overrides.insert(key, normalized);
}

bool UserDefaults::isOverridden(const QString &key) const {
  const QMutexLocker locker(&m_mutex);
  return m_overrides.contains(key);
}

QVariant UserDefaults::value(const QString &key) const {
  const QMutexLocker locker(&m_mutex);
  if (const auto it = m_overrides.constFind(key); it != m_overrides.cend()) return *it;
  if (const auto it = m_stored.constFind(key); it != m_stored.cend()) return *it;
  return m_registered.value(key);
}

QVariant UserDefaults::storedValue(const QString &key) const {
  const QMutexLocker locker(&m_mutex);
  return m_stored.value(key);
}

void UserDefaults::setValue(const QString &key, const QVariant &value) {
  if (key.isEmpty()) return;
  const QVariant normalized = normalizedForStore(value);
  bool schedule = false;
  {
    const QMutexLocker locker(&m_mutex);
    if (normalized.isValid()) {
      m_stored.insert(key, normalized);
    } else {
      m_stored.remove(key);
    }
    m_dirty.insert(key);
    schedule = m_timer && !std::exchange(m_scheduled, true);
  }
  if (schedule) m_timer->startSoon();
}

void UserDefaults::remove(const QString &key) {
  setValue(key, {});
}

void UserDefaults::synchronize() {
  if (m_persistence == Persistence::InMemory) return;
  bool moved = false;
  bool written = false;
  {
    const QMutexLocker fileLocker(&m_fileMutex);
    Values changes;
    QSet<QString> dirty = takeDirty(changes);
    if (dirty.isEmpty()) return;
    const bool isBroken = !readFile();
    moved = isBroken && moveAside();
    if (moved) {
      // The new file gets all that is known here.
      const QMutexLocker locker(&m_mutex);
      changes = m_stored;
      for (auto it = m_stored.cbegin(); it != m_stored.cend(); ++it)
        dirty.insert(it.key());
    }
    // What could not be moved is never written over.
    written = (moved || !isBroken) && writeChanges(dirty, changes);
    if (!written) keepDirty(dirty);
  }
  if (moved) {
    tk_log_level(3, u"Warning: the settings file could not be read and was kept as %@"_s,
                 keptAside());
  }
  if (!written) writeFailed();
}

void UserDefaults::setUnwritable(std::function<void()> tell) {
  bool failed = false;
  {
    const QMutexLocker locker(&m_mutex);
    m_tellUnwritable = tell;
    failed = m_unwritable;
  }
  if (failed && tell) tell();
}

void UserDefaults::writeFailed() {
  std::function<void()> tell;
  {
    const QMutexLocker locker(&m_mutex);
    if (std::exchange(m_unwritable, true)) return;
    tell = m_tellUnwritable;
  }
  tk_log_level(3, u"Error: the settings file %@ cannot be written"_s, m_path);
  if (tell) tell();
}

QSet<QString> UserDefaults::takeDirty(Values &changes) {
  const QMutexLocker locker(&m_mutex);
  m_scheduled = false;
  for (const QString &key : std::as_const(m_dirty)) {
    if (const auto it = m_stored.constFind(key); it != m_stored.cend()) changes.insert(key, *it);
  }
  return std::exchange(m_dirty, {});
}

void UserDefaults::keepDirty(const QSet<QString> &dirty) {
  const QMutexLocker locker(&m_mutex);
  m_dirty.unite(dirty);
}

bool UserDefaults::writeChanges(const QSet<QString> &dirty, const Values &changes) {
  QDir().mkpath(QFileInfo(m_path).absolutePath());
  QSettings file(m_path, QSettings::IniFormat);
  for (const QString &key : dirty) {
    if (const auto it = changes.constFind(key); it != changes.cend()) {
      file.setValue(storeKey(key), encodedForStore(*it));
    } else {
      file.remove(storeKey(key));
    }
  }
  file.sync();
  if (file.status() != QSettings::NoError) return false;
  const std::optional<Values> written = readFile();
  if (!written) return true;
  const QMutexLocker locker(&m_mutex);
  // What other processes wrote comes in; what changed here since stays as it is.
  Values merged = *written;
  for (const QString &key : std::as_const(m_dirty)) {
    merged.remove(key);
    if (const auto it = m_stored.constFind(key); it != m_stored.cend()) merged.insert(key, *it);
  }
  m_stored = std::move(merged);
  return true;
}

namespace {

// False also for what cannot be opened. The backend passes over lines that it does not understand
// and would write the file without them.
bool looksLikeSettings(const QString &path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return false;
  bool continues = false;
  while (!file.atEnd()) {
    const QByteArray line = file.readLine();
    if (line.contains('\0')) return false;
    const QByteArray text = line.trimmed();
    const bool isEntry = text.indexOf('=') > 0;
    const bool isOther = text.isEmpty() || text.startsWith(';') || text.startsWith('#') ||
                         (text.startsWith('[') && text.endsWith(']'));
    if (!continues && !isEntry && !isOther) return false;
    continues = text.endsWith('\\');
  }
  return true;
}

QVariant valueFromFile(const QVariant &read) {
  // What the backend takes for no value was written by nobody who means none: it is to be told.
  if (!read.isValid()) return u"@Invalid()"_s;
  if (read.typeId() != QMetaType::QStringList) return decodedFromStore(read.toString());
  // Commas that were written by hand, without quotes.
  QVariantList list;
  const QStringList elements = read.toStringList();
  for (const QString &element : elements)
    list.append(decodedFromStore(element));
  return list;
}

}  // namespace

std::optional<UserDefaults::Values> UserDefaults::readFile() const {
  if (!QFileInfo::exists(m_path)) return Values();
  if (!looksLikeSettings(m_path)) return {};
  const QSettings file(m_path, QSettings::IniFormat);
  if (file.status() == QSettings::FormatError) return {};
  Values values;
  const QStringList keys = file.allKeys();
  for (const QString &key : keys) {
    const QVariant value = valueFromFile(file.value(key));
    if (value.isValid()) values.insert(keyFromStore(key), value);
  }
  return values;
}

bool UserDefaults::moveAside() {
  if (!QFile(m_path).open(QIODevice::ReadOnly)) return false;
  constexpr int mostTries = 10000;
  for (int number = 1; number < mostTries; ++number) {
    const QString aside = makeString(u"%@.broken-%i"_s, m_path, number);
    if (QFileInfo::exists(aside) || QFileInfo(aside).isSymLink()) continue;
    if (!QFile::rename(m_path, aside)) return false;
    // Looking at the missing file makes the backend forget what it keeps of the broken one.
    (void)QSettings(m_path, QSettings::IniFormat).allKeys();
    const QMutexLocker locker(&m_mutex);
    m_keptAside = aside;
    return true;
  }
  return false;
}

}  // namespace ostrak
