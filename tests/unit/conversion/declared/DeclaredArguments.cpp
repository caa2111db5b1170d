#include "DeclaredArguments.h"

#include <cstdio>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

enum Method { AAC, AC3Stereo, AC3Surround, Copy };

struct Declared {
  const DeclaredMovie &movie;
  const decant::ConversionSettings &settings;
  const DeclaredTrack &track;

  [[nodiscard]] bool soundsSurround() const {
    return track.marked || track.language.contains("5.1"_L1) || track.codec.contains("5.1"_L1);
  }

  // One cell of the tables of decisions; a codec with no row of its own is "other".
  [[nodiscard]] int method() const {
    const QString &codec = track.codec;
    const bool surround = soundsSurround();
    const bool ac3 = codec == u"ac3";
    const bool dts = codec == u"dts";
    if (codec == u"aac") return Copy;
    if (settings.ConversionPreset == 0) return AAC;
    if (settings.ConversionPreset == 2) {
      const int table[2][5] = {
          {settings.CustomAC3Handling, settings.CustomDTSHandling, settings.CustomMP3Handling,
           settings.CustomVorbisHandling, settings.CustomUnknownHandling},
          {settings.CustomAC351Handling, settings.CustomDTS51Handling,
           settings.CustomUnknownHandling, settings.CustomUnknownHandling,
           settings.CustomUnknownHandling}};
      const int column = ac3 ? 0 : dts ? 1 : codec == u"mp3" ? 2 : codec == u"vorbis" ? 3 : 4;
      return table[surround ? 1 : 0][column];
    }
    if (ac3 && !(surround && settings.AC3Downmix)) return Copy;
    if (dts && surround && !settings.DTSDownmix) return AC3Surround;
    return AC3Stereo;
  }

  [[nodiscard]] std::optional<DeclaredTrack> surroundTrack() const {
    if (settings.ConversionPreset != 0 || !settings.IncludeSurroundTrack) return {};
    // Ranked: the chosen track, then AC3 by position, then DTS by position.
    std::optional<DeclaredTrack> best;
    qsizetype bestRank = 0;
    const qsizetype count = movie.tracks.size();
    for (qsizetype i = 0; i < count; ++i) {
      const DeclaredTrack &candidate = movie.tracks[i];
      const bool ac3 = candidate.codec == u"ac3";
      if (!candidate.marked || candidate.language != track.language) continue;
      if (!ac3 && candidate.codec != u"dts") continue;
      const qsizetype rank = quint64(i) == movie.chosen ? -1 : ac3 ? i : count + i;
      if (!best || rank < bestRank) {
        best = candidate;
        bestRank = rank;
      }
    }
    return best;
  }

  [[nodiscard]] QStringList encoding() const {
    const int how = method();
    if (how == Copy) return {};
    QStringList options;
    if (changesVolume()) {
      char filter[64];
      std::snprintf(filter, sizeof filter, "[0:%d]volume=%.2f[out]", track.number,
                    double(settings.AudioVolume) / 100);
      options << u"-filter_complex"_s << QString::fromLatin1(filter);
    }
    if (track.HZ >= 48001) options << u"-ar"_s << u"48000"_s;
    const int base[] = {96, 160, 384};
    const int step[] = {32, 32, 64};
    const int index[] = {settings.AACBitrate, settings.AC3StereoBitrate,
                         settings.AC3SurroundBitrate};
    const int kbits = base[how] + step[how] * index[how];
    return options << u"-ac"_s << (how == AC3Surround ? u"6"_s : u"2"_s) << u"-b:a"_s
                   << QString::number(kbits) + u'k';
  }

  [[nodiscard]] bool changesVolume() const {
    return !(settings.AudioVolume >= 99 && settings.AudioVolume <= 101);
  }
  [[nodiscard]] bool filters() const { return movie.fixup && track.codec == u"aac"; }
};

QStringList option(bool given, const QStringList &arguments) {
  return given ? arguments : QStringList();
}

QStringList mapOf(int stream) {
  return {u"-map"_s, u"0:%1"_s.arg(stream)};
}

QString characterSet(int index) {
  if (index == 2 || index == 3) return u"UTF-8"_s;
  if (index == 4) return u"CP874"_s;
  if (index == 5) return u"CP936"_s;
  if (index < 15) return u"CP%1"_s.arg(1250 + index - 6);
  if (index < 23) return u"LATIN%1"_s.arg(index - 14);
  return u"ISO-8859-%1"_s.arg(index - 22);
}

