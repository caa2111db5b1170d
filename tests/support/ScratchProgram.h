#pragma once

#include <QJsonValue>
#include <QMutex>
#include <QTemporaryDir>
#include <memory>

#include "BuildTree.h"
#include "KeyboardModifiers.h"
#include "Ostrak.h"
#include "RecordingPresenter.h"
#include "UrlOpener.h"

// A whole program in a temporary folder: bundle, settings file, support folder and home; its
// presenter is installed as long as it lives.
//
//   bundle/resources/ffmpeg   a link to the tool
//   bundle/resources/Info.json
//   config/org.decant.Decant.conf   data/Decant   home/Desktop   tmp   crashes
class ScratchProgram final {
 public:
  explicit ScratchProgram(const QString &tool = buildtree::scriptedTool());
  ~ScratchProgram();

  [[nodiscard]] QString root() const;
  [[nodiscard]] QString path(const QString &relative) const;  // below root
  [[nodiscard]] QString toolPath() const;
  // Puts another tool in the place of the bundle's; an empty path takes it away.
  void setTool(const QString &tool) const;
  // Changes the bundle's information, null removes the key; heard by `restart`.
  void setInfo(const QString &key, const QJsonValue &value);

  [[nodiscard]] ostrak::Ostrak &library() { return *m_library; }
  [[nodiscard]] RecordingPresenter &presenter() { return m_presenter; }
  [[nodiscard]] RecordingUrlOpener &opener() { return m_opener; }
  [[nodiscard]] FakeKeyboardModifiers &keyboard() { return m_keyboard; }
  // Messages that went to the system log, oldest first; with level for those that ask.
  struct Logged {
    int level;
    QString message;
  };
  [[nodiscard]] QList<Logged> loggedWithLevel() const;
  [[nodiscard]] QStringList logged() const;

  // Throws the singleton away and makes a new one on the same folders.
  void restart(
      ostrak::UserDefaults::Persistence persistence = ostrak::UserDefaults::Persistence::Stored);

 private:
  void writeInfo() const;

  QTemporaryDir m_folder;
  QJsonObject m_info;
  RecordingPresenter m_presenter;
  RecordingUrlOpener m_opener;
  FakeKeyboardModifiers m_keyboard;
  mutable QMutex m_logMutex;
  QList<Logged> m_logged;
  std::unique_ptr<ostrak::Ostrak> m_library;
};
