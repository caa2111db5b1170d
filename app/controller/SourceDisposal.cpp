#include "SourceDisposal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QMutex>
#include <QPointer>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstring>

#include "Alerts.h"
#include "Descriptor.h"
#include "Dispatch.h"
#include "Format.h"
#include "Logging.h"
#include "Probe.h"
#include "Text.h"
#include "TrashCan.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

using ostrak::localized;
using ostrak::makeString;

const QString readAgain = u"it is to be converted once more"_s;

QString systemError() {
  return QString::fromLocal8Bit(std::strerror(errno));
}

// Null when the file or folder is on the disk.
QString whyNotSynced(const QString &path) {
  const ostrak::Descriptor file(
      ::open(ostrak::nativePath(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file || ::fsync(file.get()) != 0)
    return makeString(u"%@ could not be written to the disk: %@"_s, path, systemError());
  return {};
}

QString folderOf(const QString &path) {
  const qsizetype slash = path.lastIndexOf(u'/');
  return slash > 0 ? path.left(slash) : QString(u"/"_s);
}

QString whyKeepFor(const QString &destination, const DisposalRequest &request,
                   const DurationReader &duration) {
  if (ostrak::isSameFile(request.source, destination))
    return makeString(u"%@ is the source itself"_s, destination);
  struct stat facts {};
  if (::stat(ostrak::nativePath(destination).constData(), &facts) != 0 || !S_ISREG(facts.st_mode) ||
      facts.st_size == 0)
    return makeString(u"there is no output %@"_s, destination);
  for (const QString &path : {destination, folderOf(destination)}) {
    const QString notSynced = whyNotSynced(path);
    if (!notSynced.isNull()) return notSynced;
  }
  const int seconds = duration(ostrak::fileURL(destination));
  if (seconds < 0) return makeString(u"%@ does not say how long it is"_s, destination);
  if (!request.runtimeSeconds) return u"it is not known how long the source is"_s;
  if (!isAsLong(request.runtimeSeconds, seconds))
    return makeString(u"%@ has %i seconds, the source %i"_s, destination, seconds,
                      *request.runtimeSeconds);
  return {};
}

QString whyNot(const QString &source, const std::optional<ostrak::FileIdentity> &wanted) {
  const std::optional<ostrak::FileIdentity> found = ostrak::fileIdentity(source);
  if (!found) return u"it is not there any more"_s;
  if (wanted && *wanted != *found) return u"another file has taken its place"_s;
  return {};
}

void logKept(const DisposalRequest &request, const QString &why) {
  ostrak::tk_log_level(4, u"Warning: the source %@ stays: %@"_s, request.source, why);
}

QString deleteFile(const QString &path) {
  return ::unlink(ostrak::nativePath(path).constData()) == 0 ? QString() : systemError();
}

// Tells that a block will not run (any more), even when the end of the program has dropped it.
class Ticket final {
 public:
  explicit Ticket(std::shared_ptr<QSemaphore> finished) : m_finished(std::move(finished)) {}
  ~Ticket() { m_finished->release(); }
  Ticket(const Ticket &) = delete;
  Ticket &operator=(const Ticket &) = delete;

 private:
  std::shared_ptr<QSemaphore> m_finished;
};

}  // namespace

// What a disposal and the worker on one of its requests know of each other. A worker may be held up
// for ever, by a file system that does not answer for instance, and no thread can be ended from
// outside. So the disposal does not wait for a check: it leaves, and from then on the worker
// touches neither the source nor anything that may be gone. Only while a source is moved must the
// Trash stay where it is; that is a moment's work on a file system that has just answered.
class SourceDisposal::Work final {
 public:
  [[nodiscard]] bool isLeft() const {
    const QMutexLocker locker(&m_mutex);
    return m_left;
  }
  // Worker: null when the source may be moved now.
  [[nodiscard]] QString beginMove() {
    const QMutexLocker locker(&m_mutex);
    if (m_left) return u"the program ends"_s;
    if (m_kept) return readAgain;
    m_moving = true;
    return {};
  }
  // Disposal: the source is to stay.
  void keep() {
    const QMutexLocker locker(&m_mutex);
    m_kept = true;
  }
  // Disposal: leaves. False while a source is being moved.
  [[nodiscard]] bool leave() {
    const QMutexLocker locker(&m_mutex);
    m_left = true;
    return !m_moving;
  }

 private:
  mutable QMutex m_mutex;
  bool m_left = false;
  bool m_kept = false;
  bool m_moving = false;
};

// Null when the source has gone. Worker.
QString SourceDisposal::checkAndDispose(const DisposalRequest &request, TrashCan &trashCan,
                                        Work &work) {
  const auto duration = [&work](const QUrl &file) {
    return work.isLeft() ? qint32{-1} : durationOfFile(file);
  };
  QString whyKept = whyKeepSource(request, duration);
  if (whyKept.isNull()) whyKept = work.beginMove();
  if (!whyKept.isNull()) {
    if (!work.isLeft()) logKept(request, whyKept);
    return whyKept;
  }
  const QString failure =
      request.deleteOutright ? deleteFile(request.source) : trashCan.moveToTrash(request.source);
  if (failure.isNull() || work.isLeft()) return failure;
  ostrak::tk_log_level(3, u"Error: the source %@ stays, it could not be disposed of: %@"_s,
                       request.source, failure);
  const QString text =
      request.deleteOutright
          ? localized(u"The converted file %@ could not be deleted: %@"_s)
          : localized(u"The converted file %@ could not be moved to the Trash: %@"_s);
  ostrak::Alert alert =
      ostrak::apptitledAlert(makeString(text, request.source, failure), {localized(u"OK"_s)});
  alert.subject = request.source;
  ostrak::postAlert(alert);
  return failure;
}

bool isAsLong(std::optional<int> source, int output) {
  if (!source) return false;
  constexpr double leastTolerance = 2;
  const double tolerance = std::max(leastTolerance, *source * 0.02);
  return std::abs(static_cast<double>(*source) - output) <= tolerance;
}

QString whyKeepSource(const DisposalRequest &request) {
  return whyKeepSource(request, &durationOfFile);
}

QString whyKeepSource(const DisposalRequest &request, const DurationReader &duration) {
  const std::optional<ostrak::FileIdentity> found = ostrak::fileIdentity(request.source);
  const std::optional<ostrak::FileIdentity> wanted = request.identity ? request.identity : found;
  const QString notIt = whyNot(request.source, wanted);
  if (!notIt.isNull()) return notIt;
  if (request.destinations.isEmpty()) return u"there is no output"_s;
  for (const QString &destination : request.destinations) {
    const QString whyKept = whyKeepFor(destination, request, duration);
    if (!whyKept.isNull()) return whyKept;
  }
  // That took long enough for another file to come to this path.
  return whyNot(request.source, wanted);
}

SourceDisposal::SourceDisposal(TrashCan &trashCan, QObject *parent)
    : QObject(parent), m_trashCan(trashCan), m_finished(std::make_shared<QSemaphore>()) {}

SourceDisposal::~SourceDisposal() {
  constexpr std::chrono::seconds patience{2};
  if (!m_running || m_work->leave()) return;
  // A move that takes longer has the program end under it, like any other worker.
  (void)m_finished->tryAcquire(1, static_cast<int>(std::chrono::milliseconds(patience).count()));
}

void SourceDisposal::dispose(const DisposalRequest &request) {
  m_waiting.append(request);
  if (!m_running) next();
}

void SourceDisposal::keep(const ostrak::FileIdentity &source) {
  if (m_running && m_source == source) m_work->keep();
  const auto isOfSource = [&source](const DisposalRequest &request) {
    return request.identity == source;
  };
  for (const DisposalRequest &request : std::as_const(m_waiting))
    if (isOfSource(request)) logKept(request, readAgain);
  m_waiting.removeIf(isOfSource);
}

void SourceDisposal::next() {
  const DisposalRequest request = m_waiting.takeFirst();
  m_running = true;
  m_source = request.identity;
  m_work = std::make_shared<Work>();
  ostrak::dispatch_async_back([request, &trashCan = m_trashCan, work = m_work,
                               ticket = std::make_shared<Ticket>(m_finished),
                               disposal = QPointer<SourceDisposal>(this)] {
    const QString whyKept = checkAndDispose(request, trashCan, *work);
    ostrak::dispatch_async_main([disposal, source = request.source, whyKept] {
      if (disposal) disposal->done(source, whyKept);
    });
  });
}

void SourceDisposal::done(const QString &source, const QString &whyKept) {
  m_finished->acquire();
  m_running = false;
  if (!m_waiting.isEmpty()) next();
  Q_EMIT disposed(source, whyKept);
  if (isIdle()) Q_EMIT idle();
}

}  // namespace decant
