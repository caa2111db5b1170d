#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>

#include "AlertDialog.h"

// Plays the person at alerts that are shown as dialogs: `act` gets each dialog once it is up and
// has to close it. Ends with this object. Main thread.
class AlertPlayer final : public QObject {
 public:
  explicit AlertPlayer(std::function<void(ostrak::AlertDialog &)> act) : m_act(std::move(act)) {
    connect(&m_look, &QTimer::timeout, this, &AlertPlayer::look);
    m_look.start(0);
  }

  // How many dialogs came up.
  [[nodiscard]] int shown() const { return m_shown; }

  // Presses the button of this index of a dialog; a missing one closes the dialog.
  static void press(const ostrak::AlertDialog &dialog, int index) {
    auto *button = dialog.findChild<QAbstractButton *>(QStringLiteral("alertButton%1").arg(index));
    if (button)
      QTest::mouseClick(button, Qt::LeftButton);
    else
      QApplication::activeModalWidget()->close();
  }

 private:
  void look() {
    auto *dialog = qobject_cast<ostrak::AlertDialog *>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible() || dialog == m_last) return;
    m_last = dialog;
    connect(dialog, &QObject::destroyed, this, [this] { m_last = nullptr; });
    ++m_shown;
    m_act(*dialog);
  }

  std::function<void(ostrak::AlertDialog &)> m_act;
  QTimer m_look;
  const QObject *m_last = nullptr;
  int m_shown = 0;
};
