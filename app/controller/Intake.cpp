#include "Intake.h"

#include <QPointer>
#include <QSet>
#include <utility>

#include "Dispatch.h"
#include "Exceptions.h"
#include "Format.h"
#include "PreferredAudioTrack.h"
#include "Settings.h"
#include "Text.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

using ostrak::localized;

// Tells about an error that one file caused, once the running handler is done: the batch goes on.
void tellProblem(const QString &message, const ostrak::Exception &exception) {
  const QString details = exception.name() + u": "_s + exception.reason();
  ostrak::postFeedback(message, details);
}

ProbeRun brokenReport(const QString &path, const ostrak::Exception &exception) {
  const QString name = path.mid(path.lastIndexOf(u'/') + 1);
  const QString message = ostrak::makeString(localized(u"The file %@ could not be read."_s), name);
  tellProblem(message, exception);
  ProbeRun run;
  ostrak::Alert alert;
  alert.title = localized(u"Error"_s);
  alert.message = message + u' ' + exception.reason();
  alert.subject = path;
  alert.problemReport = true;
  run.outcome.alerts.append({alert, false});
  return run;
}

// On a worker: an error in one file never ends the batch.
ProbeRun probeGuarded(const Prober &prober, const QString &path, const ProbeSettings &settings) {
  try {
    const ProbeRun run = prober(ostrak::fileURL(path), settings);
    if (!settings.giveUp()) raiseAlerts(run);
    return run;
  } catch (const ostrak::Exception &exception) {
    if (settings.giveUp()) return {};
    return brokenReport(path, exception);
  }
}

}  // namespace

Intake::Intake(QStringList preferredLanguages, QObject *parent)
    : Intake(std::move(preferredLanguages), &probeFile, parent) {}

Intake::Intake(QStringList preferredLanguages, Prober prober, QObject *parent)
    : QObject(parent),
      m_preferredLanguages(std::move(preferredLanguages)),
      m_prober(std::move(prober)) {}

Intake::~Intake() {
  if (m_giveUp) *m_giveUp = true;
}

Intake::State Intake::state() const {
  if (m_probing) return State::Probing;
  if (m_asking) return State::Asking;
  return m_showing ? State::Showing : State::Idle;
}

// What the worker is given to read, and what it found out.
struct Intake::Reading {
  QString path;
  QMap<QString, QString> subtitles;
  QStringList untested;
  QSet<QString> texts;  // the untested ones that hold text
  QString subtitle;     // the paired one; null when there is none
  ProbeRun run;

  // Subtitle files may lie where a file takes long to open.
  void pair() {
    for (const QString &each : std::as_const(untested)) {
      if (!isTextSubtitle(each)) continue;
      texts.insert(each);
      subtitles.insert(stemOf(each), each);
    }
    subtitle = pairedSubtitle(path, subtitles);
  }
};

// A later file takes the place of an earlier one of its stem, and a ".sub" file that of the others
// that came with it, if it holds text.
void Intake::takeSubtitles(const SortedFiles &sorted) {
  m_importSubtitleFiles.insert(sorted.subtitles);
  m_untestedSubtitles.removeIf(
      [&sorted](const QString &each) { return sorted.subtitles.contains(stemOf(each)); });
  m_untestedSubtitles.append(sorted.untested);
}

void Intake::openFiles(const QStringList &paths) {
  const SortedFiles sorted = sortByName(paths);
  takeSubtitles(sorted);
  for (auto movie = sorted.movies.crbegin(); movie != sorted.movies.crend(); ++movie)
    m_importFiles.append(*movie);
  addNextFile();
}

void Intake::addNextFile() {
  if (state() != State::Idle || m_importFiles.isEmpty()) return;
  m_currentPath = m_importFiles.takeLast();
  Reading reading{m_currentPath, m_importSubtitleFiles, m_untestedSubtitles, {}, {}, {}};
  m_probing = true;
  m_skipping = false;
  Q_EMIT changed();
  m_giveUp = std::make_shared<std::atomic<bool>>(false);
  const ProbeSettings settings{.heAACConvert = settingBool("HEAACConvert"),
                               .giveUp = [giveUp = m_giveUp] { return giveUp->load(); }};
  ostrak::dispatch_async_back(
      [reading, settings, prober = m_prober, intake = QPointer<Intake>(this)]() mutable {
        reading.pair();
        reading.run = probeGuarded(prober, reading.path, settings);
        ostrak::dispatch_async_main([reading, intake] {
          if (intake) intake->probeDone(reading);
        });
      });
}

void Intake::probeDone(const Reading &read) {
  m_probing = false;
  // One that a later file has replaced meanwhile is not wanted any more.
  for (const QString &each : read.untested) {
    if (m_untestedSubtitles.removeOne(each) && read.texts.contains(each))
      m_importSubtitleFiles.insert(stemOf(each), each);
  }
  if (m_skipping) {
    leave();
    return;
  }
  if (read.run.outcome.record) {
    show(*read.run.outcome.record, read.subtitle);
    return;
  }
  Q_EMIT changed();
  Q_EMIT refused(read.path, read.run.outcome, read.run.toolMissing);
  // Who listens may have opened the next file already.
  if (state() == State::Idle) leave();
}

void Intake::show(MKVFileInfo record, const QString &subtitle) {
  if (!subtitle.isNull()) {
    record.subtitleFileURL = ostrak::fileURL(subtitle);
    record.informationString.replace(u")"_s, u"+1)"_s);
  }
  m_fileInfo = std::move(record);
  m_audioTrackIndex = 0;
  m_showing = true;
  try {
    m_audioTrackIndex = static_cast<quint64>(bestLanguage().value_or(0));
  } catch (const ostrak::Exception &exception) {
    tellProblem(localized(u"The preferred audio language could not be used."_s), exception);
  }
  Q_EMIT changed();
  Q_EMIT probed();
}

void Intake::cancelAdd() {
  if (m_probing) {
    m_skipping = true;
    *m_giveUp = true;
    return;
  }
  if (m_showing) leave();
}

// The only way out of a file: on to the next one, or to idleness.
void Intake::leave() {
  m_showing = false;
  m_skipping = false;
  m_currentPath = QString();
  Q_EMIT changed();
  addNextFile();
  if (isIdle()) Q_EMIT drained();
}

void Intake::clearFileInfo() {
  m_fileInfo.reset();
  Q_EMIT changed();
}

void Intake::setAsking(bool asking) {
  if (m_asking == asking) return;
  m_asking = asking;
  Q_EMIT changed();
  addNextFile();
  if (isIdle()) Q_EMIT drained();
}

std::optional<int> Intake::bestLanguage() const {
  if (!m_fileInfo) return {};
  return bestAudioTrack(m_fileInfo->audioTrackInformation, m_preferredLanguages,
                        static_cast<int>(settingInt("DefaultAudio")));
}

void Intake::setAudioTrackIndex(quint64 index) {
  const auto tracks = m_fileInfo ? m_fileInfo->audioTrackInformation.size() : 0;
  if (index >= static_cast<quint64>(tracks)) return;
  m_audioTrackIndex = index;
  Q_EMIT changed();
}

}  // namespace decant
