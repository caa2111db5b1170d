#pragma once

#include <QDBusConnection>
#include <QHash>
#include <QObject>
#include <optional>

#include "Notifier.h"

class QDBusPendingCallWatcher;
class QDBusServiceWatcher;

// Notifications by org.freedesktop.Notifications. Never waits: what the server can do is asked with
// the first message, which goes out when the answer is there. A server that ends and comes back is
// asked again. Without a bus or a server, messages are dropped with one log line. Main thread.
class RealNotifier final : public QObject, public Notifier {
  Q_OBJECT

 public:
  // `desktopEntry` is the name of the program's desktop file without ".desktop".
  RealNotifier(const QDBusConnection &bus, QString appName, QString desktopEntry,
               QObject *parent = nullptr);
  ~RealNotifier() override;

  void post(const Notification &notification) override;
  void setActivated(std::function<void(const QString &path)> handler) override;

 private Q_SLOTS:
  void actionInvoked(uint serverId, const QString &action);
  void notificationClosed(uint serverId, uint reason);

 private:
  struct Shown {
    QString id;
    QString path;
  };
  void askCapabilities();
  void send(const Notification &notification);
  void sent(const Notification &notification, QDBusPendingCallWatcher &watcher);
  void forgetServer();
  void complain(const QString &why);

  QDBusConnection m_bus;
  QString m_appName;
  QString m_desktopEntry;
  std::function<void(const QString &path)> m_activated;
  std::optional<QStringList> m_capabilities;  // nothing until the server has told them
  bool m_asking = false;
  bool m_complained = false;
  QList<Notification> m_waiting;
  QHash<uint, Shown> m_shown;  // by the server's number
  QDBusServiceWatcher *m_watcher = nullptr;
};
