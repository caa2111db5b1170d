#pragma once

#include <QStringList>

#include "Panels.h"

// Plays the person at the panels: remembers what was asked and holds each answer back until `reply`
// gives it.
class FakePanels final : public decant::Panels {
 public:
  struct Asked {
    QString what;  // "target", "folder" or "files"
    QString folder;
    QString name;
    QString extension;
    Over over = Over::MainWindow;
  };

  void askForTarget(const QString &folder, const QString &name, const QString &extension,
                    PathAnswer answer) override {
    asked.append({QStringLiteral("target"), folder, name, extension});
    m_answers.append(std::move(answer));
  }
  void askForFolder(Over over, PathAnswer answer) override {
    asked.append({QStringLiteral("folder"), {}, {}, {}, over});
    m_answers.append(std::move(answer));
  }
  void askForFiles(const QStringList &,
                   std::function<void(const QStringList &paths)> answer) override {
    asked.append({QStringLiteral("files"), {}, {}, {}});
    m_answers.append([answer = std::move(answer)](const std::optional<QString> &path) {
      answer(path ? QStringList(*path) : QStringList());
    });
  }

  // Answers the oldest open panel; false when none is open.
  bool reply(const std::optional<QString> &path) {
    if (m_answers.isEmpty()) return false;
    m_answers.takeFirst()(path);
    return true;
  }

  QList<Asked> asked;

 private:
  QList<PathAnswer> m_answers;
};
