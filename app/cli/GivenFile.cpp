#include "GivenFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QStringDecoder>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>

#include "Descriptor.h"
#include "Printable.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

QByteArray joined(const QByteArray &name, const QByteArray &workingFolder) {
  if (name.startsWith('/')) return name;
  QByteArray path = workingFolder;
  if (!path.endsWith('/')) path += '/';
  return path += name;
}

QString systemError(int error) {
  return QString::fromLocal8Bit(std::strerror(error));
}

}  // namespace

QString textOfBytes(const QByteArray &bytes) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless |
                                                   QStringConverter::Flag::ConvertInitialBom);
  const QString text = decoder(bytes);
  return !decoder.hasError() && text.toUtf8() == bytes ? text : QString();
}

GivenFile givenFile(const QByteArray &name, const QByteArray &workingFolder) {
  const QString shown = escapedBytes(name);
  if (name.isEmpty()) return {shown, shown, worded(u"An empty name names no file."_s)};
  const QString given = textOfBytes(name);
  if (given.isNull())
    return {shown, shown, worded(u"The name '%@' is not valid UTF-8; please rename it."_s, shown)};
  if (!name.startsWith('/') && workingFolder.isEmpty())
    return {given, given, worded(u"The folder that '%@' is in has been removed."_s, shown)};
  const QByteArray path = joined(name, workingFolder);
  const QString text = textOfBytes(path);
  if (text.isNull())
    return {given, given,
            worded(u"The name '%@' is not valid UTF-8; please rename it."_s, escapedBytes(path))};
  return {given, text, {}};
}

QByteArray currentWorkingFolder() {
  std::array<char, PATH_MAX> buffer{};
  const char *folder = ::getcwd(buffer.data(), buffer.size());
  // The system marks a folder that cannot be reached from here by a name that is not absolute.
  return folder && folder[0] == '/' ? QByteArray(folder) : QByteArray();
}

bool isFolder(const QString &path) {
  struct stat facts {};
  return ::stat(ostrak::nativePath(path).constData(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

QString whyNotReadable(const QString &path) {
  const QByteArray native = ostrak::nativePath(path);
  const QString shown = printable(path);
  struct stat facts {};
  if (::stat(native.constData(), &facts) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) return worded(u"There is no file '%@'."_s, shown);
    return worded(u"The file '%@' can't be read: %@."_s, shown, systemError(errno));
  }
  if (S_ISDIR(facts.st_mode)) return worded(u"'%@' is a folder, not a movie."_s, shown);
  // Looked at before opening: a pipe would keep its reader waiting for ever.
  if (!S_ISREG(facts.st_mode))
    return worded(u"'%@' is not a regular file; only files and links to files are taken."_s, shown);
  const ostrak::Descriptor file(::open(native.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file) return worded(u"The file '%@' can't be read: %@."_s, shown, systemError(errno));
  return {};
}

}  // namespace decant
