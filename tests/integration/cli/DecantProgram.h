#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>

#include "Scenario.h"

// What one run of the program left.
struct DecantOutcome {
  int status = -1;  // -1: it crashed or did not end
  QByteArray output;
  QByteArray error;

  // Standard output as JSON objects, one a line.
  [[nodiscard]] QList<QJsonObject> objects() const;
  // Those whose "event" is this.
  [[nodiscard]] QList<QJsonObject> events(const QString &event) const;
  // The texts of this key in those events.
  [[nodiscard]] QStringList texts(const QString &event, QLatin1StringView key) const;
  // "queued 1", "failed refused", "summary 1 2", … in order; without progress.
  [[nodiscard]] QStringList story() const;
};

// A copy of the built program with a scripted ffmpeg, a home and a working folder of its own. No
// desktop is there: neither a display nor a bus.
class DecantProgram final {
 public:
  DecantProgram();
  ~DecantProgram();
  DecantProgram(const DecantProgram &) = delete;
  DecantProgram &operator=(const DecantProgram &) = delete;

  // Below the working folder.
  [[nodiscard]] QString path(const QString &relative) const;
  [[nodiscard]] QString program() const;
  [[nodiscard]] QString tool() const;
  [[nodiscard]] QString settingsFile() const;
  [[nodiscard]] QString supportFolder() const;
  [[nodiscard]] QString tempFolder() const;
  [[nodiscard]] Scenario scenario() const;
  // What the tool was called with by the conversion of this number.
  [[nodiscard]] QStringList conversion(qsizetype index = 0) const;
  // Puts something else in the place of the tool; null takes it away.
  void setTool(const QString &path) const;

  // Makes a file in the working folder, with its folders; returns its path.
  QString file(const QString &relative, const QByteArray &bytes = "movie") const;
  // Names of the files below the working folder, sorted; folders end in "/".
  [[nodiscard]] QStringList files() const;
  [[nodiscard]] QByteArray settings() const;

  QProcessEnvironment &environment() { return m_environment; }
  [[nodiscard]] const QProcessEnvironment &environment() const { return m_environment; }

  [[nodiscard]] DecantOutcome run(const QStringList &arguments) const;
  // A script of the shell; "$decant" is the program.
  [[nodiscard]] DecantOutcome shell(const QByteArray &script) const;
  // The same as a user without rights, where this one is root.
  [[nodiscard]] DecantOutcome shellAsNobody(const QByteArray &script) const;
  [[nodiscard]] std::unique_ptr<QProcess> start(const QStringList &arguments) const;
  // Waits for its end.
  [[nodiscard]] static DecantOutcome end(QProcess &process);

 private:
  [[nodiscard]] std::unique_ptr<QProcess> launch(const QString &executable,
                                                 const QStringList &arguments) const;
  QTemporaryDir m_folder;
  QProcessEnvironment m_environment;
};
