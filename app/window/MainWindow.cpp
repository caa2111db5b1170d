#include "MainWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QStackedWidget>
#include <QToolBar>
#include <QToolButton>
#include <cstdio>

#include "Alerts.h"
#include "AppDelegate.h"
#include "Defaults.h"
#include "DestinationFolders.h"
#include "DestinationPopUp.h"
#include "DestinationRoad.h"
#include "DropMark.h"
#include "ElidedLabel.h"
#include "FilePanel.h"
#include "InterfaceFile.h"
#include "JobActions.h"
#include "JobListModel.h"
#include "JobListView.h"
#include "MissingForm.h"
#include "Ostrak.h"
#include "PictureView.h"
#include "PreferencesWindow.h"
#include "SettingBinder.h"
#include "StylePanel.h"
#include "Text.h"
#include "WheelGuard.h"
#include "WindowPanels.h"
#include "WindowTexts.h"

using namespace Qt::StringLiterals;
using ostrak::localized;
using ostrak::outlet;
using ostrak::tk;

namespace decant {

namespace {

// The classes of our own that the forms name.
QWidget *makeWidget(const QString &className, QWidget *parent) {
  if (className == "MainWindow"_L1) return new MainWindow(parent);
  if (className == "PreferencesWindow"_L1) return new PreferencesWindow(parent);
  if (className == "FilePanel"_L1) return new FilePanel(parent);
  if (className == "JobListView"_L1) return new JobListView(parent);
  if (className == "ElidedLabel"_L1) return new ostrak::ElidedLabel(parent);
  if (className == "PictureView"_L1) return new ostrak::PictureView(parent);
  if (className == "HintLabel"_L1) return new ostrak::HintLabel(parent);
  return nullptr;
}

const QString geometryKey = u"MainWindowGeometry"_s;
constexpr QSize usualSize(720, 580);
constexpr QSize usualPreferencesSize(460, 420);

}  // namespace

MainWindow::MainWindow(QWidget *parent) : QMainWindow(parent) {
  setAcceptDrops(true);
  // It would hide the toolbar, which nothing else brings back.
  setContextMenuPolicy(Qt::PreventContextMenu);
}

MainWindow::~MainWindow() = default;

std::unique_ptr<MainWindow> MainWindow::load(const WindowParts &parts) {
  std::unique_ptr<QWidget> loaded(ostrak::loadInterface(u"MainWindow"_s, nullptr, makeWidget));
  auto *window = qobject_cast<MainWindow *>(loaded.get());
  if (!window) {
    std::fprintf(stderr, "decant: %s\n", qUtf8Printable(missingFormText(u"MainWindow"_s)));
    return nullptr;
  }
  loaded.release();
  window->follow(parts);
  return std::unique_ptr<MainWindow>(window);
}

void MainWindow::follow(const WindowParts &parts) {
  m_parts = std::make_unique<WindowParts>(parts);
  m_parts->panels.setMainWindow(this);
  m_parts->binder.bind(*this);
  m_style = new StylePanel(*this, m_parts->binder, this);
  m_filePanel = &outlet<FilePanel>(*this, u"filePanel"_s);
  m_filePanel->follow(m_parts->app);
  m_jobList = &outlet<JobListView>(*this, u"jobList"_s);
  m_model = new JobListModel(m_parts->app.queue(), this);
  m_jobList->setModel(m_model);
  m_jobActions = new JobActions(*this, *m_jobList, *m_model, m_parts->app, this);
  m_jobArea = &outlet<QStackedWidget>(*this, u"jobArea"_s);

  outlet<ostrak::PictureView>(*this, u"helpImageView"_s)
      .setPicture(QIcon(tk->resDir() + u"/images/help.svg"_s), QSize(160, 112));
  m_dropMark = new DropMark(*m_jobArea);
  enlargeInvitation();

  connect(m_model, &QAbstractItemModel::rowsInserted, this, &MainWindow::showEmptyOrList);
  connect(m_model, &QAbstractItemModel::rowsRemoved, this, &MainWindow::showEmptyOrList);
  connect(&m_parts->app, &AppDelegate::windowTitleChanged, this, &MainWindow::setWindowTitle);
  connect(&m_parts->app, &AppDelegate::pauseTextsChanged, this, &MainWindow::updatePauseTexts);
  setWindowTitle(m_parts->app.windowTitle());
  connectMenus();
  connectDestinations();
  dressActions();
  for (QWidget *button : outlet<QToolBar>(*this, u"toolBar"_s).findChildren<QToolButton *>())
    button->setFocusPolicy(Qt::TabFocus);
  (new WheelGuard(this))->guard(*this);
  showEmptyOrList();
  restorePlace();
}

// With large letters the window opens larger.
void MainWindow::restorePlace() {
  if (!restoreGeometry(ostrak::defaultObject(geometryKey).toByteArray()))
    resize(usualSize.expandedTo(sizeHint()));
}

void MainWindow::keepGeometry() const {
  ostrak::setDefaultObject(geometryKey, saveGeometry());
}

QAction &MainWindow::action(const QString &name) {
  auto *found = findChild<QAction *>(name);
  if (!found) ostrak::outletMissing(name);
  return *found;
}

void MainWindow::connectMenus() {
  const auto on = [this](const QString &name, auto does) {
    connect(&action(name), &QAction::triggered, this, does);
  };
  AppDelegate &app = m_parts->app;
  on(u"addAction"_s, [this] { addClicked(); });
  on(u"pasteAction"_s, [this] { paste(); });
  on(u"quitAction"_s, [this] { Q_EMIT quitWanted(); });
  on(u"pauseContinueMenuItem"_s, [&app] { app.pauseContinueClicked(true); });
  on(u"pauseContinueToolbarItem"_s, [&app] { app.pauseContinueClicked(true); });
  on(u"cleanAction"_s, [&app] { app.cleanClicked(); });
  on(u"preferencesAction"_s, [this] { openPreferences(); });
  on(u"mainWindowAction"_s, [this] { openMainWindow(); });
  on(u"helpAction"_s, [this] { Q_EMIT documentationWanted(-1); });
  on(u"helpStylesAction"_s, [this] { Q_EMIT documentationWanted(1); });
  on(u"helpDevicesAction"_s, [this] { Q_EMIT documentationWanted(3); });
  on(u"aboutAction"_s, [this] { tellAbout(); });
  on(u"promotionAction"_s, [this] { Q_EMIT promotionWanted(); });

  // The tag of each entry is the choice that it opens; one that the bundle does not
  // name leads nowhere.
  struct Link {
    const char *name;
    ostrak::Ostrak::UrlChoice choice;
  };
  static constexpr Link links[] = {
      {"supportAction", ostrak::Ostrak::openSupportRequestMail},
      {"betaAction", ostrak::Ostrak::openBetaSignupMail},
      {"homepageAction", ostrak::Ostrak::openHomepageWebsite},
      {"storeWebAction", ostrak::Ostrak::openAppStoreWebsite},
      {"storeAppAction", ostrak::Ostrak::openAppStoreApp},
      {"macupdateAction", ostrak::Ostrak::openMacupdateWebsite},
  };
  for (const Link &link : links) {
    QAction &entry = action(QString::fromLatin1(link.name));
    entry.setProperty("tag", static_cast<int>(link.choice));
    entry.setEnabled(tk->hasDestination(link.choice));
    connect(&entry, &QAction::triggered, this, [&app, &entry] { app.openURL(entry); });
  }
}

void MainWindow::tellAbout() {
  const QString text = versionText() + u'\n' + buildText() + u"\n\n"_s +
                       localized(
                           u"Pours movies into MP4 files that play everywhere. The work is "
                           "done by ffmpeg, which has licences of its own."_s);
  ostrak::alert_apptitled(text, localized(u"OK"_s));
}

void MainWindow::connectDestinations() {
  auto &menu = m_filePanel->destinationPopUp();
  m_destinations = new DestinationPopUp(menu, m_parts->folders, this);
  connect(m_destinations, &DestinationPopUp::selected, this,
          [this](int index) { m_parts->road.setMenuIndex(index); });
  m_destinations->rebuild();
  connect(&m_parts->app, &AppDelegate::rebuildDestinationPopUp, m_destinations,
          &DestinationPopUp::rebuild);
  connect(m_destinations, &DestinationPopUp::addFolderWanted, this,
          [this] { m_parts->road.chooseNewDestination(Panels::Over::MainWindow); });
  connect(&m_parts->road, &DestinationRoad::folderAdded, this, [this](Panels::Over over) {
    const int added = m_filePanel->destinationPopUp().count() - 3;
    if (over == Panels::Over::MainWindow) {
      m_destinations->select(added);
    } else {
      ostrak::setDefaultInt(u"DefaultDestination"_s, added);
      if (m_preferences) m_preferences->destinations().rebuild();
    }
  });
  connect(&m_parts->road, &DestinationRoad::duplicateRefused, this, [this] {
    m_destinations->select(0);
    if (m_preferences) m_preferences->destinations().select(0);
  });
  connect(m_filePanel, &FilePanel::addClicked, this, [this] { m_parts->app.addToQueueOrTell(); });
  connect(m_filePanel, &FilePanel::focusFree, m_jobList, [this] { m_jobList->setFocus(); });
}

void MainWindow::showEmptyOrList() {
  m_jobArea->setCurrentIndex(m_model->rowCount() == 0 ? 0 : 1);
}

void MainWindow::addClicked() {
  m_parts->panels.askForFiles(movieFileTypes() + subtitleFileTypes(),
                              [this](const QStringList &paths) {
                                if (!paths.isEmpty()) take(paths);
                              });
}

// Files come with the wish to see what becomes of them.
void MainWindow::take(const QStringList &paths) {
  m_parts->app.intake().openFiles(paths);
  openMainWindow();
}

void MainWindow::openPreferences() {
  if (!m_preferences) {
    auto *loaded = ostrak::loadInterface(u"PreferencesWindow"_s, this, makeWidget);
    m_preferences = qobject_cast<PreferencesWindow *>(loaded);
    if (!m_preferences) {
      delete loaded;
      tellFormMissing(u"PreferencesWindow"_s);
      return;
    }
    m_preferences->setWindowFlag(Qt::Dialog);
    m_parts->panels.setPreferencesWindow(m_preferences);
    m_preferences->follow(m_parts->binder, m_parts->folders);
    m_preferences->resize(usualPreferencesSize.expandedTo(m_preferences->sizeHint()));
    connect(m_preferences, &PreferencesWindow::closing, this,
            [] { tk->userDefaults().synchronize(); });
    connect(m_preferences, &PreferencesWindow::addFolderWanted, this,
            [this] { m_parts->road.chooseNewDestination(Panels::Over::Preferences); });
  }
  m_preferences->show();
  m_preferences->raise();
  m_preferences->activateWindow();
}

void MainWindow::openMainWindow() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void MainWindow::closeEvent(QCloseEvent *event) {
  event->ignore();
  Q_EMIT quitWanted();
}

}  // namespace decant
