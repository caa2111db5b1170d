#include "IntakeFeeder.h"

#include "Ostrak.h"
#include "Printable.h"
#include "Url.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

QString lacksTrack(const MKVFileInfo &record, int wanted) {
  QStringList tracks;
  for (const AudioTrackDescription &track : record.audioTrackInformation)
    tracks.append(printable(track.text));
  const QString name = printable(record.fileName);
  if (tracks.isEmpty()) return worded(u"'%@' has no audio track."_s, name);
  return worded(u"'%@' has no audio track #%i; it has %@."_s, name, wanted, tracks.join(u", "_s));
}

}  // namespace

IntakeFeeder::IntakeFeeder(Intake &intake, ConvertInput input, std::optional<int> audioTrack,
                           QObject *parent)
    : QObject(parent), m_intake(intake), m_input(std::move(input)), m_audioTrack(audioTrack) {
  connect(&m_intake, &Intake::probed, this, &IntakeFeeder::probed);
  connect(&m_intake, &Intake::refused, this,
          [this](const QString &path, const ProbeOutcome &outcome, bool toolMissing) {
            Q_EMIT refused(path, failureOfOutcome(outcome, toolMissing));
          });
}

void IntakeFeeder::next() {
  if (m_stopped || m_exhausted) return;
  // Subtitle files are known before the first movie.
  if (m_next == 0 && !m_input.subtitles.isEmpty()) m_intake.openFiles(m_input.subtitles);
  if (m_next >= m_input.files.size()) {
    m_current = QString();
    m_exhausted = true;
    Q_EMIT exhausted();
    return;
  }
  const InputFile file = m_input.files.at(m_next++);
  m_current = file.source;
  if (file.failure)
    Q_EMIT refused(file.source, *file.failure);
  else
    m_intake.openFiles({file.source});
}

void IntakeFeeder::probed() {
  const QString source = m_current;
  if (m_stopped) return;
  if (chooseTrack()) {
    Q_EMIT shown(source);
    return;
  }
  const FileFailure failure = refusedFailure(lacksTrack(*m_intake.fileInfo(), *m_audioTrack));
  m_intake.clearFileInfo();
  m_intake.cancelAdd();
  Q_EMIT refused(source, failure);
}

bool IntakeFeeder::chooseTrack() {
  if (!m_audioTrack) return true;
  const QList<AudioTrackDescription> &tracks = m_intake.fileInfo()->audioTrackInformation;
  for (qsizetype i = 0; i < tracks.size(); ++i) {
    if (trackNumber(tracks.at(i)) != *m_audioTrack) continue;
    m_intake.setAudioTrackIndex(static_cast<quint64>(i));
    return true;
  }
  return false;
}

FileFailure failureOfOutcome(const ProbeOutcome &outcome, bool toolMissing) {
  if (outcome.alerts.isEmpty()) return refusedFailure(worded(u"The file can't be read."_s));
  const ostrak::Alert &why = outcome.alerts.last().alert;
  return {toolMissing ? u"toolMissing"_s : u"refused"_s, why.title, why.message};
}

Prober proberWithSubtitle(const QString &subtitle) {
  if (subtitle.isNull()) return &probeFile;
  return [subtitle](const QUrl &source, const ProbeSettings &settings) {
    ProbeRun run = probeFile(source, settings);
    if (run.outcome.record) {
      run.outcome.record->subtitleFileURL = ostrak::fileURL(subtitle);
      run.outcome.record->informationString.replace(u")"_s, u"+1)"_s);
    }
    return run;
  };
}

}  // namespace decant
