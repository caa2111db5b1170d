#pragma once

#include <QObject>
#include <QTimer>

class QAction;
class QMainWindow;
class QModelIndex;

namespace decant {

class AppDelegate;
class ConversionJob;
class JobListModel;
class JobListView;

// What can be done with the jobs of the list: by their buttons, by the context menu, by the menu
// bar and by keys, on one or on all that are selected. Main thread.
class JobActions final : public QObject {
  Q_OBJECT

 public:
  // Takes its actions from `window`; everything outlives this.
  JobActions(QMainWindow &window, JobListView &list, JobListModel &model, AppDelegate &app,
             QObject *parent);
  ~JobActions() override;

  // Enables what the selection allows. By itself this follows the selection: at once a short one,
  // a long one in the next turn of the event loop.
  void update();

 private:
  // In list order.
  [[nodiscard]] QList<ConversionJob *> selected() const;
  void selectionChanged();
  void pauseOrContinue(ConversionJob &job);
  void pauseOrContinueSelected();
  void removeSelected();
  void showMenu(const QPoint &position);
  void onSelected(void (ConversionJob::*what)());

  JobListView &m_list;
  JobListModel &m_model;
  AppDelegate &m_app;
  QAction *m_pause;
  QAction *m_reveal;
  QAction *m_revealSource;
  QAction *m_remove;
  QTimer m_later;
};

}  // namespace decant
