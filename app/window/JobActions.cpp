#include "JobActions.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <algorithm>

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

constexpr int longSelection = 100;  // rows

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
  m_reveal->setShortcuts({Qt::Key_Return, Qt::Key_Enter});
  m_revealSource->setShortcuts({Qt::SHIFT | Qt::Key_Return, Qt::SHIFT | Qt::Key_Enter});
  connect(m_pause, &QAction::triggered, this, &JobActions::pauseOrContinueSelected);
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
  m_later.setSingleShot(true);
  connect(&m_later, &QTimer::timeout, this, &JobActions::update);
  connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &JobActions::selectionChanged);
  connect(&model, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex &index) {
    if (m_list.selectionModel()->isSelected(index)) selectionChanged();
  });
  update();
}

JobActions::~JobActions() = default;

QList<ConversionJob *> JobActions::selected() const {
  QModelIndexList rows = m_list.selectionModel()->selectedRows();
  std::ranges::sort(rows, std::less(), &QModelIndex::row);
  QList<ConversionJob *> jobs;
  for (const QModelIndex &index : std::as_const(rows)) {
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

// One decision for all of them: what runs is paused, and only where nothing runs, the first that
// can go on does. Pausing starts no other.
void JobActions::pauseOrContinueSelected() {
  const QList<ConversionJob *> jobs = selected();
  const auto mayPause = [](const ConversionJob *job) { return job->state() == JobStateConverting; };
  const auto mayRun = [](const ConversionJob *job) {
    return job->state() == JobStatePaused || job->state() == JobStateQueued;
  };
  if (std::ranges::any_of(jobs, mayPause)) {
    for (ConversionJob *job : jobs) {
      if (mayPause(job)) job->pause();
    }
    return;
  }
  const auto first = std::ranges::find_if(jobs, mayRun);
  if (first != jobs.end()) (*first)->continue_();
}

void JobActions::removeSelected() {
  m_app.queue().remove(selected());
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

// Rows that leave a long selection one by one would each cost a look through all that are left.
void JobActions::selectionChanged() {
  qsizetype rows = 0;
  for (const QItemSelectionRange &range : m_list.selectionModel()->selection())
    rows += range.height();
  if (rows < longSelection)
    update();
  else if (!m_later.isActive())
    m_later.start();
}

void JobActions::update() {
  m_later.stop();
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
