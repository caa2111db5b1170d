#pragma once

#include <QString>

namespace decant {

// Posts that the source of a finished run ends before the movie does, and writes it to the log. The
// alert is a plain one with the identifier "incompletesourcewarning".
void tellOfCutOffSource(const QString &source);

}  // namespace decant
