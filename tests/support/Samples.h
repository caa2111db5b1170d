#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// One audio track of a sample: a tone of its own pitch, so that tracks can be told apart by ear.
struct SampleAudio {
  QString codec =
      QStringLiteral("aac");  // aac ac3 eac3 dts mp3 mp2 vorbis opus flac alac wmav2 pcm
  int channels = 2;
  int rate = 48000;  // Hz
  QString language = {};
};

// One embedded subtitle track with two cues.
struct SampleSubtitle {
  QString codec = QStringLiteral("srt");  // srt ass mov_text webvtt
  QString language = {};
};

// What a generated movie holds. The extension of `name` chooses the container: mkv mp4 m4v mov ts
// mpg webm flv ogg avi wmv…
struct Sample {
  QString name = QStringLiteral("movie.mkv");  // file name; may hold anything a file name can
  QString video = QStringLiteral("h264");      // h264 h264-10bit hevc mpeg4 mpeg2video av1 vp8 vp9
                                               // theora flv wmv2 prores; empty: none
  QString size = QStringLiteral("320x240");
  QList<SampleAudio> audio = {{}};
  QList<SampleSubtitle> subtitles = {};
  bool cover = false;  // an attached picture, in mkv, mp4 and mov
  double seconds = 1;
  QStringList tags = {};  // "title=Text", of the whole file
};

// Movies made with the real ffmpeg of the bundle, in a temporary folder of the test process. A
// sample that was made before is not made again, so do not change what you get: copy it.
namespace samples {

// The path of the movie, in a folder of its own. Null when ffmpeg fails; what it said is then
// printed as a warning, so that the test fails with it.
[[nodiscard]] QString make(const Sample &sample);

// A folder of its own for copies and outputs, gone at the end of the process.
[[nodiscard]] QString newFolder();

// A file with these bytes in a folder of its own.
[[nodiscard]] QString write(const QString &name, const QByteArray &bytes);

// A subtitle file with two cues that say `text`.
[[nodiscard]] QByteArray srt(const QString &text);

// The first part of a movie, cut in the middle of its data.
[[nodiscard]] QString truncated(const QString &path, double fraction);

// The real tool.
[[nodiscard]] QString ffmpegPath();

}  // namespace samples
