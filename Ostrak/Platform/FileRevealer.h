#pragma once

#include <QString>
#include <QStringList>

// Shows a file, given by its absolute path, selected in the desktop's file manager.
class FileRevealer {
 public:
  virtual ~FileRevealer() = default;
  virtual void reveal(const QString &path) = 0;
};

class NullFileRevealer final : public FileRevealer {
 public:
  void reveal(const QString &) override {}
};

// For tests: remembers what was revealed.
class RecordingFileRevealer final : public FileRevealer {
 public:
  void reveal(const QString &path) override { revealed.append(path); }
  QStringList revealed;
};
