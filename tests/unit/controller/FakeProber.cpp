#include "FakeProber.h"

#include <QFileInfo>
#include <QMutexLocker>

#include "Exceptions.h"

using namespace Qt::StringLiterals;

FakeProber::FakeProber() : m_state(std::make_shared<State>()) {}

decant::Prober FakeProber::function() {
  return [this, state = m_state](const QUrl &source, const decant::ProbeSettings &settings) {
    {
      QMutexLocker lock(&state->mutex);
      state->asked.append(source.toLocalFile());
      state->heAACConvert.append(settings.heAACConvert);
      state->mostAtOnce = std::max(state->mostAtOnce, ++state->running);
      while (state->held && state->goAheads == 0)
        state->changed.wait(&state->mutex);
      if (state->held) --state->goAheads;
    }
    const auto leave = [state](void *) {
      const QMutexLocker lock(&state->mutex);
      --state->running;
    };
    const std::unique_ptr<void, decltype(leave)> running(this, leave);
    return probe(source.toLocalFile(), settings);
  };
}

decant::ProbeRun FakeProber::probe(const QString &path, const decant::ProbeSettings &) {
  if (breakOn.contains(path)) throw ostrak::RangeError(u"no third word"_s);
  decant::ProbeRun run;
  if (refuse.contains(path)) {
    ostrak::Alert alert;
    alert.title = u"Decant"_s;
    alert.message = u"Refused "_s + path;
    run.outcome.alerts.append({alert, false});
    run.toolMissing = missTool.contains(path);
    return run;
  }
  decant::MKVFileInfo record;
  record.fileURL = QUrl::fromLocalFile(path);
  record.fileName = QFileInfo(path).fileName();
  record.videoTrackID = 0;
  record.runtimeSeconds = 100;
  record.informationString = u"Audiotracks: 2 (3) x (0)"_s;
  for (const QString &track : tracks)
    record.audioTrackInformation.append({track, 0});
  run.outcome.record = record;
  return run;
}

void FakeProber::hold() {
  const QMutexLocker lock(&m_state->mutex);
  m_state->held = true;
}

void FakeProber::finishOne() {
  const QMutexLocker lock(&m_state->mutex);
  ++m_state->goAheads;
  m_state->changed.wakeAll();
}

void FakeProber::finishAll() {
  const QMutexLocker lock(&m_state->mutex);
  m_state->held = false;
  m_state->changed.wakeAll();
}

QStringList FakeProber::asked() const {
  const QMutexLocker lock(&m_state->mutex);
  return m_state->asked;
}

QList<bool> FakeProber::heAACConvert() const {
  const QMutexLocker lock(&m_state->mutex);
  return m_state->heAACConvert;
}

int FakeProber::running() const {
  const QMutexLocker lock(&m_state->mutex);
  return m_state->running;
}

int FakeProber::mostAtOnce() const {
  const QMutexLocker lock(&m_state->mutex);
  return m_state->mostAtOnce;
}
