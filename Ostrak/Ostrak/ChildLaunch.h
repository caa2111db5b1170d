#pragma once

#include <sys/types.h>

#include <QByteArrayList>
#include <optional>
#include <vector>

#include "Descriptor.h"

namespace ostrak {

struct ChildSetup;

// What happens in a new process before the tool runs in it, and word of it when that goes wrong.
//
// QProcess would do the last step, too, but Qt 6.4 leaks a descriptor each time it fails.
class ChildLaunch final {
 public:
  explicit ChildLaunch(const ChildSetup &setup);
  // False when the program has no descriptors left for the word.
  [[nodiscard]] bool isReady() const { return bool(m_reportWrite); }

  // In the child, between fork and exec; makes system calls only. Becomes the tool, or ends.
  [[noreturn]] void becomeTool() const;
  // In the parent, once the child has done that: why it could not become the tool, as an errno.
  [[nodiscard]] std::optional<int> failure();

 private:
  QByteArrayList m_words;
  QByteArrayList m_environment;
  std::vector<char *> m_arguments;
  std::vector<char *> m_variables;
  pid_t m_parent;
  Descriptor m_reportRead;
  Descriptor m_reportWrite;
  std::optional<int> m_failure;
};

}  // namespace ostrak
