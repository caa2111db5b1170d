#include "JobActions.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>

#include "AppDelegate.h"
#include "InterfaceFile.h"
#include "JobListModel.h"
#include "JobListView.h"
#include "Text.h"
#include "ValueTransformer.h"

using namespace Qt::StringLiterals;
using ostrak::localized;

namespace decant {

namespace {

QAction *actionOf(QMainWindow &window, const QString &name) {
  auto *found = window.findChild<QAction *>(name);
  if (!found) ostrak::outletMissing(name);
  return found;
}

}  // namespace

JobActions::JobActions(QMainWindow &window, JobListView &list, JobListModel &model,
                       AppDelegate &app, QObject *parent)
    : QObject(parent),
      m_list(list),
      m_model(model),
      m_app(app),
      m_pause(actionOf(window, u"jobPauseAction"_s)),
      m_reveal(actionOf(window, u"jobRevealAction"_s)),
      m_revealSource(actionOf(window, u"jobRevealSourceAction"_s)),
      m_remove(actionOf(window, u"jobRemoveAction"_s)) {
  // Their keys mean something else outside the list.
  for (QAction *action : {m_pause, m_reveal, m_revealSource, m_remove}) {
    action->setShortcutContext(Qt::WidgetShortcut);
    list.addAction(action);
  }
  connect(m_pause, &QAction::triggered, this, [this] {
    for (ConversionJob *job : selected())
      pauseOrContinue(*job);
  });
  connect(m_reveal, &QAction::triggered, this, [this] { onSelected(&ConversionJob::reveal); });
  connect(m_revealSource, &QAction::triggered, this,
          [this] { onSelected(&ConversionJob::revealSource); });
  connect(m_remove, &QAction::triggered, this, &JobActions::removeSelected);
  connect(actionOf(window, u"selectAllAction"_s), &QAction::triggered, &list,
          &QListView::selectAll);

  connect(&list, &JobListView::pauseContinueClicked, this,
          [this](const QModelIndex &index) { pauseOrContinue(*m_model.jobAt(index)); });
  connect(&list, &JobListView::arrowClicked, this,
          [this](const QModelIndex &index) { m_model.jobAt(index)->reveal(); });
  connect(&list, &JobListView::removeClicked, this,
          [this](const QModelIndex &index) { m_model.jobAt(index)->remove(); });
  connect(&list, &JobListView::customContextMenuRequested, this, &JobActions::showMenu);
  connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, this, &JobActions::update);
  connect(&model, &QAbstractItemModel::dataChanged, this, &JobActions::update);
  update();
}

JobActions::~JobActions() = default;

QList<ConversionJob *> JobActions::selected() const {
  QList<ConversionJob *> jobs;
  for (const QModelIndex &index : m_list.selectionModel()->selectedRows()) {
    if (ConversionJob *job = m_model.jobAt(index)) jobs.append(job);
  }
  return jobs;
}

void JobActions::pauseOrContinue(ConversionJob &job) {
  if (job.state() == JobStateConverting) {
    job.pause();
  } else {
    job.continue_();
  }
}

void JobActions::removeSelected() {
  QList<QPointer<ConversionJob>> leaving;
  for (ConversionJob *job : selected())
    leaving.append(job);
  for (const QPointer<ConversionJob> &job : leaving) {
    if (job) job->remove();
  }
}

void JobActions::onSelected(void (ConversionJob::*what)()) {
  const QList<ConversionJob *> jobs = selected();
  if (jobs.size() == 1) (jobs.first()->*what)();
}

void JobActions::showMenu(const QPoint &position) {
  if (selected().isEmpty()) return;
  QMenu menu(&m_list);
  menu.addActions({m_pause, m_reveal, m_revealSource});
  menu.addSeparator();
  menu.addAction(m_remove);
  menu.exec(m_list.viewport()->mapToGlobal(position));
}

void JobActions::update() {
  const QList<ConversionJob *> jobs = selected();
  bool runs = false;
  bool mayRun = false;
  for (const ConversionJob *job : jobs) {
    runs |= StatusIsRunningValueTransformer().transformedValue(job->state()) == 1;
    mayRun |= StatusNotQueuedAndPausedValueTransformer().transformedValue(job->state()) == 0;
  }
  const bool single = jobs.size() == 1;
  const bool failed = single && jobs.first()->state() == JobStateFailed;
  m_pause->setEnabled(runs || mayRun);
  m_pause->setText(runs ? localized(u"Pause Con&version"_s) : localized(u"Con&vert Now"_s));
  m_reveal->setEnabled(single);
  m_reveal->setText(failed ? localized(u"&Explain Failure"_s) : localized(u"&Show File"_s));
  m_revealSource->setEnabled(single);
  m_remove->setEnabled(!jobs.isEmpty());
}

}  // namespace decant
