#pragma once

#include <QByteArray>
#include <QStringList>

#include "Ostrak.h"

class Clock;
class SleepInhibitor;
class TrashCan;
class Volumes;

namespace decant {

class TextSink;

// What the command line is made with; all references outlive it. What only a desktop has
// (notifications, a file manager, mail) is not here: the terminal does without.
struct CommandServices {
  ostrak::OstrakSetup setup;  // its persistence is decided by the command
  SleepInhibitor &sleepInhibitor;
  TrashCan &trashCan;
  Volumes &volumes;
  Clock &clock;
  TextSink &output;
  TextSink &error;
  QByteArray workingFolder;        // absolute; empty when it is gone
  QStringList preferredLanguages;  // three-letter codes, most preferred first
  bool hasDisplay = false;
};

}  // namespace decant
