#pragma once

#include <QString>

// Where the tests find what was checked out and what was built beside them. Known to one file only,
// so that every other one compiles the same wherever the tree lies.
namespace buildtree {

[[nodiscard]] QString source(const QString &relative);  // a file or folder of the repository
[[nodiscard]] QString bundle(const QString &relative);  // of the bundle as it was built
[[nodiscard]] QString scriptedTool();                   // stands in for ffmpeg, plays a Scenario

}  // namespace buildtree
