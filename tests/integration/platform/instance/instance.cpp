// One start of a program that wants to be the only one: ADDRESS NAME PATIENCE [PATH…]
//
// The first prints "first", waits for a line ("go" lets it work; until then it is still starting)
// and prints "going" and what arrives: "open PATH | PATH" or "activate", with " token TOKEN"
// behind. Further lines: "release", "claim", "end". A later start prints "second", hands its paths
// over and ends with 0, or 1 where nobody took them.
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <iostream>
#include <string>

#include "RealSingleInstance.h"

using namespace Qt::StringLiterals;

namespace {

void say(const QString &line) {
  std::cout << line.toStdString() << std::endl;
}

QString nextLine() {
  std::string line;
  if (!std::getline(std::cin, line)) return {};
  return QString::fromStdString(line);
}

void tell(const RealSingleInstance &instance, const QStringList &paths) {
  const QString token = instance.activationToken();
  say((paths.isEmpty() ? u"activate"_s : QString(u"open "_s + paths.join(u" | "_s))) +
      (token.isNull() ? QString() : QString(u" token "_s + token)));
}

void obey(RealSingleInstance &instance, const QString &line) {
  if (line == u"release"_s) {
    instance.release();
    say(u"released"_s);
  } else if (line == u"claim"_s) {
    say(instance.claim() ? u"claimed"_s : u"taken"_s);
  } else {
    QCoreApplication::quit();
  }
}

}  // namespace

int main(int argc, char **argv) {
  const QVariantMap platformData = RealSingleInstance::platformDataOfProcess();
  const QCoreApplication application(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  RealSingleInstance instance(QDBusConnection::connectToBus(words.at(1), u"instance"_s),
                              words.at(2),
                              {platformData, std::chrono::milliseconds(words.at(3).toInt())});
  if (!instance.claim()) {
    say(u"second"_s);
    return instance.handOver(words.mid(4)) ? 0 : 1;
  }
  say(u"first"_s);
  if (nextLine() != u"go"_s) return 2;
  say(u"going"_s);
  instance.setHandler([&instance](const QStringList &paths) { tell(instance, paths); });
  QSocketNotifier commands(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&commands, &QSocketNotifier::activated, &instance,
                   [&instance] { obey(instance, nextLine()); });
  return QCoreApplication::exec();
}
