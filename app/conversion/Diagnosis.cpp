#include "Diagnosis.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "Format.h"
#include "Text.h"
#include "Translatable.h"

namespace decant {
using namespace Qt::StringLiterals;
using ostrak::localized;
using ostrak::translatable;

namespace {

// Everything that is looked for in output. The order gives each its bit.
enum Phrase : unsigned {
  NoSpaceLeft,
  TimedOut,
  ConnectionTimedOut,
  BadDescriptor,
  ReadError,
  DecodingError,
  UserRemoved,
  NoTagForTrack0,
  NoTagForStream0,
  TrailerError,
  ClosingError,
  EndsPrematurely,
  AtOffset,
  PartialFile,
};

// ffmpeg's stream numbers are those of the output here, where the video always comes first: a
// number other than 0 is the sound or a subtitle.
constexpr std::array<std::string_view, 14> phrases{
    "No space left on device",
    "Operation timed out",
    "Connection timed out",  // what this system says instead
    "Bad file descriptor",
    "Read error at pos",
    "Error while decoding stream",
    userRemovedMarker,
    "track 0: could not find tag, codec not currently supported in container",
    " in stream #0, codec not currently supported in container",
    "Error writing trailer",
    "Error closing file",
    "] File ended prematurely",  // Matroska; behind the demuxer's name, so it is no path
    ", offset 0x",               // MP4, in one line with the next
    ": partial file",
};
constexpr size_t shortestPhrase = std::ranges::min(phrases, {}, &std::string_view::size).size();
static_assert(std::ranges::all_of(phrases, [](std::string_view phrase) {
  return qsizetype(phrase.size()) <= longestTellingPhrase;
}));

constexpr Phrases bit(Phrase phrase) {
  return Phrases(1) << phrase;
}

struct Evidence {
  Phrases phrases = 0;
  const DiagnosisFacts &facts;
};

bool hasAny(const Evidence &evidence, Phrases wanted) {
  return (evidence.phrases & wanted) != 0;
}

bool hasAll(const Evidence &evidence, Phrases wanted) {
  return (evidence.phrases & wanted) == wanted;
}

struct FailureRule {
  FailureKind kind;
  bool (*holds)(const Evidence &);
};

// The first that holds decides.
constexpr std::array rules{
    FailureRule{FailureKind::noSpace,
                [](const Evidence &e) { return hasAny(e, bit(NoSpaceLeft)); }},
    FailureRule{FailureKind::unreliableDisk,
                [](const Evidence &e) {
                  return hasAny(e, bit(TimedOut) | bit(ConnectionTimedOut) | bit(BadDescriptor));
                }},
    FailureRule{FailureKind::damagedSource,
                [](const Evidence &e) { return hasAll(e, bit(ReadError) | bit(DecodingError)); }},
    FailureRule{FailureKind::sourceRemoved,
                [](const Evidence &e) { return hasAny(e, bit(UserRemoved)); }},
    FailureRule{
        FailureKind::videoNotEmbeddable,
        [](const Evidence &e) { return hasAny(e, bit(NoTagForTrack0) | bit(NoTagForStream0)); }},
    FailureRule{FailureKind::embeddedSubtitles,
                [](const Evidence &e) {
                  return !e.facts.disableBuiltinSubtitles && e.facts.hasSubtitleTracks;
                }},
    FailureRule{FailureKind::subtitleFile,
                [](const Evidence &e) { return e.facts.hasSubtitleFile; }},
    FailureRule{FailureKind::unknown, [](const Evidence &) { return true; }},
};

struct Explanation {
  FailureKind kind;
  const char *name;
  const char *title;
  const char *text;
  std::array<const char *, 2> buttons;  // the second may be none
};

constexpr auto failed = translatable("Conversion Failed");
constexpr auto information = translatable("Information");
constexpr std::array<const char *, 2> onlyOK{translatable("OK"), nullptr};
constexpr qsizetype shownOutput = 400;  // characters

constexpr std::array explanations{
    Explanation{
        FailureKind::noSpace, "noSpace", failed,
        translatable(
            "Movie conversion failed because there is not enough free space left on the "
            "destination volume. Please make sure your harddisk has enough free space before "
            "starting conversion"),
        onlyOK},
    Explanation{
        FailureKind::unreliableDisk, "unreliableDisk", failed,
        translatable(
            "Movie conversion failed but it seems the reason is that the disk or network volume "
            "to save the movie is having problems. Try converting to a reliable disk and copying "
            "the file to its destination later."),
        onlyOK},
    Explanation{
        FailureKind::damagedSource, "damagedSource", failed,
        translatable(
            "Movie conversion failed because the movie seems to be too damaged to convert - "
            "playback may work but converting it is impossible."),
        onlyOK},
    Explanation{
        FailureKind::sourceRemoved, "sourceRemoved", failed,
        translatable(
            "Movie conversion failed because you've removed/renamed the source movie file or "
            "unmounted it's volume."),
        onlyOK},
    Explanation{
        FailureKind::videoNotEmbeddable, "videoNotEmbeddable", failed,
        translatable(
            "Movie conversion failed because you are trying to convert a movie with a video "
            "track that can't be embedded into MP4s."),
        onlyOK},
    Explanation{
        FailureKind::embeddedSubtitles, "embeddedSubtitles", information,
        translatable(
            "A problem occured - this is most likely related to the subtitles embedded into the "
            "movie. Please disable conversion of embedded subtitles in the preferences and try "
            "again."),
        onlyOK},
    Explanation{FailureKind::subtitleFile, "subtitleFile", information,
                translatable(
                    "A problem occured - this is most likely related to the subtitle file you have "
                    "specified. Please try again without the subtitle file."),
                onlyOK},
    Explanation{
        FailureKind::unknown,
        "unknown",
        information,
        translatable(
            "A problem prevented the file from being converted. You can contact our support with "
            "this information so that we can fix this problem.\n\nCommand-line: "
            "%@\nCommand-output: %@"),
        {translatable("Send to support"), translatable("Cancel")}},
};

const Explanation &explanationOf(FailureKind kind) {
  return *std::ranges::find(explanations, kind, &Explanation::kind);
}

QString localizedText(const char *text) {
  return localized(QString::fromLatin1(text));
}

// A null text would be shown as "(null)".
QString shown(const QString &text) {
  return text.isNull() ? u""_s : text;
}

Phrases phrasesIn(const QString &output) {
  // Latin-1 keeps every ASCII character what it is, and the phrases are ASCII.
  return tellingPhrases(output.toLatin1());
}

}  // namespace

QString failureKindName(FailureKind kind) {
  return QString::fromLatin1(explanationOf(kind).name);
}

Phrases tellingPhrases(QByteArrayView line) {
  const std::string_view text(line.data(), size_t(line.size()));
  Phrases found = 0;
  if (text.size() < shortestPhrase) return found;
  for (unsigned index = 0; index < phrases.size(); ++index)
    if (text.find(phrases[index]) != std::string_view::npos) found |= bit(Phrase(index));
  return found;
}

FailureKind failureKindOf(const DiagnosisFacts &facts) {
  const Evidence evidence{phrasesIn(facts.jobOutput), facts};
  return std::ranges::find_if(rules, [&](const FailureRule &rule) { return rule.holds(evidence); })
      ->kind;
}

Diagnosis diagnose(const DiagnosisFacts &facts) {
  const Explanation &explanation = explanationOf(failureKindOf(facts));
  Diagnosis diagnosis;
  diagnosis.kind = explanation.kind;
  diagnosis.title = localizedText(explanation.title);
  diagnosis.text = localizedText(explanation.text);
  for (const char *button : explanation.buttons)
    if (button) diagnosis.buttons.append(localizedText(button));
  if (explanation.kind == FailureKind::unknown) {
    diagnosis.offersReport = true;
    diagnosis.text = ostrak::makeString(diagnosis.text, shown(facts.arguments.join(u' ')),
                                        shown(ostrak::clamp(facts.jobOutput, shownOutput)));
  }
  return diagnosis;
}

bool saysUnfinishedFile(const QString &jobOutput) {
  return (phrasesIn(jobOutput) & (bit(TrailerError) | bit(ClosingError))) != 0;
}

bool saysSourceIsCutOff(const QString &jobOutput) {
  const Phrases found = phrasesIn(jobOutput);
  constexpr Phrases ofMP4 = bit(AtOffset) | bit(PartialFile);
  return (found & bit(EndsPrematurely)) != 0 || (found & ofMP4) == ofMP4;
}

}  // namespace decant
