#include "RoadTest.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include "WholeFile.h"

using namespace decant;

void RoadTest::init() {
  ProgramTest::init();
  m_sandbox = std::make_unique<FakeSandbox>();
  m_panels = std::make_unique<FakePanels>();
  m_claimed = std::make_unique<ClaimedNames>();
  m_answers.clear();
  make(true);
}

void RoadTest::cleanup() {
  m_road.reset();
  m_folders.reset();
  ProgramTest::cleanup();
}

void RoadTest::make(bool sandboxed) {
  m_sandbox->active = sandboxed;
  m_road.reset();
  m_folders = std::make_unique<DestinationFolders>(*m_sandbox);
  m_road = std::make_unique<DestinationRoad>(*m_folders, *m_panels);
}

QString RoadTest::file(const QString &name) const {
  QDir().mkpath(QFileInfo(m_program->path(name)).path());
  return wholefile::made(m_program->path(name));
}

QString RoadTest::folder(const QString &name) const {
  QDir(m_program->root()).mkpath(name);
  m_sandbox->granted.insert(m_program->path(name));
  return m_program->path(name);
}

void RoadTest::choose(int index, const QString &source, const QString &subtitle) {
  MKVFileInfo record;
  record.fileURL = QUrl::fromLocalFile(source);
  record.fileName = QFileInfo(source).fileName();
  if (!subtitle.isEmpty()) record.subtitleFileURL = QUrl::fromLocalFile(subtitle);
  m_road->setMenuIndex(index);
  m_road->choose(record, *m_claimed, [this](const auto &answer) { m_answers.append(answer); });
}

QString RoadTest::chosen() const {
  return m_answers.size() == 1 && m_answers.first() ? m_answers.first()->url.toLocalFile()
                                                    : QString();
}

bool RoadTest::choseNothing() const {
  return m_answers.size() == 1 && !m_answers.first().has_value();
}

const QList<ostrak::Alert> &RoadTest::told() const {
  return m_program->presenter().presented;
}
