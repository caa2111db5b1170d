#include "VKAppMovedHandler.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <array>
#include <utility>

#include "Alerts.h"
#include "Format.h"
#include "Ostrak.h"
#include "ProgramLauncher.h"
#include "SingleInstance.h"
#include "Text.h"
#include "TimerCountdown.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

constexpr std::chrono::milliseconds latency = std::chrono::seconds(3);
constexpr size_t longestPath = 4096;

QString filledWithName(const QString &format) {
  return makeString(format, tk->appName());
}

}  // namespace

std::unique_ptr<VKAppMovedHandler> VKAppMovedHandler::startMoveObservation(MovedProgram program) {
  return startMoveObservation(std::move(program), std::make_unique<TimerCountdown>());
}

std::unique_ptr<VKAppMovedHandler> VKAppMovedHandler::startMoveObservation(
    MovedProgram program, std::unique_ptr<Countdown> countdown) {
  return std::unique_ptr<VKAppMovedHandler>(
      new VKAppMovedHandler(std::move(program), std::move(countdown)));
}

VKAppMovedHandler::VKAppMovedHandler(MovedProgram program, std::unique_ptr<Countdown> countdown)
    : m_program(std::move(program)),
      m_countdown(std::move(countdown)),
      m_home(QFileInfo(m_program.executable).absolutePath()),
      m_keptAt(m_home),
      // It follows the folder, and needs no right to read it.
      m_bundleFileDescriptor(
          ::open(nativePath(m_home).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC)),
      m_identity(fileIdentity(m_bundleFileDescriptor.get())),
      m_anchor(m_inotify, nativePath(m_home)) {
  if (!m_identity || !m_inotify.isReady()) return;
  m_anchor.set();
  m_notifier = std::make_unique<QSocketNotifier>(m_inotify.descriptor(), QSocketNotifier::Read);
  connect(m_notifier.get(), &QSocketNotifier::activated, this,
          &VKAppMovedHandler::MoveCallbackFunction);
}

void VKAppMovedHandler::MoveCallbackFunction() {
  bool mayBeMoved = false;
  m_inotify.read([&](const InotifyEvent &event) { mayBeMoved |= m_anchor.concerns(event); });
  if (!mayBeMoved || m_telling || m_countdown->isRunning()) return;
  m_countdown->start(latency, [this] { look(); });
}

void VKAppMovedHandler::look() {
  QString place;
  do {
    place = bundlePath();
    m_anchor.set(nativePath(place.isNull() ? m_home : place));
  } while (place != bundlePath());
  if (isAtHome()) {
    m_keptAt = m_home;
    m_program.release();
  } else if (place.isNull() || place != m_keptAt) {
    tell();
  }
}

void VKAppMovedHandler::tellAgain() {
  if (m_telling) return;
  if (isAtHome())
    m_program.release();
  else
    tell();
}

void VKAppMovedHandler::tell() {
  m_telling = true;
  m_program.hold();
  postAlert(
      apptitledAlert(filledWithName(localized(u"%@ has been moved, but applications should never "
                                              "be moved while they are running."_s)),
                     {filledWithName(localized(u"Restart %@"_s))}),
      [handler = QPointer(this)](int) {
        if (handler) handler->restart();
      });
}

// The question comes before the new instance: two of them would both go by what the user keeps. The
// new one becomes the one instance, so this one makes room first.
void VKAppMovedHandler::restart() {
  if (!m_program.mayQuit()) {
    stay();
    return;
  }
  m_program.singleInstance.release();
  const QString place = bundlePath();
  const QString name = QFileInfo(m_program.executable).fileName();
  if (!place.isNull() && m_program.launcher.launch(place + u'/' + name)) {
    m_program.quit();
    return;
  }
  postAlert(apptitledAlert(filledWithName(localized(u"%@ could not restart itself. Please do so "
                                                    "yourself."_s)),
                           {localized(u"Quit"_s)}),
            [handler = QPointer(this)](int) {
              if (handler) handler->m_program.quit();
            });
}

// The next move counts from where the bundle is now; of one that is nowhere there is none.
void VKAppMovedHandler::stay() {
  m_telling = false;
  m_keptAt = bundlePath();
  if (isAtHome()) m_program.release();
  if (m_keptAt.isNull())
    m_notifier->setEnabled(false);
  else
    m_anchor.set(nativePath(m_keptAt));
}

bool VKAppMovedHandler::isAtHome() const {
  return fileIdentity(m_home) == m_identity;
}

// What the kernel writes for a deleted folder could be the name of another one.
QString VKAppMovedHandler::bundlePath() const {
  const QByteArray link = "/proc/self/fd/" + QByteArray::number(m_bundleFileDescriptor.get());
  std::array<char, longestPath> buffer{};
  const ssize_t count = ::readlink(link.constData(), buffer.data(), buffer.size());
  if (count <= 0 || static_cast<size_t>(count) == buffer.size()) return {};
  const QString path = QFile::decodeName(QByteArray(buffer.data(), static_cast<qsizetype>(count)));
  return fileIdentity(path) == m_identity ? path : QString();
}

}  // namespace ostrak
