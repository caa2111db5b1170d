#include "ProgressLine.h"

#include <algorithm>
#include <cmath>

#include "Date.h"
#include "Printable.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

constexpr int widestBar = 30;
constexpr int narrowestBar = 8;
constexpr int narrowestName = 12;

QString bar(double percent, int width) {
  const int full = std::clamp(static_cast<int>(std::lround(percent * width / 100)), 0, width);
  const QString drawn = u'[' + QString(full, u'#') + QString(width - full, u'-') + u"]  "_s;
  return drawn;
}

}  // namespace

QString progressLine(const QString &name, std::optional<double> percent,
                     std::optional<double> etaSeconds, int columns) {
  QString end = percent ? ostrak::makeString(u"%3i%%"_s, static_cast<int>(*percent))
                        : worded(u"converting"_s);
  if (etaSeconds)
    end += u"  "_s + worded(u"%@ left"_s, ostrak::formattedTimeFromTimeInterval(*etaSeconds));
  const QString shown = printable(name);
  const int room = columns - cellWidth(end) - 2;
  const int brackets = 4;  // the bar's frame and the blanks after it
  int barWidth = std::min(widestBar, room - brackets - std::min(cellWidth(shown), narrowestName));
  if (!percent || barWidth < narrowestBar) barWidth = -brackets;
  const QString label = elided(shown, std::max(0, room - brackets - barWidth));
  const QString middle = barWidth > 0 ? bar(*percent, barWidth) : QString();
  const QString line = label + u"  "_s + middle + end;
  return elided(line, columns);
}

}  // namespace decant
