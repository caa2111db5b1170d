#include <QAbstractItemModel>
#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QModelIndex>
#include <QObject>
#include <QPaintEvent>
#include <QPoint>
#include <QPointer>
#include <QRegion>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <QVariant>
#include <QWidget>

#include "JobListModel.h"
#include "JobRows.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The queue as rows, and what an update of a job repaints.
class TestJobListModel final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void rowsFollowTheQueue();
  void dataOfARow();
  void foreignIndexesHoldNothing();
  void jobsThatAreThereAlready();
  void oneChangeOfItsRowForEachUpdate();
  void goneJobsAreNotFollowed();
  void tenThousandJobs();
  void updateRepaintsItsRowOnly();
  void emptyWindowTellsWhatToDo();

 private:
  [[nodiscard]] QAbstractItemModel &model() { return *JobRows(*m_b).view().model(); }
  [[nodiscard]] QStringList rows() {
    QStringList found;
    for (int i = 0; i < model().rowCount(); ++i)
      found.append(model().index(i, 0).data().toString());
    return found;
  }
};

void TestJobListModel::rowsFollowTheQueue() {
  const QAbstractItemModelTester tester(&model(),
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
  QSignalSpy reset(&model(), &QAbstractItemModel::modelReset);
  m_b->fill(5);
  QCOMPARE(rows(), m_b->names());
  QCOMPARE(rows().size(), 5);
  m_b->queue().taskArray().at(2)->remove();
  QCOMPARE(rows(),
           QStringList({u"Film 0.mkv"_s, u"Film 1.mkv"_s, u"Film 3.mkv"_s, u"Film 4.mkv"_s}));
  m_b->queue().taskArray().at(0)->remove();
  m_b->queue().taskArray().at(2)->remove();
  QCOMPARE(rows(), QStringList({u"Film 1.mkv"_s, u"Film 3.mkv"_s}));
  m_b->queue().removeAll();
  QCOMPARE(model().rowCount(), 0);
  QCOMPARE(reset.size(), 0);
}

void TestJobListModel::dataOfARow() {
  m_b->fill(1);
  const QModelIndex index = model().index(0, 0);
  const ConversionJob &job = *m_b->queue().taskArray().first();
  QCOMPARE(index.data(JobListModel::NameRole), QVariant(u"Film 0.mkv"_s));
  QCOMPARE(index.data(JobListModel::StateRole), QVariant(0));
  QCOMPARE(index.data(JobListModel::StatusRole), QVariant(u"Status: Queued"_s));
  QCOMPARE(index.data(JobListModel::ProgressRole), QVariant(0.0));
  QCOMPARE(index.data(JobListModel::FastRole), QVariant(job.fastmode()));
  const QString spoken = index.data(Qt::AccessibleTextRole).toString();
  QVERIFY(spoken.contains(u"Film 0.mkv"_s) && spoken.contains(u"Status: Queued"_s));
  const QString tip = index.data(Qt::ToolTipRole).toString();
  QVERIFY(tip.contains(job.fileInfo().destinationURL.toLocalFile()));
}

void TestJobListModel::foreignIndexesHoldNothing() {
  m_b->fill(1);
  const auto &jobs = static_cast<const JobListModel &>(model());
  QVERIFY(!jobs.jobAt({}));
  QVERIFY(!jobs.data({}, Qt::DisplayRole).isValid());
  QCOMPARE(jobs.jobAt(jobs.index(0, 0)), m_b->queue().taskArray().first());
  QCOMPARE(jobs.rowCount(jobs.index(0, 0)), 0);
}

void TestJobListModel::jobsThatAreThereAlready() {
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  const JobListModel later(m_b->queue());
  QCOMPARE(later.rowCount(), 1);
  QSignalSpy changed(&later, &QAbstractItemModel::dataChanged);
  m_b->letGo();
  QTRY_COMPARE(m_b->count(JobStateFinished), 1);
  QVERIFY(!changed.isEmpty());
}

void TestJobListModel::oneChangeOfItsRowForEachUpdate() {
  QVERIFY(m_b->queueUp({u"1.mkv"_s, u"slow.mkv"_s, u"3.mkv"_s}));
  QTRY_COMPARE(m_b->queue().taskArray().at(1)->state(), JobStateConverting);
  ConversionJob &job = *m_b->queue().taskArray().at(1);
  QSignalSpy changed(&model(), &QAbstractItemModel::dataChanged);
  QSignalSpy updates(&job, &ConversionJob::stateInfoStringChanged);
  job.pause();
  QCOMPARE(updates.size(), 1);
  job.continue_();
  QCOMPARE(updates.size(), 2);
  QCOMPARE(changed.size(), 2);
  for (const auto &change : changed) {
    QCOMPARE(change.at(0).toModelIndex().row(), 1);
    QCOMPARE(change.at(1).toModelIndex().row(), 1);
  }
}

void TestJobListModel::goneJobsAreNotFollowed() {
  m_b->fill(2);
  QPointer<ConversionJob> job = m_b->queue().taskArray().at(0);
  QSignalSpy changed(&model(), &QAbstractItemModel::dataChanged);
  job->remove();
  QVERIFY(job);
  Q_EMIT job->stateInfoStringChanged();
  QCOMPARE(changed.size(), 0);
  QTRY_VERIFY(!job);
}

void TestJobListModel::tenThousandJobs() {
  m_b->fill(10'000);
  const JobRows list(*m_b);
  QCOMPARE(model().rowCount(), 10'000);
  list.view().scrollToBottom();
  QVERIFY(list.view().viewport()->rect().contains(list.view().visualRect(list.index(9'999))));
  list.view().scrollTo(list.index(5'000), QAbstractItemView::PositionAtTop);
  QCOMPARE(list.view().indexAt(QPoint(20, 5)).row(), 5'000);
  list.clickRemove(5'000);
  QCOMPARE(model().rowCount(), 9'999);
  QCOMPARE(list.index(5'000).data().toString(), u"Film 5001.mkv"_s);
  list.view().selectAll();
  QTRY_VERIFY(m_b->find<QAction>(u"jobRemoveAction"_s)->isEnabled());
  QVERIFY(m_b->trigger(u"jobRemoveAction"_s));
  QCOMPARE(model().rowCount(), 0);
}

namespace {

// Gathers what is painted of a widget.
class PaintedRegion final : public QObject {
 public:
  explicit PaintedRegion(QWidget &widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent *>(event)->region();
    return false;
  }
  QRegion region;
};

}  // namespace

void TestJobListModel::updateRepaintsItsRowOnly() {
  m_b->fill(4);
  const JobRows list(*m_b);
  QVERIFY(list.view().isVisible());
  QTRY_VERIFY(list.view().viewport()->height() >
              3 * list.view().visualRect(list.index(0)).height());
  QCoreApplication::processEvents();
  PaintedRegion painted(*list.view().viewport());
  Q_EMIT m_b->queue().taskArray().at(1)->stateInfoStringChanged();
  QTRY_VERIFY(!painted.region.isEmpty());
  QCOMPARE(painted.region.boundingRect(), list.view().visualRect(list.index(1)));
}

void TestJobListModel::emptyWindowTellsWhatToDo() {
  const auto visible = [this](const QString &name) {
    return m_b->find<QWidget>(name)->isVisible();
  };
  QVERIFY(visible(u"helpImageView"_s));
  QVERIFY(visible(u"helpLabel"_s));
  QVERIFY(!m_b->find<QLabel>(u"helpLabel"_s)->text().isEmpty());
  QVERIFY(!visible(u"jobList"_s));
  m_b->fill(1);
  QVERIFY(!visible(u"helpImageView"_s));
  QVERIFY(visible(u"jobList"_s));
  m_b->queue().removeAll();
  QVERIFY(visible(u"helpImageView"_s));
}

int main(int argc, char **argv) {
  return runWindowTest<TestJobListModel>(argc, argv);
}
#include "tst_joblistmodel.moc"
