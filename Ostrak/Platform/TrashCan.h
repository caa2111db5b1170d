#pragma once

#include <QString>
#include <QStringList>

// Moves files to the desktop's Trash.
class TrashCan {
 public:
  virtual ~TrashCan() = default;
  // Null when the file was moved; else why not, for the log, and the file stays where it is. Any
  // thread.
  [[nodiscard]] virtual QString moveToTrash(const QString &path) = 0;
};

class NullTrashCan final : public TrashCan {
 public:
  [[nodiscard]] QString moveToTrash(const QString &) override {
    return QStringLiteral("there is no Trash");
  }
};

// For tests: remembers what should have gone and leaves it where it is.
class RecordingTrashCan final : public TrashCan {
 public:
  [[nodiscard]] QString moveToTrash(const QString &path) override {
    trashed.append(path);
    return {};
  }
  QStringList trashed;
};
