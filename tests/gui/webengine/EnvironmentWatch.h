#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QProcessEnvironment>

// Looks at the process's environment with every event, those included that a page's widgets get
// while they are made.
class EnvironmentWatch final : public QObject {
 public:
  EnvironmentWatch() { QCoreApplication::instance()->installEventFilter(this); }

  [[nodiscard]] int looks() const { return m_looks; }
  // How often it was another than at the beginning.
  [[nodiscard]] int changes() const { return m_changes; }

  bool eventFilter(QObject *, QEvent *) override {
    ++m_looks;
    if (QProcessEnvironment::systemEnvironment() != m_before) ++m_changes;
    return false;
  }

 private:
  const QProcessEnvironment m_before = QProcessEnvironment::systemEnvironment();
  int m_looks = 0;
  int m_changes = 0;
};
