#pragma once

#include <QStringList>
#include <functional>

// Makes sure that one window serves all files: a second start hands its files to the first and
// ends.
class SingleInstance {
 public:
  // What the running instance does when another one hands over: no paths means only "come to the
  // front".
  using Handler = std::function<void(const QStringList &paths)>;

  virtual ~SingleInstance() = default;
  // Tries to become the one instance. False when there is one already. Where no service can tell,
  // this process is the one.
  [[nodiscard]] virtual bool claim() = 0;
  // Hands absolute paths to the one instance; waits until it has them. False when it is gone or
  // does not answer within some seconds: `claim` again then tells which.
  [[nodiscard]] virtual bool handOver(const QStringList &paths) = 0;
  // Called on the main thread, also with what arrived between `claim` and this call. An empty
  // handler after another one means that nothing is served any more: who hands over then hears so
  // and keeps its files.
  virtual void setHandler(Handler handler) = 0;
  // Inside a handler: what the desktop gave the other start for coming to the front; null when
  // nothing.
  [[nodiscard]] virtual QString activationToken() const { return {}; }
  // Gives the place up, for a successor, and takes it back.
  virtual void release() = 0;
};

// Every process is the one instance.
class NullSingleInstance final : public SingleInstance {
 public:
  [[nodiscard]] bool claim() override { return true; }
  [[nodiscard]] bool handOver(const QStringList &) override { return false; }
  void setHandler(Handler) override {}
  void release() override {}
};

// For tests: `arrive` plays a second start.
class RecordingSingleInstance final : public SingleInstance {
 public:
  [[nodiscard]] bool claim() override {
    held = true;
    return true;
  }
  [[nodiscard]] bool handOver(const QStringList &paths) override {
    handedOver.append(paths);
    return true;
  }
  void setHandler(Handler handler) override { m_handler = std::move(handler); }
  void release() override { held = false; }
  void arrive(const QStringList &paths) const {
    if (m_handler) m_handler(paths);
  }
  bool held = false;
  QStringList handedOver;

 private:
  Handler m_handler;
};