QStringList additions(const DeclaredMovie &movie, const Declared *sound) {
  const QStringList ipodVideo{u"h264"_s, u"mpeg4"_s, QString()};
  const QStringList ipodAudio{u"aac"_s, u"he-aac"_s, u"ac3"_s, u"alac"_s};
  bool unusual = !ipodVideo.contains(movie.videoCodec);
  if (sound) {
    const auto surround = sound->surroundTrack();
    const bool surroundIsDts = surround && surround->codec == u"dts";
    unusual = unusual || (sound->method() == Copy && !ipodAudio.contains(sound->track.codec)) ||
              (surroundIsDts && !movie.settings.IncludeSurroundTrackTranscoded);
  }
  return option(unusual && movie.destination.endsWith(u".m4v"), {u"-f"_s, u"mp4"_s}) +
         option(movie.videoCodec == u"hevc", {u"-tag:v"_s, u"hvc1"_s});
}

QStringList inputs(const DeclaredMovie &movie) {
  const bool file = !movie.subtitleFile.isEmpty();
  const int set = movie.settings.ExternalSubtitleEncoding;
  return QStringList{u"-i"_s, movie.source} +
         option(file && set > 1, {u"-sub_charenc"_s, characterSet(set)}) +
         option(file, {u"-i"_s, movie.subtitleFile});
}

QStringList subtitleMaps(const DeclaredMovie &movie) {
  QStringList maps = option(!movie.subtitleFile.isEmpty(), {u"-map"_s, u"1:0"_s});
  if (!movie.settings.DisableBuiltinSubtitles)
    for (auto id = movie.subtitles.crbegin(); id != movie.subtitles.crend(); ++id)
      maps += mapOf(*id);
  return maps;
}

QStringList soundCodec(const Declared &sound) {
  const QStringList names{u"aac"_s, u"ac3"_s, u"ac3"_s, u"copy"_s};
  QStringList section{u"-acodec"_s, names.at(sound.method())};
  section += sound.encoding();
  const auto surround = sound.surroundTrack();
  if (!surround) return section;
  if (surround->codec == u"ac3" || !sound.settings.IncludeSurroundTrackTranscoded)
    return section << u"-c:a:1"_s << u"copy"_s;
  const QStringList rates{u"384k"_s, u"448k"_s, u"512k"_s, u"576k"_s};
  return section << u"-c:a:1"_s << u"ac3"_s << u"-ac:2"_s << u"6"_s << u"-b:a:1"_s
                 << rates.at(sound.settings.AC3SurroundBitrate);
}

QStringList output(const DeclaredMovie &movie, const QStringList &added) {
  return QStringList{u"-progress"_s, movie.progressFile, u"-loglevel"_s, u"warning"_s, u"-y"_s} +
         added + option(movie.settings.ProduceStreamableFiles, {u"-movflags"_s, u"faststart"_s}) +
         QStringList{movie.destination};
}

const QStringList &copiedVideo() {
  static const QStringList section{u"-scodec"_s, u"mov_text"_s, u"-vcodec"_s, u"copy"_s};
  return section;
}

}  // namespace

decant::AudioTrackDescription DeclaredTrack::description() const {
  const QString text = u"#%1: %2 (%3)%4"_s.arg(QString::number(number), language, codec,
                                               marked ? u" [5.1]"_s : u""_s);
  return {text, HZ};
}

decant::ConversionPlan DeclaredMovie::plan() const {
  decant::ConversionPlan plan;
  for (const DeclaredTrack &track : tracks)
    plan.fileInfo.audioTrackInformation.append(track.description());
  plan.fileInfo.subtitleTrackIDs = subtitles;
  plan.fileInfo.fileURL = QUrl::fromLocalFile(source);
  plan.fileInfo.destinationURL = QUrl::fromLocalFile(destination);
  if (!subtitleFile.isEmpty()) plan.fileInfo.subtitleFileURL = QUrl::fromLocalFile(subtitleFile);
  plan.fileInfo.videoTrackID = video;
  plan.fileInfo.videoCodec = videoCodec;
  plan.audioTrackIndex = chosen;
  plan.settings = settings;
  plan.progressFile = progressFile;
  plan.fixup = fixup;
  return plan;
}

QStringList DeclaredMovie::arguments(bool withAdditions) const {
  if (tracks.isEmpty()) {
    return QStringList{u"-i"_s, source, u"-stats"_s} + mapOf(video) + copiedVideo() +
           output(*this, withAdditions ? additions(*this, nullptr) : QStringList());
  }
  const Declared sound{*this, settings, tracks.at(qsizetype(chosen))};
  const auto surround = sound.surroundTrack();
  const bool renamed = sound.method() != Copy && sound.changesVolume();
  return option(settings.FixSubtitleDuration, {u"-fix_sub_duration"_s}) + inputs(*this) +
         QStringList{u"-stats"_s} + mapOf(video) +
         (renamed ? QStringList{u"-map"_s, u"[out]"_s} : mapOf(sound.track.number)) +
         (surround ? mapOf(surround->number) : QStringList()) + subtitleMaps(*this) +
         option(sound.filters(), {u"-absf"_s, u"aac_adtstoasc"_s}) + copiedVideo() +
         soundCodec(sound) +
         output(*this, withAdditions ? additions(*this, &sound) : QStringList());
}
