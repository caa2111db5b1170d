#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>
#include <optional>

#include "SingleInstance.h"

// One instance by a name on the session bus, spoken to through org.freedesktop.Application. The
// object is there before the name is, so that a second start always finds somebody who listens.
// Main thread.
class RealSingleInstance final : public QObject, public SingleInstance {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  // `name` is the program's identifier, also its name on the bus.
  RealSingleInstance(const QDBusConnection &bus, QString name, QObject *parent = nullptr);
  ~RealSingleInstance() override;

  [[nodiscard]] bool claim() override;
  [[nodiscard]] bool handOver(const QStringList &paths) override;
  void setHandler(Handler handler) override;
  void release() override;

 public Q_SLOTS:
  // The bus calls these; other code uses the members above.
  Q_SCRIPTABLE void Activate(const QVariantMap &platformData);
  Q_SCRIPTABLE void Open(const QStringList &uris, const QVariantMap &platformData);
  Q_SCRIPTABLE void ActivateAction(const QString &action, const QVariantList &parameters,
                                   const QVariantMap &platformData);

 private:
  void arrived(const QStringList &paths);

  QDBusConnection m_bus;
  QString m_name;
  QString m_path;
  Handler m_handler;
  std::optional<QStringList> m_waiting;  // arrived before there was a handler
};
