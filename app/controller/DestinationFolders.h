#pragma once

#include <QObject>
#include <QStringList>
#include <optional>

class Sandbox;

namespace decant {

// The user's destination folders, kept across restarts as bookmarks and names in the settings, and
// the folders that may be used for outputs next to their sources. Main thread.
class DestinationFolders final : public QObject {
  Q_OBJECT

 public:
  // A folder that this run may use.
  struct Opened {
    QString path;
    bool securityScoped = false;  // its access is started for each job and stopped with it
    bool operator==(const Opened &) const = default;
  };
  enum class Addition { added, alreadyThere, failed };

  // `sandbox` outlives this. Outside one every folder may be used from the start.
  explicit DestinationFolders(Sandbox &sandbox, QObject *parent = nullptr);
  ~DestinationFolders() override;

  // At launch: opens the folders that still resolve, and forgets the others with one log line.
  void checkStored();

  [[nodiscard]] QStringList names() const;
  // Where the folders of these names are now; empty for one that is gone. Looks at the disk.
  [[nodiscard]] QStringList paths() const;
  [[nodiscard]] const QList<Opened> &openedFolders() const { return m_opened; }
  // What finds the folder at `index`, for those that look on a worker; empty for none.
  [[nodiscard]] static QByteArray bookmarkAt(qsizetype index);
  // Where the folder of a bookmark stands in the list now; -1 when it was taken off.
  [[nodiscard]] static qsizetype indexOf(const QByteArray &bookmark);
  // A folder picked by the user for this run.
  void open(const QString &folder);

  // Remembers a folder for good and flushes the settings.
  Addition add(const QString &folder);
  // Forgets the folder at `index`; "DefaultDestination" keeps naming the entry that it named.
  void removeAt(qsizetype index);

  // The last opened folder whose path is a plain prefix of `target`; its access is started when it
  // is security-scoped. Nothing when none fits.
  [[nodiscard]] std::optional<Opened> openFor(const QString &target);
  // The stored folder at `index`, which was found at `folder`, its access started. Throws
  // ostrak::Exception when it was not found or is not granted.
  [[nodiscard]] QString use(qsizetype index, const std::optional<QString> &folder);

 Q_SIGNALS:
  void changed();
  // The user took the folder at `index` off the list; `changed` follows.
  void removed(qsizetype index);

 private:
  Sandbox &m_sandbox;
  QList<Opened> m_opened;
};

}  // namespace decant
