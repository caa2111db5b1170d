#include "Samples.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>

#include "BuildTree.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int deadlineMilliseconds = 90'000;

const QHash<QString, QStringList> &videoEncoders() {
  static const QHash<QString, QStringList> encoders = {
      {u"h264"_s, {u"libx264"_s, u"-preset"_s, u"ultrafast"_s, u"-pix_fmt"_s, u"yuv420p"_s}},
      {u"h264-10bit"_s,
       {u"libx264"_s, u"-preset"_s, u"ultrafast"_s, u"-pix_fmt"_s, u"yuv420p10le"_s}},
      {u"hevc"_s,
       {u"libx265"_s, u"-preset"_s, u"ultrafast"_s, u"-pix_fmt"_s, u"yuv420p"_s, u"-x265-params"_s,
        u"log-level=error"_s}},
      {u"mpeg4"_s, {u"mpeg4"_s}},
      {u"mpeg2video"_s, {u"mpeg2video"_s}},
      {u"av1"_s, {u"libsvtav1"_s, u"-preset"_s, u"12"_s, u"-pix_fmt"_s, u"yuv420p"_s}},
      {u"vp8"_s, {u"libvpx"_s, u"-deadline"_s, u"realtime"_s, u"-pix_fmt"_s, u"yuv420p"_s}},
      {u"vp9"_s,
       {u"libvpx-vp9"_s, u"-deadline"_s, u"realtime"_s, u"-cpu-used"_s, u"8"_s, u"-pix_fmt"_s,
        u"yuv420p"_s}},
      {u"theora"_s, {u"libtheora"_s, u"-pix_fmt"_s, u"yuv420p"_s}},
      {u"flv"_s, {u"flv"_s}},
      {u"wmv2"_s, {u"wmv2"_s}},
      {u"prores"_s, {u"prores_ks"_s}}};
  return encoders;
}

QString audioEncoder(const QString &codec) {
  static const QHash<QString, QString> encoders = {{u"dts"_s, u"dca"_s},
                                                   {u"mp3"_s, u"libmp3lame"_s},
                                                   {u"vorbis"_s, u"libvorbis"_s},
                                                   {u"opus"_s, u"libopus"_s},
                                                   {u"pcm"_s, u"pcm_s16le"_s}};
  return encoders.value(codec, codec);
}

QTemporaryDir &cache() {
  static QTemporaryDir folder;
  return folder;
}

bool runFfmpeg(const QStringList &arguments) {
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.setStandardInputFile(QProcess::nullDevice());
  process.start(samples::ffmpegPath(),
                QStringList{u"-hide_banner"_s, u"-loglevel"_s, u"error"_s, u"-y"_s} + arguments);
  const bool ended = process.waitForFinished(deadlineMilliseconds);
  if (ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) return true;
  qWarning().noquote() << "ffmpeg failed:" << arguments.join(u' ') << '\n'
                       << process.readAll() << process.errorString();
  return false;
}

