#include "WindowProgram.h"

#include <QApplication>
#include <QSessionManager>

#include "Alerts.h"
#include "FileRevealer.h"
#include "Format.h"
#include "LaunchFixups.h"
#include "LauncherProgress.h"
#include "Notifier.h"
#include "Ostrak.h"
#include "SingleInstance.h"
#include "Text.h"

using namespace Qt::StringLiterals;
using ostrak::localized;

namespace decant {

namespace {

AppServices withDestinations(AppServices services, DestinationRoad &road) {
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
      m_app(withDestinations(std::move(app), m_road)) {
  ostrak::setAlertPresenter(&m_presenter);
}

WindowProgram::~WindowProgram() {
  m_notifier.setActivated({});
  m_desktop.singleInstance.setHandler({});
  m_app.applicationWillTerminate();
  ostrak::setAlertPresenter(nullptr);
}

bool WindowProgram::open(const QStringList &paths) {
  connect(&m_app, &AppDelegate::speedHintDue, this, &WindowProgram::showSpeedHint);
  connect(&m_app, &AppDelegate::bookmarkCheckDue, &m_folders, &DestinationFolders::checkStored);
  m_app.applicationWillFinishLaunching();
  tellAboutStore();
  m_window = MainWindow::load({m_app, m_folders, m_road, m_panels, m_binder});
  if (!m_window) return false;
  connect(m_window.get(), &MainWindow::quitWanted, this, &WindowProgram::quit);
  connect(m_window.get(), &MainWindow::documentationWanted, &m_auxiliary,
          &AuxiliaryWindows::openDocumentationWindow);
  connect(m_window.get(), &MainWindow::promotionWanted, &m_auxiliary,
          &AuxiliaryWindows::openPromotion);
  connectDesktop();
  m_window->show();
  if (!paths.isEmpty()) m_app.intake().openFiles(paths);
  return true;
}

void WindowProgram::tellAboutStore() {
  const ostrak::UserDefaults &store = ostrak::tk->userDefaults();
  const QStringList ok{localized(u"OK"_s)};
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
    if (m_app.jobCountWithState(JobStateConverting) == 0 || !manager.allowsInteraction()) return;
    const bool goesOn = m_app.applicationShouldTerminate();
    manager.release();
    if (!goesOn) manager.cancel();
  });
}

void WindowProgram::filesArrived(const QStringList &paths) {
  // What the window system wants to see before it lets a window come to the front.
  const QString token = m_desktop.singleInstance.activationToken();
  if (!token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
  if (!paths.isEmpty()) m_app.intake().openFiles(paths);
  m_window->openMainWindow();
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

void WindowProgram::showLauncherProgress() {
  const JobQueue &queue = m_app.queue();
  const int waiting =
      queue.jobCountWithState(JobStateQueued) + queue.jobCountWithState(JobStateConverting);
  const bool converts = queue.jobCountWithState(JobStateConverting) > 0;
  std::optional<double> fraction;
  for (const ConversionJob *job : queue.taskArray()) {
    if (!converts || fraction) break;
    if (job->state() == JobStateConverting) fraction = job->progress() / 100;
  }
  m_desktop.launcher.show(fraction, waiting);
}

void WindowProgram::quitAtOnce() {
  if (m_quitting) return;
  m_quitting = true;
  // Files of a second start stay with it from here on.
  m_desktop.singleInstance.setHandler({});
  if (m_window) m_window->keepGeometry();
  m_auxiliary.closeAll();
  m_app.applicationWillTerminate();
  // Not quit(), which asks the windows first, and theirs is the question that was just answered.
  QCoreApplication::exit();
}

bool WindowProgram::quit() {
  if (m_quitting || !m_app.applicationShouldTerminate()) return false;
  quitAtOnce();
  return true;
}

}  // namespace decant
