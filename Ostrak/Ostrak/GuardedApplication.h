#pragma once

#include <QEvent>
#include <QObject>
#include <exception>
#include <utility>

#include "Alerts.h"
#include "Exceptions.h"

namespace ostrak {

// An application object (Base: QCoreApplication or QApplication) whose event loop catches what a
// handler throws, tells the user once the handler is done, and goes on.
template <typename Base>
class GuardedApplication final : public Base {
 public:
  // `argc` and the texts of `argv` live as long as this object.
  GuardedApplication(int &argc, char **argv) : Base(argc, argv) {}

  bool notify(QObject *receiver, QEvent *event) override {
    try {
      return Base::notify(receiver, event);
    } catch (const Exception &exception) {
      postFeedback(exception.name(), exception.reason());
    } catch (const std::exception &exception) {
      postFeedback(QString::fromUtf8(exception.what()), QString::fromUtf8(exception.what()));
    }
    return true;
  }
};

}  // namespace ostrak
