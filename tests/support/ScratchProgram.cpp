#include "ScratchProgram.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include "WholeFile.h"

using namespace Qt::StringLiterals;

ScratchProgram::ScratchProgram(const QString &tool)
    : m_info{{u"CFBundleName"_s, u"Decant"_s},
             {u"CFBundleShortVersionString"_s, u"1.2.3"_s},
             {u"CFBundleVersion"_s, u"45"_s},
             {u"CFBundleIdentifier"_s, u"org.decant.Decant"_s},
             {u"FeedbackEmail"_s, u"support@decant.example"_s}} {
  if (!m_folder.isValid()) qFatal("no temporary folder for the scratch program");
  for (const auto folder :
       {"bundle/resources"_L1, "config"_L1, "data"_L1, "home/Desktop"_L1, "tmp"_L1, "crashes"_L1}) {
    QDir(root()).mkpath(folder);
  }
  setTool(tool);
  writeInfo();
  restart();
  ostrak::setAlertPresenter(&m_presenter);
}

ScratchProgram::~ScratchProgram() {
  ostrak::setAlertPresenter(nullptr);
}

QString ScratchProgram::root() const {
  return m_folder.path();
}

QString ScratchProgram::path(const QString &relative) const {
  return m_folder.filePath(relative);
}

QString ScratchProgram::toolPath() const {
  return path(u"bundle/resources/ffmpeg"_s);
}

void ScratchProgram::setTool(const QString &tool) const {
  QFile::remove(toolPath());
  if (!tool.isEmpty()) QFile::link(tool, toolPath());
}

void ScratchProgram::setInfo(const QString &key, const QJsonValue &value) {
  if (value.isNull()) {
    m_info.remove(key);
  } else {
    m_info.insert(key, value);
  }
  writeInfo();
}

void ScratchProgram::writeInfo() const {
  if (!wholefile::write(path(u"bundle/resources/Info.json"_s), QJsonDocument(m_info).toJson()))
    qFatal("the scratch program's Info.json cannot be written");
}

QList<ScratchProgram::Logged> ScratchProgram::loggedWithLevel() const {
  const QMutexLocker locker(&m_logMutex);
  return m_logged;
}

QStringList ScratchProgram::logged() const {
  QStringList messages;
  for (const Logged &entry : loggedWithLevel())
    messages.append(entry.message);
  return messages;
}

void ScratchProgram::restart(ostrak::UserDefaults::Persistence persistence) {
  m_library.reset();
  ostrak::OstrakSetup setup;
  setup.bundlePath = path(u"bundle"_s);
  setup.info = m_info;
  setup.prefsPath = path(u"config/org.decant.Decant.conf"_s);
  setup.suppDir = path(u"data/Decant"_s);
  setup.deskDir = path(u"home/Desktop"_s);
  setup.homeInsideSandbox = path(u"home"_s);
  setup.homeOutsideSandbox = path(u"home"_s);
  setup.tempDir = path(u"tmp"_s);
  setup.crashFolders = QStringList{path(u"crashes"_s)};
  setup.persistence = persistence;
  setup.workspace = &m_opener;
  setup.keyboard = &m_keyboard;
  setup.systemLog = [this](int level, const QString &message) {
    const QMutexLocker locker(&m_logMutex);
    m_logged.append({level, message});
  };
  m_library = std::make_unique<ostrak::Ostrak>(std::move(setup));
}
