#pragma once

#include <QByteArray>
#include <QStringList>

#include "ExitCode.h"
#include "Invocation.h"
#include "ProbeReport.h"

namespace decant {

class TextSink;

// Tells what each file holds, in order. Blocks while the tool runs.
class ProbeCommand final {
 public:
  ProbeCommand(TextSink &output, QByteArray workingFolder, QStringList preferredLanguages)
      : m_output(output),
        m_workingFolder(std::move(workingFolder)),
        m_preferredLanguages(std::move(preferredLanguages)) {}
  [[nodiscard]] ExitCode run(const Invocation &invocation);

 private:
  [[nodiscard]] ProbeReport probe(const QByteArray &name) const;

  TextSink &m_output;
  QByteArray m_workingFolder;
  QStringList m_preferredLanguages;
};

}  // namespace decant
