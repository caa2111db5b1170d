#pragma once

#include <QHash>
#include <QMap>
#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>

#include "Probe.h"

namespace decant {

// What arrives at intake, sorted: movies in the given order, subtitle files by their path without
// extension; everything else.
struct SortedFiles {
  QStringList movies;
  QMap<QString, QString> subtitles;  // path without extension → path, the last of one stem wins
  QStringList others;
};

// Accepted movie extensions, lower case, in their documented order; subtitle extensions likewise.
[[nodiscard]] const QStringList &movieFileTypes();
[[nodiscard]] const QStringList &subtitleFileTypes();
// Sorts paths by their extension, and ".sub" files by their first bytes (an MPEG program stream is a
// picture subtitle and goes to `others`).
[[nodiscard]] SortedFiles sortFiles(const QStringList &paths);
// The subtitle file for a movie: the exact stem first, then "stem.", then any that begins with the stem,
// each by path. Null when there is none.
[[nodiscard]] QString pairedSubtitle(const QString &moviePath, const QMap<QString, QString> &subtitles);
// A path without its extension; the dot of a hidden file does not begin one.
[[nodiscard]] QString withoutExtension(const QString &path);

// One movie at a time: probes what waits, pairs its subtitle, picks its audio track and shows it until it
// is queued or skipped. Files that arrive meanwhile wait. Main thread; the probe runs on a worker.
class Intake final : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool isScanning READ isScanning NOTIFY changed)

 public:
  enum class State { Idle, Probing, Showing, Asking };

  explicit Intake(QStringList preferredLanguages, QObject *parent = nullptr);
  ~Intake() override;

  // The single entry for new files.
  void openFiles(const QStringList &paths);
  void addNextFile();
  // Leaves the current file and goes on with the next, or becomes idle.
  void cancelAdd();
  // The record was queued (or dropped): it is no longer shown.
  void clearFileInfo();
  void setAsking(bool asking);  // a save or open panel is up

  [[nodiscard]] State state() const { return m_state; }
  [[nodiscard]] bool isScanning() const { return m_state == State::Probing; }
  [[nodiscard]] bool isIdle() const { return m_state == State::Idle && m_importFiles.isEmpty(); }
  [[nodiscard]] const QStringList &importFiles() const { return m_importFiles; }
  [[nodiscard]] const std::optional<MKVFileInfo> &fileInfo() const { return m_fileInfo; }
  // The description to preselect; nothing without audio. Throws ostrak::RangeError for a language choice
  // out of range.
  [[nodiscard]] std::optional<int> bestLanguage() const;
  // The chosen track; bestLanguage until the user chooses another.
  [[nodiscard]] quint64 audioTrackIndex() const { return m_audioTrackIndex; }
  void setAudioTrackIndex(quint64 index);

 Q_SIGNALS:
  void changed();
  // A record is shown; with "AutoAdd" the controller queues it at once.
  void probed();
  // The file at `path` cannot be queued; the outcome's alerts say why (raised already).
  void refused(const QString &path, const decant::ProbeOutcome &outcome);
  // Nothing is probed, shown or waiting any more.
  void drained();

 private:
  void probeDone(const QString &path, const QString &subtitle, const ProbeRun &run);
  void setState(State state);

  QStringList m_preferredLanguages;
  QStringList m_importFiles;  // the last is taken first
  QMap<QString, QString> m_importSubtitleFiles;
  std::optional<MKVFileInfo> m_fileInfo;
  quint64 m_audioTrackIndex = 0;
  State m_state = State::Idle;
};

}  // namespace decant
