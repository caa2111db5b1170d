#include "WindowBench.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>

#include "BuildTree.h"
#include "Defaults.h"
#include "Ostrak.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

WindowBench::WindowBench() : scenario(program.path(u"bundle/resources/ffmpeg.scenario"_s)) {
  sandbox.active = false;
  scenario.conversion(u"slow.mkv"_s).progressAt(10).announce(u"running"_s).wait(u"go"_s);
  scenario.conversion(u"fail.mkv"_s).exit(1);
  scenario.conversion(u"hang.mkv"_s).hang();
  if (!scenario.write()) qFatal("the scenario could not be written");
  for (const QString &part : {u"ui"_s, u"images"_s}) {
    const QString shipped = buildtree::source(u"app/resources/"_s + part);
    if (!QFile::link(shipped, program.library().resDir() + u'/' + part))
      qFatal("the program's resources could not be linked");
  }
}

WindowBench::~WindowBench() {
  letGo();
  prober.finishAll();
  close();
}

bool WindowBench::open(const QStringList &paths) {
  m_desktop =
      std::make_unique<WindowProgram>(services(), DesktopServices{instance, launcher, programs});
  ostrak::setAlertPresenter(&program.presenter());
  return m_desktop->open(paths) && QTest::qWaitForWindowActive(&window());
}

void WindowBench::close() {
  m_desktop.reset();
  ostrak::setAlertPresenter(&program.presenter());
}

AppServices WindowBench::services() {
  m_jobs = std::make_unique<JobServices>(
      JobServices{sleepInhibitor, notifier, revealer, program.opener(), program.keyboard(), volumes,
                  clock, sandbox, program.toolPath(), ostrak::tk->docDir()});
  m_jobs->progressInterval = std::chrono::milliseconds(10);
  return {*m_jobs,
          trashCan,
          {u"eng"_s},
          [this] {
            ++quits;
            QCoreApplication::exit();
          },
          prober.function()};
}

QString WindowBench::movie(const QString &name) const {
  QDir().mkpath(QFileInfo(path(name)).path());
  return wholefile::made(path(name), "a movie");
}

QString WindowBench::folder(const QString &name) const {
  QDir(program.root()).mkpath(name);
  return path(name);
}

QStringList WindowBench::names() {
  QStringList found;
  for (const ConversionJob *job : queue().taskArray())
    found.append(job->fileInfo().fileName);
  return found;
}

bool WindowBench::click(const QString &name) {
  auto *button = find<QAbstractButton>(name);
  if (!button || !button->isVisible() || !button->isEnabled()) return false;
  // In a panel that is still sliding in, it is not all there yet.
  if (!QTest::qWaitFor([button] { return button->height() >= button->minimumSizeHint().height(); }))
    return false;
  // Check boxes and radio buttons are hit on their mark only.
  QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
  return true;
}

bool WindowBench::trigger(const QString &name) {
  auto *action = find<QAction>(name);
  if (!action || !action->isEnabled()) return false;
  action->trigger();
  return true;
}

bool WindowBench::pick(const QString &name, int index) {
  auto *menu = find<QComboBox>(name);
  if (!menu || !menu->isEnabled() || index < 0 || index >= menu->count()) return false;
  menu->setCurrentIndex(index);
  Q_EMIT menu->activated(index);
  return true;
}

bool WindowBench::drop(const QStringList &paths) {
  QMimeData files;
  QList<QUrl> urls;
  for (const QString &each : paths)
    urls.append(QUrl::fromLocalFile(each));
  files.setUrls(urls);
  const QPoint place = window().rect().center();
  QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&window(), &enter);
  if (!enter.isAccepted()) return false;
  QDropEvent dropped(place, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&window(), &dropped);
  return dropped.isAccepted() && dropped.dropAction() == Qt::CopyAction;
}

bool WindowBench::show(const QString &name) {
  intake().openFiles({movie(name)});
  return QTest::qWaitFor([&] { return intake().state() == Intake::State::Showing; });
}

bool WindowBench::queueUp(const QStringList &names) {
  ostrak::setDefaultInt(u"AutoAdd"_s, 1);
  ostrak::setDefaultInt(u"DefaultDestination"_s, 1);
  ostrak::setDefaultInt(u"InsertJobsAtBottom"_s, 1);
  QStringList paths;
  for (const QString &name : names)
    paths.append(movie(name));
  intake().openFiles(paths);
  const bool drained = QTest::qWaitFor([&] { return intake().isIdle(); });
  ostrak::setDefaultInt(u"AutoAdd"_s, 0);
  return drained;
}

void WindowBench::fill(int count) {
  queue().setPaused(true);
  for (int i = 0; i < count; ++i) {
    MKVFileInfo record;
    record.fileName = u"Film %1.mkv"_s.arg(i);
    record.fileURL = QUrl::fromLocalFile(path(record.fileName));
    record.destinationURL = QUrl::fromLocalFile(path(record.fileName) + u".m4v"_s);
    record.audioTrackInformation = {{u"#1: eng (aac)"_s, 48000}};
    queue().insert(std::make_unique<ConversionJob>(record, 0, app(), *m_jobs), true);
  }
}

QFileDialog *WindowBench::panel() {
  for (QWidget *each : QApplication::topLevelWidgets()) {
    auto *dialog = qobject_cast<QFileDialog *>(each);
    if (dialog && dialog->isVisible()) return dialog;
  }
  return nullptr;
}

bool WindowBench::answerPanel(const QString &path) {
  if (!QTest::qWaitFor([&] { return panel() != nullptr; })) return false;
  QFileDialog &dialog = *panel();
  auto *name = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s);
  if (!name) return false;
  for (QAbstractItemView *list : dialog.findChildren<QAbstractItemView *>())
    if (list->selectionModel()) list->clearSelection();
  name->setText(path);
  static_cast<QDialog &>(dialog).done(QDialog::Accepted);
  return QTest::qWaitFor([&] { return panel() == nullptr; });
}

bool WindowBench::cancelPanel() {
  if (!QTest::qWaitFor([&] { return panel() != nullptr; })) return false;
  QTest::keyClick(panel(), Qt::Key_Escape);
  return QTest::qWaitFor([&] { return panel() == nullptr; });
}

bool WindowBench::addFolder(const QString &menuName, const QString &folderName) {
  auto *menu = find<QComboBox>(menuName);
  return menu && pick(menuName, menu->count() - 1) && answerPanel(folder(folderName));
}

bool WindowBench::addThreeFolders() {
  if (!trigger(u"preferencesAction"_s)) return false;
  for (const QString &name : {u"a"_s, u"b"_s, u"c"_s})
    if (!addFolder(u"preferencesDestinationPopUp"_s, name)) return false;
  return true;
}

QStringList WindowBench::told() {
  QStringList messages;
  for (const ostrak::Alert &alert : std::as_const(presented()))
    messages.append(alert.message);
  return messages;
}
