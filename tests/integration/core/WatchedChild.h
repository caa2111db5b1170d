#pragma once

#include <QFile>
#include <QTemporaryDir>
#include <chrono>
#include <memory>

#include "BuildTree.h"
#include "ChildProcess.h"
#include "Scenario.h"

// One child under watch: counts its ends and keeps its output.
class Watched final {
 public:
  explicit Watched(std::chrono::milliseconds grace = std::chrono::hours(1)) : child({grace}) {
    QObject::connect(&child, &ostrak::ChildProcess::done, &child,
                     [this](const ostrak::ChildResult &end) {
                       ++ends;
                       result = end;
                     });
    QObject::connect(&child, &ostrak::ChildProcess::output, &child,
                     [this](const QByteArray &bytes) {
                       afterEnd = afterEnd || ends > 0;
                       output += bytes;
                     });
  }
  ostrak::ChildProcess child;
  int ends = 0;
  bool afterEnd = false;  // output came after the end
  ostrak::ChildResult result;
  QByteArray output;
};

// A scratch folder with a stand-in that plays one scenario, whatever it is called for.
class StandIn final {
 public:
  StandIn() : scenario(path(QStringLiteral("ffmpeg.scenario"))) {
    QFile::link(buildtree::scriptedTool(), path(QStringLiteral("ffmpeg")));
    scenario.any();
  }
  [[nodiscard]] QString path(const QString &name) const { return folder.filePath(name); }
  [[nodiscard]] ostrak::ChildSetup setup() const {
    return {path(QStringLiteral("ffmpeg")),
            {QStringLiteral("-i"), path(QStringLiteral("movie.mkv"))},
            {},
            false};
  }
  QTemporaryDir folder;
  Scenario scenario;
};
