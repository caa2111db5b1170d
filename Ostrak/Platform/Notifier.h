#pragma once

#include <QList>
#include <QString>
#include <functional>

// A message that the desktop shows, with its default sound.
struct Notification {
  QString id;  // one per job, so that a newer one replaces the older
  QString title;
  QString text;
  QString actionTitle;  // null: no action
  QString path;         // what the action reveals; null: nothing

  bool operator==(const Notification &) const = default;
};

class Notifier {
 public:
  virtual ~Notifier() = default;
  virtual void post(const Notification &notification) = 0;
  // Called on the main thread with the path of a notification whose action was used.
  virtual void setActivated(std::function<void(const QString &path)> handler) = 0;
};

class NullNotifier final : public Notifier {
 public:
  void post(const Notification &) override {}
  void setActivated(std::function<void(const QString &)>) override {}
};

// For tests: remembers what was posted; `activate` plays the user.
class RecordingNotifier final : public Notifier {
 public:
  void post(const Notification &notification) override {
    posted.append(notification);
    if (onPost) onPost();
  }
  void setActivated(std::function<void(const QString &)> handler) override {
    m_handler = std::move(handler);
  }
  void activate(const QString &path) const {
    if (m_handler) m_handler(path);
  }
  QList<Notification> posted;
  std::function<void()> onPost;  // null: nothing more happens

 private:
  std::function<void(const QString &)> m_handler;
};
