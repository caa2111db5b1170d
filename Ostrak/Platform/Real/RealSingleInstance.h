#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QVariantMap>
#include <chrono>
#include <optional>

#include "SingleInstance.h"

// One instance by a name on the session bus, spoken to through org.freedesktop.Application. The
// object is there before the name is, so that a second start always finds somebody who listens.
// Main thread.
class RealSingleInstance final : public QObject, public SingleInstance, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  struct Options {
    QVariantMap platformData;  // goes along with what is handed over
    std::chrono::milliseconds patience = std::chrono::seconds(10);  // of handOver
  };
  // What the desktop gave this process for coming to the front. The window system takes it out of
  // the environment when the application object is made, so it is asked before.
  [[nodiscard]] static QVariantMap platformDataOfProcess();

  // `name` is the program's identifier, also its name on the bus.
  RealSingleInstance(const QDBusConnection &bus, QString name, Options options,
                     QObject *parent = nullptr);
  ~RealSingleInstance() override;

  [[nodiscard]] bool claim() override;
  [[nodiscard]] bool handOver(const QStringList &paths) override;
  void setHandler(Handler handler) override;
  [[nodiscard]] QString activationToken() const override { return m_token; }
  void release() override;

 public Q_SLOTS:
  // The bus calls these; other code uses the members above.
  Q_SCRIPTABLE void Activate(const QVariantMap &platformData);
  Q_SCRIPTABLE void Open(const QStringList &uris, const QVariantMap &platformData);
  Q_SCRIPTABLE void ActivateAction(const QString &action, const QVariantList &parameters,
                                   const QVariantMap &platformData);

 private:
  struct Arrival {
    QStringList paths;
    QString token;
  };
  void arrived(const Arrival &arrival);
  void answer();
  void handle(const Arrival &arrival);

  QDBusConnection m_bus;
  QString m_name;
  QString m_path;
  Options m_options;
  Handler m_handler;
  QString m_token;
  bool m_held = false;
  bool m_complained = false;
  bool m_ended = false;              // had a handler and has none any more
  std::optional<Arrival> m_waiting;  // arrived before there was a handler
};
