#pragma once

#include <QList>
#include <QUrl>

// Opens mail and web addresses with the user's default program.
class UrlOpener {
 public:
  virtual ~UrlOpener() = default;
  virtual bool open(const QUrl &url) = 0;
};

class NullUrlOpener final : public UrlOpener {
 public:
  bool open(const QUrl &) override { return false; }
};

// For tests: remembers what was opened.
class RecordingUrlOpener final : public UrlOpener {
 public:
  bool open(const QUrl &url) override {
    opened.append(url);
    return true;
  }
  QList<QUrl> opened;
};
