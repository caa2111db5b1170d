#include "SubtitleArguments.h"

#include <array>

#include "ArgumentList.h"
#include "Exceptions.h"
#include "Format.h"

namespace decant {
using namespace Qt::StringLiterals;
using ostrak::makeString;

namespace {

constexpr std::array characterSets{"None",        "",
                                   "UTF-8",       "UTF-16",
                                   "CP874",       "CP936",
                                   "CP1250",      "CP1251",
                                   "CP1252",      "CP1253",
                                   "CP1254",      "CP1255",
                                   "CP1256",      "CP1257",
                                   "CP1258",      "LATIN1",
                                   "LATIN2",      "LATIN3",
                                   "LATIN4",      "LATIN5",
                                   "LATIN6",      "LATIN7",
                                   "LATIN8",      "ISO-8859-1",
                                   "ISO-8859-2",  "ISO-8859-3",
                                   "ISO-8859-4",  "ISO-8859-5",
                                   "ISO-8859-6",  "ISO-8859-7",
                                   "ISO-8859-8",  "ISO-8859-9",
                                   "ISO-8859-10", "ISO-8859-11",
                                   "ISO-8859-12", "ISO-8859-13",
                                   "ISO-8859-14", "ISO-8859-15",
                                   "ISO-8859-16"};
static_assert(characterSets.size() == 39);
constexpr int firstNamedCharacterSet = 2;

// What ffmpeg is told about the paired file; nothing when it may find out by itself.
QStringList characterSetOption(int index) {
  if (index < 0 || index >= int(characterSets.size()))
    throw ostrak::RangeError(makeString(u"%i is no index of a character set"_s, index));
  if (index < firstNamedCharacterSet) return {};
  // ffmpeg turns UTF-16 files into UTF-8 before it looks at this option.
  const QString name = QString::fromLatin1(characterSets[size_t(index)]);
  return {u"-sub_charenc"_s, name == "UTF-16"_L1 ? u"UTF-8"_s : name};
}

}  // namespace

void addSubtitles(QStringList &arguments, const ConversionPlan &plan, const QString &specifier,
                  qsizetype index) {
  if (!plan.settings.DisableBuiltinSubtitles) {
    for (const int track : plan.fileInfo.subtitleTrackIDs)
      insertAt(arguments, index, {u"-map"_s, streamSpecifier(track)});
  }
  if (plan.fileInfo.subtitleFileURL.isEmpty()) return;
  const QString file = plan.fileInfo.subtitleFileURL.toLocalFile();
  insertAt(arguments, index, {u"-map"_s, specifier});
  const qsizetype afterFirstInput = arguments.indexOf(u"-stats"_s);
  insertAt(arguments, afterFirstInput, {u"-i"_s, file});
  insertAt(arguments, afterFirstInput, characterSetOption(plan.settings.ExternalSubtitleEncoding));
}

}  // namespace decant
