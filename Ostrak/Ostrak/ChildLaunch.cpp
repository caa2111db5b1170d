#include "ChildLaunch.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <csignal>

#include "ChildProcess.h"

namespace ostrak {

namespace {

// For system calls that promise not to write. The list ends with a null pointer.
std::vector<char *> pointers(const QByteArrayList &texts) {
  std::vector<char *> list;
  for (const QByteArray &text : texts)
    list.push_back(const_cast<char *>(text.constData()));
  list.push_back(nullptr);
  return list;
}

QByteArrayList environmentWithout(const QStringList &names) {
  QByteArrayList variables;
  for (char **variable = environ; *variable; ++variable) {
    const QByteArray text(*variable);
    const QByteArray name = text.left(text.indexOf('='));
    if (!names.contains(QFile::decodeName(name))) variables.append(text);
  }
  return variables;
}

}  // namespace

ChildLaunch::ChildLaunch(const ChildSetup &setup) : m_parent(::getpid()) {
  m_words.append(QFile::encodeName(setup.executable));
  for (const QString &argument : setup.arguments)
    m_words.append(argument.toLocal8Bit());
  m_environment = environmentWithout(setup.removedEnvironment);
  m_arguments = pointers(m_words);
  m_variables = pointers(m_environment);
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  m_reportRead = Descriptor(ends[0]);
  m_reportWrite = Descriptor(ends[1]);
}

// The child may share its parent's memory until it becomes the tool (vfork), and with it the
// address sanitizer's idea of the stack, which is never put right for a function that does not
// return.
[[gnu::no_sanitize_address]] void ChildLaunch::becomeTool() const {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  // The parent may have died before the line above.
  if (::getppid() != m_parent) ::_exit(127);
  // A child that inherits a blocked or ignored SIGTERM would never hear the ladder.
  sigset_t none;
  sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  ::signal(SIGTERM, SIG_DFL);
  // Descriptors that somebody opened without O_CLOEXEC, or that the program itself was given.
  ::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
  ::execve(m_arguments.front(), m_arguments.data(), m_variables.data());
  const int error = errno;
  std::ignore = ::write(m_reportWrite.get(), &error, sizeof error);
  ::_exit(127);
}

std::optional<int> ChildLaunch::failure() {
  m_reportWrite = Descriptor();
  int error = 0;
  if (::read(m_reportRead.get(), &error, sizeof error) == ssize_t{sizeof error}) m_failure = error;
  return m_failure;
}

}  // namespace ostrak