QString coverPicture() {
  static const QString picture = [] {
    const QString path = samples::newFolder() + u"/cover.png"_s;
    return runFfmpeg(
               {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=s=600x800"_s, u"-frames:v"_s, u"1"_s, path})
               ? path
               : QString();
  }();
  return picture;
}

QString number(qsizetype value) {
  return QString::number(value);
}

// Inputs first, then maps and encoders in the same order.
class CommandLine final {
 public:
  explicit CommandLine(const Sample &sample) : m_sample(sample) {}

  QStringList arguments(const QString &path) {
    if (!m_sample.video.isEmpty()) addVideo();
    for (const SampleAudio &audio : m_sample.audio)
      addAudio(audio);
    for (const SampleSubtitle &subtitle : m_sample.subtitles)
      addSubtitle(subtitle);
    if (m_sample.cover) addCover();
    for (const QString &tag : m_sample.tags)
      m_outputs += {u"-metadata"_s, tag};
    return m_inputs + m_outputs +
           QStringList{u"-strict"_s, u"-2"_s, u"-t"_s, QString::number(m_sample.seconds), path};
  }

 private:
  void addSource(const QString &description) {
    m_inputs +=
        {u"-f"_s, u"lavfi"_s, u"-t"_s, QString::number(m_sample.seconds), u"-i"_s, description};
    m_outputs += {u"-map"_s, number(m_sources++)};
  }
  void addFile(const QString &path) {
    m_inputs += {u"-i"_s, path};
    m_outputs += {u"-map"_s, number(m_sources++)};
  }
  void addLanguage(const QString &stream, const QString &language) {
    if (language.isEmpty()) return;
    m_outputs += {u"-metadata:s:"_s + stream, u"language="_s + language};
  }

  void addVideo() {
    addSource(u"testsrc2=r=25:s="_s + m_sample.size);
    const QStringList encoder = videoEncoders().value(m_sample.video, {m_sample.video});
    m_outputs += u"-c:v:0"_s;
    m_outputs += encoder;
  }
  void addAudio(const SampleAudio &audio) {
    const QString index = number(m_audio++);
    addSource(u"sine=frequency="_s + number(220 + 110 * m_audio) + u":sample_rate="_s +
              number(audio.rate));
    m_outputs += {u"-c:a:"_s + index,     audioEncoder(audio.codec), u"-ac:a:"_s + index,
                  number(audio.channels), u"-ar:a:"_s + index,       number(audio.rate)};
    addLanguage(u"a:"_s + index, audio.language);
  }
  void addSubtitle(const SampleSubtitle &subtitle) {
    const QString index = number(m_subtitles++);
    addFile(samples::write(u"cues.srt"_s, samples::srt(u"Embedded "_s + index)));
    m_outputs += {u"-c:s:"_s + index, subtitle.codec};
    addLanguage(u"s:"_s + index, subtitle.language);
  }
  void addCover() {
    if (m_sample.name.endsWith(u".mkv"_s, Qt::CaseInsensitive)) {
      m_outputs += {u"-attach"_s, coverPicture(), u"-metadata:s:t"_s, u"mimetype=image/png"_s};
      return;
    }
    const QString index = m_sample.video.isEmpty() ? u"0"_s : u"1"_s;
    addFile(coverPicture());
    m_outputs += {u"-c:v:"_s + index, u"copy"_s, u"-disposition:v:"_s + index, u"attached_pic"_s};
  }

  const Sample &m_sample;
  QStringList m_inputs;
  QStringList m_outputs;
  int m_sources = 0;
  int m_audio = 0;
  int m_subtitles = 0;
};

QString keyOf(const Sample &sample) {
  QStringList parts = {sample.name,
                       sample.video,
                       sample.size,
                       QString::number(sample.seconds),
                       sample.cover ? u"cover"_s : QString(),
                       sample.tags.join(QChar(0))};
  for (const SampleAudio &audio : sample.audio) {
    parts += {u"a"_s, audio.codec, number(audio.channels), number(audio.rate), audio.language};
  }
  for (const SampleSubtitle &subtitle : sample.subtitles) {
    parts += {u"s"_s, subtitle.codec, subtitle.language};
  }
  return parts.join(QChar(1));
}

}  // namespace

namespace samples {

QString ffmpegPath() {
  return buildtree::bundle(u"resources/ffmpeg"_s);
}

QString newFolder() {
  static int count = 0;
  const QString name = number(++count);
  return QDir(cache().path()).mkpath(name) ? cache().filePath(name) : QString();
}

QString make(const Sample &sample) {
  static QHash<QString, QString> made;
  const QString key = keyOf(sample);
  if (const auto found = made.constFind(key); found != made.constEnd()) return *found;
  const QString path = newFolder() + u'/' + sample.name;
  if (!runFfmpeg(CommandLine(sample).arguments(path))) return {};
  made.insert(key, path);
  return path;
}

QString write(const QString &name, const QByteArray &bytes) {
  return wholefile::made(newFolder() + u'/' + name, bytes);
}

QByteArray srt(const QString &text) {
  const QByteArray words = text.toUtf8();
  return "1\n00:00:00,100 --> 00:00:00,400\n" + words + "\n\n2\n00:00:00,500 --> 00:00:00,900\n" +
         words + " again\n\n";
}

QString truncated(const QString &path, double fraction) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const auto length = static_cast<qint64>(static_cast<double>(file.size()) * fraction);
  return write(QFileInfo(path).fileName(), file.read(length));
}

}  // namespace samples
