#pragma once

#include <QMap>
#include <QObject>
#include <QStringList>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>

#include "Probe.h"
#include "SortedFiles.h"

namespace decant {

// Reads one file on a worker thread; may throw an ostrak::Exception for a malformed report.
using Prober = std::function<ProbeRun(const QUrl &source, const ProbeSettings &settings)>;

// One movie at a time: probes what waits, pairs its subtitle, picks its audio track and shows it
// until it is queued or skipped. Files that arrive meanwhile wait. Main thread; the probe runs on a
// worker.
class Intake final : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool isScanning READ isScanning NOTIFY changed)

 public:
  enum class State { Idle, Probing, Showing, Asking };

  explicit Intake(QStringList preferredLanguages, QObject *parent = nullptr);
  Intake(QStringList preferredLanguages, Prober prober, QObject *parent = nullptr);
  ~Intake() override;

  // The single entry for new files.
  void openFiles(const QStringList &paths);
  // Probes the next waiting movie; does nothing unless intake is idle and one waits.
  void addNextFile();
  // Leaves the current file and goes on with the next, or becomes idle. One that is being probed is
  // left when its probe has been stopped, since only one probe runs at a time.
  void cancelAdd();
  // The record was queued (or dropped): it is no longer shown.
  void clearFileInfo();
  // A save or open panel is up.
  void setAsking(bool asking);

  [[nodiscard]] State state() const;
  [[nodiscard]] bool isScanning() const { return m_probing; }
  // Nothing is probed, shown, asked about or waiting.
  [[nodiscard]] bool isIdle() const { return state() == State::Idle && m_importFiles.isEmpty(); }
  // The file that is probed, shown or asked about; null when there is none.
  [[nodiscard]] const QString &currentPath() const { return m_currentPath; }
  // The last is taken first.
  [[nodiscard]] const QStringList &importFiles() const { return m_importFiles; }
  // A ".sub" file is among them once its content was looked at, which is done with the next movie.
  [[nodiscard]] const QMap<QString, QString> &importSubtitleFiles() const {
    return m_importSubtitleFiles;
  }
  [[nodiscard]] const std::optional<MKVFileInfo> &fileInfo() const { return m_fileInfo; }
  // The description to preselect; nothing without audio. Throws ostrak::RangeError for a language
  // choice out of range.
  [[nodiscard]] std::optional<int> bestLanguage() const;
  // The chosen track, an index into the record's descriptions; bestLanguage until the user chooses
  // another.
  [[nodiscard]] quint64 audioTrackIndex() const { return m_audioTrackIndex; }
  // An index that names no track of the shown record is ignored.
  void setAudioTrackIndex(quint64 index);

 Q_SIGNALS:
  // State, record, track or what waits.
  void changed();
  // A record is shown; with "AutoAdd" the controller queues it at once.
  void probed();
  // The file at `path` cannot be queued; the outcome's alerts say why (raised already, on their way
  // to the presenter). A report that broke the grammar has one alert that is a problem report.
  void refused(const QString &path, const decant::ProbeOutcome &outcome, bool toolMissing);
  // Nothing is probed, shown or waiting any more.
  void drained();

 private:
  struct Reading;
  void takeSubtitles(const SortedFiles &sorted);
  void probeDone(const Reading &read);
  void show(MKVFileInfo record, const QString &subtitle);
  void leave();

  QStringList m_preferredLanguages;
  Prober m_prober;
  QStringList m_importFiles;
  QString m_currentPath;
  QMap<QString, QString> m_importSubtitleFiles;
  QStringList m_untestedSubtitles;  // ".sub" files that nobody has looked into yet
  std::optional<MKVFileInfo> m_fileInfo;
  quint64 m_audioTrackIndex = 0;
  bool m_probing = false;
  std::shared_ptr<std::atomic<bool>> m_giveUp;  // read by the worker that probes
  bool m_skipping = false;                      // the file being probed is to be left
  bool m_showing = false;
  bool m_asking = false;
};

}  // namespace decant
