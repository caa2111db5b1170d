"""Makes small movies with the real ffmpeg and says what a file holds."""
import json
import os
import subprocess
from dataclasses import dataclass, field
from pathlib import Path

VIDEO = {
    "h264": ["-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p", "-g", "12"],
    "mpeg4": ["-c:v", "mpeg4", "-q:v", "5"],
    "hevc": ["-c:v", "libx265", "-preset", "ultrafast", "-x265-params", "log-level=none", "-pix_fmt", "yuv420p"],
    "av1": ["-c:v", "libaom-av1", "-cpu-used", "8", "-crf", "50", "-row-mt", "1", "-pix_fmt", "yuv420p"],
    "vp9": ["-c:v", "libvpx-vp9", "-deadline", "realtime", "-cpu-used", "8"],
    "flv1": ["-c:v", "flv", "-q:v", "5"],
    "mpeg2video": ["-c:v", "mpeg2video", "-q:v", "5", "-bf", "0"],
}
AUDIO = {
    "aac": ["aac"], "ac3": ["ac3"], "dts": ["dca", "-strict", "-2"], "mp3": ["libmp3lame"], "mp2": ["mp2"],
    "vorbis": ["libvorbis"], "opus": ["libopus"], "flac": ["flac"], "eac3": ["eac3"],
}


@dataclass
class Sound:
    codec: str
    channels: int = 2
    language: str = ""
    rate: int = 48000


@dataclass
class Movie:
    name: str  # with its extension, which chooses the container
    video: str = "h264"
    sounds: list = field(default_factory=lambda: [Sound("aac")])
    subtitles: list = field(default_factory=list)  # languages of embedded text subtitles
    cover: bool = False
    seconds: float = 2


def srt(line):
    return f"1\n00:00:00,200 --> 00:00:01,500\n{line}\n"


def make(ffmpeg, folder, movie):
    """Writes the movie into the folder and returns its path."""
    path = Path(folder, movie.name)
    command = [ffmpeg, "-y", "-loglevel", "error", "-f", "lavfi", "-i",
               f"testsrc2=duration={movie.seconds}:size=160x120:rate=25"]
    for number, sound in enumerate(movie.sounds):
        layout = {1: "mono", 2: "stereo", 6: "5.1"}[sound.channels]
        command += ["-f", "lavfi", "-i",
                    f"sine=frequency={330 + 110 * number}:duration={movie.seconds}:sample_rate={sound.rate},"
                    f"aformat=channel_layouts={layout}"]
    for language in movie.subtitles:
        side = Path(folder, f"{language}.tmp.srt")
        side.write_text(srt(f"embedded {language}"), encoding="utf-8")
        command += ["-i", str(side)]
    inputs = 1 + len(movie.sounds) + len(movie.subtitles)
    for number in range(inputs):
        command += ["-map", str(number)]
    command += VIDEO[movie.video]
    for number, sound in enumerate(movie.sounds):
        coder, *options = AUDIO[sound.codec]
        command += [f"-c:a:{number}", coder, f"-ac:a:{number}", str(sound.channels),
                    f"-ar:a:{number}", str(sound.rate), *options]
        if sound.language:
            command += [f"-metadata:s:a:{number}", f"language={sound.language}"]
    if movie.subtitles:
        command += ["-c:s", "mov_text" if path.suffix in (".mp4", ".mov") else "subrip"]
        for number, language in enumerate(movie.subtitles):
            command += [f"-metadata:s:s:{number}", f"language={language}"]
    made = path.with_name("making" + path.suffix)
    subprocess.run(command + [str(made)], check=True, stdin=subprocess.DEVNULL)
    if movie.cover:
        add_cover(ffmpeg, folder, made)
    os.rename(made, path)
    return path


def add_cover(ffmpeg, folder, movie):
    picture, with_cover = Path(folder, "cover.jpg"), movie.with_name("covered" + movie.suffix)
    subprocess.run([ffmpeg, "-y", "-loglevel", "error", "-f", "lavfi", "-i", "color=red:size=600x600",
                    "-frames:v", "1", str(picture)], check=True, stdin=subprocess.DEVNULL)
    if movie.suffix == ".mkv":
        how = ["-map", "0", "-c", "copy", "-attach", str(picture), "-metadata:s:t", "mimetype=image/jpeg"]
    else:
        how = ["-i", str(picture), "-map", "0", "-map", "1", "-c", "copy", "-disposition:v:1", "attached_pic"]
    subprocess.run([ffmpeg, "-y", "-loglevel", "error", "-i", str(movie), *how, str(with_cover)], check=True,
                   stdin=subprocess.DEVNULL)
    os.rename(with_cover, movie)


def streams(path):
    """What the file holds, by ffprobe: streams, and the duration in seconds."""
    told = subprocess.run(["ffprobe", "-v", "error", "-show_streams", "-show_format", "-of", "json", str(path)],
                          check=True, stdout=subprocess.PIPE).stdout
    told = json.loads(told)
    return told["streams"], float(told["format"]["duration"])


def digest(ffmpeg, path, decoded):
    """A digest of the video's packets, or of its decoded frames."""
    how = [] if decoded else ["-c", "copy"]
    return subprocess.run([ffmpeg, "-loglevel", "error", "-i", str(path), "-map", "0:V:0", *how, "-f",
                           "streamhash", "-hash", "md5", "-"], check=True, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE).stdout.decode()
