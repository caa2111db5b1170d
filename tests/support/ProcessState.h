#pragma once

#include <QtGlobal>

// The letter by which the kernel tells what a process does: 'T' when it is stopped, 'Z' when it has
// ended and nobody has asked how. A blank when there is no such process.
[[nodiscard]] char processState(qint64 pid);
