#include "ProbeCommand.h"

#include "Exceptions.h"
#include "GivenFile.h"
#include "PreferredAudioTrack.h"
#include "Printable.h"
#include "Probe.h"
#include "Settings.h"
#include "TextSink.h"
#include "Url.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

ExitCode ProbeCommand::run(const Invocation &invocation) {
  ExitCode code = ExitCode::Done;
  bool first = true;
  for (const QByteArray &name : invocation.files) {
    const ProbeReport report = probe(name);
    if (!report.record) code = ExitCode::Failed;
    if (invocation.json) {
      m_output.write(probeJson(report));
    } else {
      const QString block = (first ? QString() : u"\n"_s) + probeText(report);
      m_output.write(block.toUtf8());
    }
    first = false;
  }
  return code;
}

ProbeReport ProbeCommand::probe(const QByteArray &name) const {
  const GivenFile file = givenFile(name, m_workingFolder);
  ProbeReport report{file.given, {}, {}, {}};
  if (file.refused()) {
    report.alerts.append(ostrak::apptitledAlert(file.refusal, {}));
    return report;
  }
  try {
    const ProbeRun run =
        probeFile(ostrak::fileURL(file.path), {.heAACConvert = settingBool("HEAACConvert")});
    report.record = run.outcome.record;
    for (const ProbeAlert &each : run.outcome.alerts)
      report.alerts.append(each.alert);
    if (report.record)
      report.bestAudioTrack =
          bestAudioTrack(report.record->audioTrackInformation, m_preferredLanguages,
                         static_cast<int>(settingInt("DefaultAudio")));
  } catch (const ostrak::Exception &exception) {
    report.record.reset();
    report.alerts.append(
        ostrak::apptitledAlert(worded(u"What the tool says about '%@' can't be understood: %@."_s,
                                      file.given, exception.reason()),
                               {}));
  }
  return report;
}

}  // namespace decant
