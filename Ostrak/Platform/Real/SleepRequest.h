#pragma once

#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QList>
#include <QObject>
#include <QVariantMap>

#include "SleepServices.h"

class QDBusPendingCallWatcher;

// One wish to keep the machine awake, on its road through the desktop's services: the first one
// that answers is used. What is wanted and what is held are separate, so that a release that comes
// while an answer is on its way still happens. Never blocks; one thread with an event loop.
class SleepRequest final : public QObject {
  Q_OBJECT

 public:
  SleepRequest(SleepBuses buses, SleepServices services, QString reason, QObject *parent = nullptr);
  void start();
  // Lets go now, or as soon as the pending answer has come, and then deletes this object.
  void release();

 Q_SIGNALS:
  // No service keeps the machine awake.
  void unanswered();

 private Q_SLOTS:
  // The portal's second answer.
  void portalResponded(uint response, const QVariantMap &results);

 private:
  enum class Service { Gnome, Kde, Logind, Portal };
  enum class State { Idle, Asking, Held, Nothing };

  void askNext();
  void answered(QDBusPendingCallWatcher &watcher);
  void keep(const QDBusMessage &reply);
  void letGo();
  void listenToPortal(const QString &path);
  [[nodiscard]] QDBusConnection bus() const;
  [[nodiscard]] QDBusMessage question();

  SleepBuses m_buses;
  SleepServices m_services;
  QString m_reason;
  QList<Service> m_waiting;
  Service m_service = Service::Gnome;
  State m_state = State::Idle;
  bool m_wanted = true;
  quint32 m_cookie = 0;            // of GNOME and KDE
  QDBusUnixFileDescriptor m_lock;  // of logind
  QString m_handle;                // of the portal
};
