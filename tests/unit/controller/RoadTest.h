#pragma once

#include <QList>
#include <QString>
#include <memory>
#include <optional>

#include "DestinationFolders.h"
#include "DestinationRoad.h"
#include "Destinations.h"
#include "FakePanels.h"
#include "ProgramTest.h"
#include "Sandbox.h"

// A test class whose functions each get the road from an entry of the destination menu to the
// output's file, in a sandbox, with a person of straw at the panels.
class RoadTest : public ProgramTest {
  Q_OBJECT

 protected Q_SLOTS:
  void init();
  void cleanup();

 protected:
  // Another road, with the folders that are remembered.
  void make(bool sandboxed);
  // A file or a folder of the program, made with what is missing above it; its path. The sandbox
  // has granted the folder.
  [[nodiscard]] QString file(const QString &name) const;
  [[nodiscard]] QString folder(const QString &name) const;
  // Takes an entry of the menu for a movie; what comes of it is among the answers.
  void choose(int index, const QString &source, const QString &subtitle = {});
  // The file of the only answer, null when there is none.
  [[nodiscard]] QString chosen() const;
  [[nodiscard]] bool choseNothing() const;
  [[nodiscard]] const QList<ostrak::Alert> &told() const;

  std::unique_ptr<FakeSandbox> m_sandbox;
  std::unique_ptr<FakePanels> m_panels;
  std::unique_ptr<decant::ClaimedNames> m_claimed;
  std::unique_ptr<decant::DestinationFolders> m_folders;
  std::unique_ptr<decant::DestinationRoad> m_road;
  QList<std::optional<decant::Destination>> m_answers;
};
