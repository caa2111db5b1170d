#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

namespace ostrak {
struct SupportFacts;
}

namespace decant {

// What a problem report tells about a failed run.
struct FailedRun {
  QString source;  // path
  QStringList arguments;
  QString jobOutput;  // whole
  QString recordDescription;
};

// The exactly escaped mail link, cut to what the system takes as one argument: output and
// preferences first. An empty address stands for the built-in one. Pure. Never localised: those who
// read it are the maker's.
[[nodiscard]] QUrl problemReportLink(const ostrak::SupportFacts &facts, const FailedRun &run,
                                     const QString &supportAddress);

}  // namespace decant
