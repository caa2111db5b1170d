#pragma once

#include "FileRevealer.h"
#include "KeyboardModifiers.h"
#include "Notifier.h"
#include "Sandbox.h"
#include "UrlOpener.h"

namespace decant {

// What only a desktop offers, as the terminal has it: not at all.
struct NullServices {
  NullNotifier notifier;
  NullFileRevealer revealer;
  NullUrlOpener urlOpener;
  NullKeyboardModifiers keyboard;
  NullSandbox sandbox;
};

}  // namespace decant
