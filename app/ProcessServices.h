#pragma once

#include "Clock.h"
#include "Ostrak.h"
#include "RealSleepInhibitor.h"
#include "RealTrashCan.h"
#include "RealVolumes.h"

// The real services and facts that the window and the terminal are both made with. Needs the
// application object.
struct ProcessServices {
  ostrak::OstrakSetup setup = ostrak::OstrakSetup::ofProcess();
  RealSleepInhibitor sleepInhibitor{
      SleepServices::ofProcess(setup.info.value(QStringLiteral("CFBundleName")).toString(),
                               setup.info.value(QStringLiteral("CFBundleIdentifier")).toString())};
  RealTrashCan trashCan;
  RealVolumes volumes;
  SystemClock clock;
};
