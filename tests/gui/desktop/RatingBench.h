#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QTest>
#include <memory>

#include "BuildTree.h"
#include "ScratchProgram.h"
#include "VKRatingWindowController.h"

// The feedback window in a scratch program, on recorded alerts and links. The window is made by
// `show`, so that a test can change the bundle's information before.
class RatingBench final {
 public:
  RatingBench() {
    for (const QString &part : {QStringLiteral("ui"), QStringLiteral("images")})
      (void)QFile::link(buildtree::source(QStringLiteral("app/resources/")) + part,
                        program.library().resDir() + QLatin1Char('/') + part);
  }

  // Shows the window; each close counts.
  [[nodiscard]] bool show() {
    program.restart();
    controller = std::make_unique<ostrak::VKRatingWindowController>();
    controller->setCloseBlock([this] { ++closes; });
    controller->showWindow();
    return controller->window() && QTest::qWaitForWindowActive(controller->window());
  }

  template <typename Widget = QWidget>
  [[nodiscard]] Widget *find(const char *name) const {
    return controller->window()->findChild<Widget *>(QString::fromLatin1(name));
  }
  [[nodiscard]] bool shows(const char *name) const {
    const auto *widget = find(name);
    return widget && widget->isVisible();
  }
  [[nodiscard]] bool isOpen() const { return controller->window()->isVisible(); }
  // The pane that is seen; null unless it is one alone.
  [[nodiscard]] const char *pane() const {
    const char *seen = nullptr;
    for (const char *each : {"initialView", "happyView", "angryView"}) {
      if (!shows(each)) continue;
      if (seen) return nullptr;
      seen = each;
    }
    return seen;
  }
  // A press where the button is, whether it is enabled or not.
  void click(const char *name) const { QTest::mouseClick(find(name), Qt::LeftButton); }

  ScratchProgram program;
  std::unique_ptr<ostrak::VKRatingWindowController> controller;
  int closes = 0;
};
