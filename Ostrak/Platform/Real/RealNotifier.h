#pragma once

#include <QDBusConnection>
#include <QHash>
#include <QObject>
#include <optional>

#include "Notifier.h"

class QDBusMessage;
class QDBusPendingCallWatcher;

// Notifications by org.freedesktop.Notifications. The bus is first touched by the first message,
// and nothing waits for an answer: messages go out one after the other, each when the one before
// has been answered. A server that ends and comes back is asked anew what it can do. Without a bus
// or a server, messages are dropped with one log line. The end of the object waits, shortly, for
// messages that are not out yet. Main thread.
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
  struct Waiting {
    Notification notification;
    bool again = false;  // the server went away under the first try
  };
  struct Shown {
    QString id;
    QString path;
  };
  void listen();
  void sendNext();
  void askCapabilities();
  void askToShow();
  void capabilitiesAnswered(const QDBusPendingCallWatcher &watcher, int server);
  void showAnswered(const QDBusPendingCallWatcher &watcher, int server);
  [[nodiscard]] bool tryAgain(int server);
  [[nodiscard]] QDBusMessage messageFor(const Notification &notification) const;
  [[nodiscard]] uint serverIdOf(const QString &id) const;
  void serverChanged();
  void complain(const QString &why);
  void sendTheRest();

  QDBusConnection m_bus;
  QString m_appName;
  QString m_desktopEntry;
  std::function<void(const QString &path)> m_activated;
  bool m_listening = false;
  bool m_complained = false;
  bool m_asking = false;                      // an answer to the first in the queue is on its way
  int m_server = 0;                           // grows with each server that comes or goes
  std::optional<QStringList> m_capabilities;  // nothing until the server has told them
  QList<Waiting> m_queue;
  QHash<uint, Shown> m_shown;  // by the server's number
};
