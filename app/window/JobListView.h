#pragma once

#include <QListView>

#include "JobRowLayout.h"

namespace decant {

class JobDelegate;

// The job list: rows with buttons, multiple selection. It only tells what the user wants; the
// window does it.
class JobListView final : public QListView {
  Q_OBJECT

 public:
  explicit JobListView(QWidget *parent = nullptr);
  ~JobListView() override;

 Q_SIGNALS:
  void pauseContinueClicked(const QModelIndex &index);
  void arrowClicked(const QModelIndex &index);
  void removeClicked(const QModelIndex &index);

 protected:
  void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                   const QList<int> &roles) override;
  void mousePressEvent(QMouseEvent *event) override;
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void leaveEvent(QEvent *event) override;
  void focusInEvent(QFocusEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void changeEvent(QEvent *event) override;
  bool viewportEvent(QEvent *event) override;

 private:
  struct Spot {
    QPersistentModelIndex index;
    JobRowLayout::Part part = JobRowLayout::Part::None;
    bool operator==(const Spot &) const = default;
  };
  [[nodiscard]] Spot spotAt(const QPoint &position) const;
  void setHot(const Spot &spot);
  [[nodiscard]] bool selectForKeyboard();
  // Whether it was a button of a row.
  [[nodiscard]] bool pressButton(const QMouseEvent &event);

  JobDelegate *m_delegate;
  Spot m_hot;
  Spot m_pressed;
};

}  // namespace decant
