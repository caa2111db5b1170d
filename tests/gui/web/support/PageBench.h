#pragma once

#include <QDir>
#include <QFile>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

#include "BuildTree.h"
#include "PageServer.h"
#include "ScratchProgram.h"
#include "WholeFile.h"

// A scratch program with pages among its resources, the real libraries that come on demand unless
// told otherwise, and a web server.
class PageBench final {
 public:
  PageBench() {
    putPage(QStringLiteral("page.html"), "<title>local</title><h1>Local page</h1>");
    QDir(program.path(QStringLiteral("bundle"))).mkpath(QStringLiteral("lib"));
  }

  // Makes the library of this name, or another file in its place, the bundle's.
  void putLibrary(const QString &name, const QString &file = {}) const {
    const QString own = QStringLiteral("lib/lib") + name + QStringLiteral(".so");
    const QString source = file.isEmpty() ? buildtree::bundle(own) : file;
    const QString target = program.path(QString(QStringLiteral("bundle/") + own));
    QFile::remove(target);
    QVERIFY(QFile::link(source, target));
  }
  // A resource of the bundle.
  void putPage(const QString &name, const QByteArray &content) {
    QVERIFY(wholefile::write(program.library().resDir() + QLatin1Char('/') + name, content));
  }
  // Messages of the documentation views so far.
  [[nodiscard]] QStringList told() const {
    QStringList messages;
    for (const ScratchProgram::Logged &each : program.loggedWithLevel())
      if (each.level <= 4) messages.append(each.message);
    return messages;
  }

  ScratchProgram program;
  PageServer server;
};

// Puts a view into a window of its own and draws it.
template <typename View>
class ShownView {
 public:
  explicit ShownView(View *made = new View) : view(made) {
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(view);
    window.resize(420, 320);
  }
  [[nodiscard]] bool show() {
    window.show();
    return QTest::qWaitForWindowExposed(&window);
  }
  View *operator->() const { return view; }

  QWidget window;
  View *view;
};
