// Windows that the program does not show by itself in a test's time: `sidewindows BUNDLE KIND` with
// KIND "feedback", as a caller that forces it gets it, or "progress", a sheet over a window. It
// says on standard output what is opened and when the window closes, and runs until it is ended.
#include <QApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QMainWindow>
#include <cstdio>

#include "AlertDialog.h"
#include "Ostrak.h"
#include "Translations.h"
#include "UrlOpener.h"
#include "VKApplicationDelegate.h"
#include "VKRatingWindowController.h"
#include "Window.h"

using namespace Qt::StringLiterals;

namespace {

void say(const QString &text) {
  std::puts(qUtf8Printable(text));
  std::fflush(stdout);
}

class SayingOpener final : public UrlOpener {
 public:
  bool open(const QUrl &url) override {
    say(u"opened "_s + QString::fromLatin1(url.toEncoded()));
    return true;
  }
};

int showFeedback() {
  ostrak::VKApplicationDelegate delegate;
  ostrak::VKRatingWindowController controller;
  QObject::connect(&delegate, &ostrak::VKApplicationDelegate::feedbackRequested, &controller,
                   [&](const QString &text) {
                     controller.setIntroText(text);
                     controller.showWindow();
                   });
  controller.setCloseBlock([] { say(u"closing"_s); });
  delegate.increaseUsagesBy(1, 10, 20,
                            u"You have now used [APPNAME] more than [USAGES_ASKREVIEW] times, "
                            "successfully converting 148 MKVs to MP4s."_s,
                            true, true);
  return QApplication::exec();
}

int showProgress() {
  QMainWindow window;
  window.setWindowTitle(u"Decant"_s);
  window.resize(720, 580);
  window.setCentralWidget(new QLabel(u"Below the sheet"_s));
  window.show();
  ostrak::beginProgress(window, u"Preparing the Problem Report"_s);
  ostrak::setProgressMessage(window,
                             u"/media/archive/The Lighthouse at the End of the World "
                             "(Director's Cut) [1080p] and more.mkv"_s);
  return QApplication::exec();
}

}  // namespace

int main(int argc, char **argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (argc != 3) return 2;
  ostrak::OstrakSetup setup = ostrak::OstrakSetup::ofProcess();
  setup.bundlePath = QString::fromLocal8Bit(argv[1]);
  QFile info(setup.bundlePath + u"/resources/Info.json"_s);
  if (info.open(QIODevice::ReadOnly)) setup.info = QJsonDocument::fromJson(info.readAll()).object();
  SayingOpener opener;
  setup.workspace = &opener;
  const ostrak::Ostrak library(setup);
  ostrak::WindowAlertPresenter presenter;
  ostrak::setAlertPresenter(&presenter);
  const ostrak::Translations translations(setup.bundlePath + u"/resources/translations"_s,
                                          {qEnvironmentVariable("LANGUAGE")});
  const int status = qstrcmp(argv[2], "feedback") == 0 ? showFeedback() : showProgress();
  ostrak::setAlertPresenter(nullptr);
  return status;
}
