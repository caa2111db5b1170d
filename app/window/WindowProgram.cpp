#include "WindowProgram.h"

#include <QApplication>
#include <QPointer>
#include <QSessionManager>
#include <chrono>

#include "AlertQueue.h"
#include "Alerts.h"
#include "FileRevealer.h"
#include "Format.h"
#include "LaunchFixups.h"
#include "LauncherProgress.h"
#include "MissingForm.h"
#include "Notifier.h"
#include "Ostrak.h"
#include "SingleInstance.h"
#include "Text.h"

using namespace Qt::StringLiterals;
using ostrak::localized;

namespace decant {

namespace {

// How long a consent to end with the session holds, should the session go on after all.
constexpr std::chrono::minutes consentHolds{1};

AppServices connected(AppServices services, DestinationRoad &road, std::function<void()> quit) {
  services.quit = std::move(quit);
  services.jobs.busy = [](bool busy) {
    if (busy)
      QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
      QGuiApplication::restoreOverrideCursor();
  };
  services.destination = [&road](const MKVFileInfo &record, const ClaimedNames &claimed,
                                 const DestinationAnswer &answer) {
    road.choose(record, claimed, answer);
  };
  return services;
}

}  // namespace

WindowProgram::WindowProgram(AppServices app, const DesktopServices &desktop, QObject *parent)
    : QObject(parent),
      m_desktop(desktop),
      m_notifier(app.jobs.notifier),
      m_revealer(app.jobs.revealer),
      m_folders(app.jobs.sandbox),
      m_road(m_folders, m_panels),
      m_endLoop(app.quit),
      m_app(connected(std::move(app), m_road, [this] { endSoon(); })) {
  m_consent.setSingleShot(true);
  m_consent.setInterval(consentHolds);
  ostrak::setAlertPresenter(&m_presenter);
  ostrak::setPatiencePresenter(&m_patience);
}

WindowProgram::~WindowProgram() {
  ostrak::tk->userDefaults().setUnwritable({});
  m_notifier.setActivated({});
  m_desktop.singleInstance.setHandler({});
  m_app.applicationWillTerminate();
  ostrak::setPatiencePresenter(nullptr);
  ostrak::setAlertPresenter(nullptr);
}

bool WindowProgram::open(const QStringList &paths) {
  connect(&m_app, &AppDelegate::speedHintDue, this, &WindowProgram::showSpeedHint);
  connect(&m_app, &AppDelegate::bookmarkCheckDue, &m_folders, &DestinationFolders::checkStored);
  m_app.applicationWillFinishLaunching();
  tellAboutStore();
  m_window = MainWindow::load({m_app, m_folders, m_road, m_panels, m_binder});
  if (!m_window) return false;
  m_patience.setMainWindow(m_window.get());
  connect(m_window.get(), &MainWindow::quitWanted, this, &WindowProgram::quit);
  connect(m_window.get(), &MainWindow::documentationWanted, &m_auxiliary,
          &AuxiliaryWindows::openDocumentationWindow);
  connect(m_window.get(), &MainWindow::promotionWanted, &m_auxiliary,
          &AuxiliaryWindows::openPromotion);
  connect(&m_app, &AppDelegate::feedbackRequested, this, &WindowProgram::showFeedback);
  connect(&m_app, &AppDelegate::terminationRequested, this, &WindowProgram::quit);
  connectDesktop();
  watchForMove();
  m_window->show();
  if (!paths.isEmpty()) m_app.intake().openFiles(paths);
  return true;
}

void WindowProgram::tellAboutStore() {
  ostrak::UserDefaults &store = ostrak::tk->userDefaults();
  const QStringList ok{localized(u"OK"_s)};
  store.setUnwritable([path = store.path(), ok] {
    ostrak::postAlert(ostrak::apptitledAlert(
        ostrak::makeString(localized(u"The settings cannot be written to the file '%@'; what you "
                                     "change is forgotten when the program ends."_s),
                           path),
        ok));
  });
  if (store.isFileIgnored())
    ostrak::postAlert(ostrak::apptitledAlert(
        ostrak::makeString(localized(u"The settings file '%@' could not be read and is not used; "
                                     "all settings are at their defaults."_s),
                           store.path()),
        ok));
  if (!store.keptAside().isNull())
    ostrak::postAlert(ostrak::apptitledAlert(
        ostrak::makeString(localized(u"The settings file could not be read and is kept as '%@'; "
                                     "all settings are back at their defaults."_s),
                           store.keptAside()),
        ok));
}

void WindowProgram::connectDesktop() {
  m_notifier.setActivated([this](const QString &path) { m_revealer.reveal(path); });
  m_desktop.singleInstance.setHandler([this](const QStringList &paths) { filesArrived(paths); });
  connect(&m_app.queue(), &JobQueue::countsChanged, this, &WindowProgram::showLauncherProgress);
  connect(&m_app.queue(), &JobQueue::inserted, this, [this](qsizetype index) {
    connect(m_app.queue().taskArray().at(index), &ConversionJob::progressChanged, this,
            &WindowProgram::showLauncherProgress);
  });
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager &manager) {
    bool asked = false;
    const bool ends = sessionMayEnd([&] { return asked = manager.allowsInteraction(); });
    if (asked) manager.release();
    if (!ends) manager.cancel();
  });
}

