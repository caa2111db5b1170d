#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace decant {

// The panels in which a person names files and folders, as a seam. Every call returns at once; the
// answer comes later, on the main thread, exactly once, and is nothing when the person cancelled.
class Panels {
 public:
  // The window that a panel belongs to.
  enum class Over { MainWindow, Preferences };
  using PathAnswer = std::function<void(const std::optional<QString> &path)>;

  virtual ~Panels() = default;
  // A file to write: starts in `folder` with `name` filled in, takes only `extension`. A person who
  // names an existing file has agreed to replace it.
  virtual void askForTarget(const QString &folder, const QString &name, const QString &extension,
                            PathAnswer answer) = 0;
  virtual void askForFolder(Over over, PathAnswer answer) = 0;
  // Files to add, several at a time, of these extensions; an empty list when cancelled.
  virtual void askForFiles(const QStringList &extensions,
                           std::function<void(const QStringList &paths)> answer) = 0;
};

}  // namespace decant
