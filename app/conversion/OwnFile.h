#pragma once

#include <QString>
#include <optional>

#include "Descriptor.h"
#include "FileLook.h"

namespace decant {

// A file that this program has made and that it may therefore delete again. Whatever has come to
// its path by other hands is left alone. Any thread.
class OwnFile final {
 public:
  enum class Creation {
    created,
    exists,     // something is there, even if only a symbolic link that leads nowhere
    impossible  // no file can be made at this path
  };

  // Makes an empty file at `path`, never over another one, and owns it from then on. It is held
  // open until `seal`.
  [[nodiscard]] static Creation create(const QString &path, OwnFile &file);
  // Locks the file just made until `seal`, or until this program is gone, however it ends. False
  // when somebody else has locked or taken it; a file system without locks does not matter.
  [[nodiscard]] bool hold() const;

  [[nodiscard]] const QString &path() const { return m_path; }
  // Whether the file is still at its path; after `seal` it must be unchanged since then, too.
  [[nodiscard]] bool isThere() const;
  // Nobody writes to it for us any more: a later change is another's.
  void seal();
  // Deletes the file if it is still ours.
  void remove() const;

 private:
  QString m_path;
  std::optional<FileLook> m_look;  // as it was when made or sealed
  bool m_sealed = false;
  // The number of a file that is open is given to no other one.
  ostrak::Descriptor m_held;
};

}  // namespace decant