void WindowProgram::filesArrived(const QStringList &paths) {
  // What the window system wants to see before it lets a window come to the front.
  const QString token = m_desktop.singleInstance.activationToken();
  if (!token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
  if (!paths.isEmpty()) m_app.intake().openFiles(paths);
  m_window->openMainWindow();
  // It is good for one window, and no business of the tools that start later.
  qunsetenv("XDG_ACTIVATION_TOKEN");
}

void WindowProgram::showSpeedHint() {
  ostrak::Alert hint;
  hint.title = localized(u"Picking up Speed!"_s);
  hint.message = localized(
      u"Note that conversion will be much faster, more reliable and higher quality if you select "
      u"'High "
      "Speed & Quality' in the 'Audio Conversion Settings' in the Preferences, though the "
      "resulting "
      "files may not play with sound on some devices (e.g. iOS). Just try it out!"_s);
  hint.image = u"ok.png"_s;
  ostrak::postAlert(hint, [](int) { speedHintShown(); });
}

void WindowProgram::showFeedback(const QString &text) {
  if (!m_ratingWindowController) {
    m_ratingWindowController = std::make_unique<ostrak::VKRatingWindowController>();
    m_ratingWindowController->setCloseBlock([program = QPointer(this)] {
      if (program) program->feedbackClosed();
    });
  }
  if (!m_ratingWindowController->window()) {
    m_ratingWindowController.reset();
    tellFormMissing(u"VKRatingWindow"_s);
    return;
  }
  m_ratingWindowController->setIntroText(text);
  m_ratingWindowController->showWindow();
}

// The next one is to be a fresh one. This one is still in the middle of what closed it.
void WindowProgram::feedbackClosed() {
  m_ratingWindowController->setCloseBlock({});
  m_ratingWindowController.release()->deleteLater();
}

void WindowProgram::showLauncherProgress() {
  const JobQueue &queue = m_app.queue();
  const int waiting =
      queue.jobCountWithState(JobStateQueued) + queue.jobCountWithState(JobStateConverting);
  std::optional<double> fraction;
  if (const ConversionJob *job = queue.convertingJob()) fraction = job->progress() / 100;
  m_desktop.launcher.show(fraction, waiting);
}

void WindowProgram::quitAtOnce() {
  if (m_quitting) return;
  m_quitting = true;
  // Files of a second start stay with it from here on.
  m_desktop.singleInstance.setHandler({});
  if (m_window) m_window->keepGeometry();
  m_auxiliary.closeAll();
  if (m_ratingWindowController) m_ratingWindowController->closeClicked();
  m_app.applicationWillTerminate();
  // Not quit(), which asks the windows first, and theirs is the question that was just answered.
  m_endLoop();
}

bool WindowProgram::sessionMayEnd(const std::function<bool()> &mayAsk) {
  // The session may end this process with no further word.
  m_window->keepGeometry();
  ostrak::tk->userDefaults().synchronize();
  if (m_app.jobCountWithState(JobStateConverting) == 0) return true;
  if (mayAsk() && !m_app.applicationShouldTerminate()) return false;
  m_consent.start();
  return true;
}

// What asks for the end may be in the middle of a job.
void WindowProgram::endSoon() {
  QMetaObject::invokeMethod(this, &WindowProgram::endWhenQuiet, Qt::QueuedConnection);
}

// Nothing that is being read or chosen is taken away; when it is done the controller looks again
// whether the end is still due.
void WindowProgram::endWhenQuiet() {
  if (m_quitting) return;
  auto &alerts = ostrak::AlertQueue::instance();
  if (!alerts.isIdle()) {
    alerts.whenIdle([app = QPointer(&m_app)] {
      if (app) app->terminate();
    });
  } else if (const QWidget *panel = QApplication::activeModalWidget()) {
    connect(panel, &QObject::destroyed, &m_app, &AppDelegate::terminate, Qt::QueuedConnection);
  } else if (m_app.jobCountWithState(JobStateConverting) > 0 || !m_app.intake().isIdle()) {
    m_app.terminate();
  } else {
    quitAtOnce();
  }
}

bool WindowProgram::quit() {
  if (!mayQuit()) return false;
  quitAtOnce();
  return true;
}

// While the question is up, a signal may have ended the program.
bool WindowProgram::mayQuit() {
  if (m_quitting) return false;
  return m_consent.isActive() || (m_app.applicationShouldTerminate() && !m_quitting);
}

void WindowProgram::watchForMove() {
  const auto mayRestart = [this] {
    if (!mayQuit()) return false;
    // The new instance reads them before this one has ended.
    m_window->keepGeometry();
    ostrak::tk->userDefaults().synchronize();
    return true;
  };
  m_appMovedHandler = ostrak::VKAppMovedHandler::startMoveObservation(
      {ostrak::tk->setup().bundlePath + u"/decant"_s, m_desktop.singleInstance, m_desktop.programs,
       [this] { m_app.queue().hold(); }, [this] { m_app.queue().release(); }, mayRestart,
       [this] { quitAtOnce(); }});
  connect(&m_app, &AppDelegate::heldQueueWanted, m_appMovedHandler.get(),
          &ostrak::VKAppMovedHandler::tellAgain);
}

}  // namespace decant
