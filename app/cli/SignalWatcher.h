#pragma once

#include <QObject>
#include <memory>

class QSocketNotifier;

namespace decant {

// Turns SIGINT, SIGTERM, SIGHUP and SIGQUIT into a Qt signal of the main thread while it lives. A
// signal that the caller had switched off (nohup) stays off. One object at a time.
class SignalWatcher final : public QObject {
  Q_OBJECT

 public:
  explicit SignalWatcher(QObject *parent = nullptr);
  ~SignalWatcher() override;

  // The first signal that came, 0 when none has; known before `interrupted` is emitted.
  [[nodiscard]] static int received();

 Q_SIGNALS:
  void interrupted(int signal);

 private:
  struct Handlers;
  std::unique_ptr<Handlers> m_handlers;
  std::unique_ptr<QSocketNotifier> m_notifier;
};

}  // namespace decant
