#pragma once

#include <QDir>
#include <QFileInfo>
#include <QList>
#include <QObject>
#include <QUrl>
#include <memory>

#include "DestinationFolders.h"
#include "DestinationRoad.h"
#include "Destinations.h"
#include "FakePanels.h"
#include "Sandbox.h"
#include "ScratchProgram.h"
#include "Settings.h"
#include "WholeFile.h"

// The base of tests of the road from an entry of the destination menu to the output's file, in a
// scratch folder and a sandbox, with a person of straw at the panels.
class RoadBench : public QObject {
 protected:
  void begin() {
    m_program = std::make_unique<ScratchProgram>();
    m_sandbox = std::make_unique<FakeSandbox>();
    m_panels = std::make_unique<FakePanels>();
    m_claimed = std::make_unique<decant::ClaimedNames>();
    m_answers.clear();
    decant::registerSettings();
    make(true);
  }
  void end() {
    m_road.reset();
    m_folders.reset();
    m_program.reset();
  }
  void make(bool sandboxed) {
    m_sandbox->active = sandboxed;
    m_road.reset();
    m_folders = std::make_unique<decant::DestinationFolders>(*m_sandbox);
    m_road = std::make_unique<decant::DestinationRoad>(*m_folders, *m_panels);
  }
  [[nodiscard]] QString file(const QString &name) const {
    QDir().mkpath(QFileInfo(m_program->path(name)).path());
    return wholefile::made(m_program->path(name));
  }
  [[nodiscard]] QString folder(const QString &name) const {
    QDir(m_program->root()).mkpath(name);
    m_sandbox->granted.insert(m_program->path(name));
    return m_program->path(name);
  }
  void choose(int index, const QString &source, const QString &subtitle = {}) {
    decant::MKVFileInfo record;
    record.fileURL = QUrl::fromLocalFile(source);
    record.fileName = QFileInfo(source).fileName();
    if (!subtitle.isEmpty()) record.subtitleFileURL = QUrl::fromLocalFile(subtitle);
    m_road->setMenuIndex(index);
    m_road->choose(record, *m_claimed, [this](const auto &answer) { m_answers.append(answer); });
  }
  [[nodiscard]] QString chosen() const {
    return m_answers.size() == 1 && m_answers.first() ? m_answers.first()->url.toLocalFile()
                                                      : QString();
  }
  [[nodiscard]] bool choseNothing() const {
    return m_answers.size() == 1 && !m_answers.first().has_value();
  }
  [[nodiscard]] const QList<ostrak::Alert> &told() const {
    return m_program->presenter().presented;
  }

  std::unique_ptr<ScratchProgram> m_program;
  std::unique_ptr<FakeSandbox> m_sandbox;
  std::unique_ptr<FakePanels> m_panels;
  std::unique_ptr<decant::ClaimedNames> m_claimed;
  std::unique_ptr<decant::DestinationFolders> m_folders;
  std::unique_ptr<decant::DestinationRoad> m_road;
  QList<std::optional<decant::Destination>> m_answers;
};
