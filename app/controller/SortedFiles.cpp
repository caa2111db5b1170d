#include "SortedFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <array>
#include <optional>

#include "Descriptor.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

// Position of the dot that begins the extension, -1 when there is none.
qsizetype extensionDot(const QString &path) {
  const qsizetype name = path.lastIndexOf(u'/') + 1;
  const qsizetype dot = path.lastIndexOf(u'.');
  return dot > name ? dot : -1;
}

// The first four bytes of a regular file, or what there is of them. Opening never waits: a pipe
// without a writer would hold the program for ever.
std::optional<QByteArray> firstFourBytes(const QString &path) {
  const ostrak::Descriptor file(
      ::open(ostrak::nativePath(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat facts {};
  if (!file || ::fstat(file.get(), &facts) != 0 || !S_ISREG(facts.st_mode)) return {};
  std::array<char, 4> bytes{};
  const ssize_t count = ::read(file.get(), bytes.data(), bytes.size());
  if (count < 0) return {};
  return QByteArray(bytes.data(), count);
}

// The smallest path among those whose key begins with `prefix`.
QString firstByPath(const QMap<QString, QString> &subtitles, const QString &prefix) {
  QString found;
  for (auto it = subtitles.lowerBound(prefix); it != subtitles.end() && it.key().startsWith(prefix);
       ++it) {
    if (found.isNull() || QDir::cleanPath(it.value()) < QDir::cleanPath(found)) found = it.value();
  }
  return found;
}

}  // namespace

const QStringList &movieFileTypes() {
  static const QStringList types{u"mkv"_s, u"mp4"_s, u"mov"_s,  u"ogm"_s, u"wmv"_s,
                                 u"mpg"_s, u"flv"_s, u"webm"_s, u"ts"_s};
  return types;
}

const QStringList &subtitleFileTypes() {
  static const QStringList types{u"srt"_s, u"ass"_s, u"ssa"_s, u"smi"_s, u"sub"_s};
  return types;
}

bool isTextSubtitle(const QString &path) {
  const std::optional<QByteArray> start = firstFourBytes(path);
  return start && *start != QByteArray("\x00\x00\x01\xBA", 4);
}

SortedFiles sortByName(const QStringList &paths) {
  SortedFiles sorted;
  for (const QString &path : paths) {
    const QString extension = lowerExtension(path);
    if (movieFileTypes().contains(extension)) {
      sorted.movies.append(path);
    } else if (extension == "sub"_L1) {
      sorted.untested.append(path);
    } else if (subtitleFileTypes().contains(extension)) {
      sorted.subtitles.insert(stemOf(path), path);
    } else {
      sorted.others.append(path);
    }
  }
  return sorted;
}

QString pairedSubtitle(const QString &moviePath, const QMap<QString, QString> &subtitles) {
  const QString stem = stemOf(moviePath);
  const auto exact = subtitles.constFind(stem);
  if (exact != subtitles.constEnd()) return exact.value();
  const QString dotted = stem + u'.';
  const QString afterDot = firstByPath(subtitles, dotted);
  return afterDot.isNull() ? firstByPath(subtitles, stem) : afterDot;
}

QString stemOf(const QString &path) {
  return withoutExtension(QDir::cleanPath(path));
}

QString withoutExtension(const QString &path) {
  const qsizetype dot = extensionDot(path);
  return dot < 0 ? path : path.left(dot);
}

QString lowerExtension(const QString &path) {
  const qsizetype dot = extensionDot(path);
  return dot < 0 ? QString() : path.mid(dot + 1).toLower();
}

}  // namespace decant
