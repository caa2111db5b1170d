#include "RealWebEngine.h"

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QOpenGLContext>
#include <QQuickWindow>
#include <optional>
#include <utility>

#include "RealWebPage.h"

using namespace Qt::StringLiterals;

// Of QtGui, which exports it for the engine.
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext *context);

namespace ostrak {

namespace {

constexpr auto noSandbox = "QTWEBENGINE_DISABLE_SANDBOX";
constexpr auto engineFlags = "QTWEBENGINE_CHROMIUM_FLAGS";

QString fileFor(const char *variable, QLibraryInfo::LibraryPath usual, const QString &name) {
  const QString named = qEnvironmentVariable(variable);
  return named.isEmpty() ? QLibraryInfo::path(usual) + name : named;
}

bool runsAsRoot() {
  return geteuid() == 0;
}

// The engine locks its pages up in a namespace of their own and ends the process where it can't.
bool mayMakeNamespaces() {
  const pid_t child = fork();
  if (child < 0) return false;
  if (child == 0) _exit(unshare(CLONE_NEWUSER) == 0 ? 0 : 1);
  int status = 0;
  while (waitpid(child, &status, 0) < 0)
    if (errno != EINTR) return false;
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// The engine reads its environment with the first page of the process; the program's other children
// need not see what is meant for it. Afterwards nothing may change there: the engine's threads read
// it at any time.
class EngineEnvironment final {
 public:
  explicit EngineEnvironment(bool prefersDark) {
    // The engine refuses to lock pages up for root.
    if (runsAsRoot() && !qEnvironmentVariableIsSet(noSandbox)) set(noSandbox, "1");
    // It does not look at the desktop's colours by itself.
    if (prefersDark)
      set(engineFlags, qgetenv(engineFlags) + " --blink-settings=preferredColorScheme=0");
  }
  ~EngineEnvironment() {
    for (const auto &[name, value] : m_before) {
      if (value.isNull())
        qunsetenv(name);
      else
        qputenv(name, value);
    }
  }
  EngineEnvironment(const EngineEnvironment &) = delete;
  EngineEnvironment &operator=(const EngineEnvironment &) = delete;

 private:
  void set(const char *name, const QByteArray &value) {
    m_before.append({name, qgetenv(name)});
    qputenv(name, value);
  }

  QList<std::pair<const char *, QByteArray>> m_before;
};

QString findProblem() {
  const QString process = fileFor("QTWEBENGINEPROCESS_PATH", QLibraryInfo::LibraryExecutablesPath,
                                  u"/QtWebEngineProcess"_s);
  if (!QFileInfo(process).isExecutable()) return u"misses its program "_s + process;
  const QString named = qEnvironmentVariable("QTWEBENGINE_RESOURCES_PATH");
  const QString folder =
      named.isEmpty() ? QLibraryInfo::path(QLibraryInfo::DataPath) + u"/resources"_s : named;
  const QString resources = folder + u"/qtwebengine_resources.pak"_s;
  if (!QFileInfo::exists(resources)) return u"misses its file "_s + resources;
  if (!runsAsRoot() && qEnvironmentVariableIsEmpty(noSandbox) && !mayMakeNamespaces())
    return u"may not make the namespaces that it locks pages up in"_s;
  return {};
}

// The engine wants to find a context that is shared with the whole program, also where it never
// uses it. One that is empty costs nothing; a real one, asked for at the program's start as the
// engine's manual says, costs every start 50 ms and 38 MB.
void prepare() {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  if (QOpenGLContext::globalShareContext()) return;
  static std::unique_ptr<QOpenGLContext> empty;
  empty = std::make_unique<QOpenGLContext>();
  qt_gl_set_global_share_context(empty.get());
  // After the engine, which ends in a routine that is added later, and before Qt itself.
  qAddPostRoutine([] {
    qt_gl_set_global_share_context(nullptr);
    empty.reset();
  });
}

}  // namespace

QString RealWebEngine::problem() const {
  static const QString found = findProblem();
  return found;
}

std::unique_ptr<WebPage> RealWebEngine::makePage(const WebPageSetup &setup, WebPageOwner &owner) {
  static bool isStarted = false;
  std::optional<EngineEnvironment> environment;
  if (!std::exchange(isStarted, true)) {
    prepare();
    environment.emplace(setup.prefersDark);
  }
  return std::make_unique<RealWebPage>(setup, owner);
}

}  // namespace ostrak
