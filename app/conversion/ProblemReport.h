#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace decant {

// What a problem report about a failed conversion carries.
struct ProblemReportFacts {
  QString supportAddress;  // empty: the built-in one
  QString appName;
  QString appVersion;
  QString commandLine;
  QString jobOutput;  // whole
  QString recordDescription;
  QString machineType;
  QString systemVersion;
  QByteArray preferences;  // the settings file's bytes
};

// The exactly escaped mail link, cut to what the system takes as one argument: output and
// preferences first. Pure. Never localised: those who read it are the maker's.
[[nodiscard]] QUrl problemReportLink(const ProblemReportFacts &facts);

}  // namespace decant
