#!/usr/bin/env python3
"""Real movies through the real program: what goes in, and what must come out.

usage: real_conversions.py THEME BUNDLE

Every conversion must finish, keep the video as it is (packets bit for bit; from ts and mpg, whose packets are
framed in another way, every decoded frame), carry the expected sound and subtitles, and be as long as its
source within 0.3 s.
"""
import json
import os
import subprocess
import sys
import tempfile
from pathlib import Path

from movies import Movie, Sound, digest, make, srt, streams

failures = []


def check(holds, what):
    if not holds:
        failures.append(what)
        print("FAILED:", what, flush=True)


class Program:
    def __init__(self, bundle, folder):
        self.decant = str(Path(bundle, "decant"))
        self.ffmpeg = str(Path(bundle, "resources", "ffmpeg"))
        self.folder = folder
        self.environment = dict(os.environ, HOME=folder, XDG_CONFIG_HOME=folder + "/config",
                                XDG_DATA_HOME=folder + "/data", LC_ALL="C.UTF-8")
        self.environment.pop("LANGUAGE", None)

    def convert(self, files, *options, **environment):
        """The events of one run, and its exit status."""
        done = subprocess.run([self.decant, "convert", "--json", *options, "--", *map(str, files)],
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              env=dict(self.environment, **environment), check=False)
        return [json.loads(line) for line in done.stdout.splitlines()], done.returncode

    def converted(self, source, *options, files=None, **environment):
        """The path of the one output, or nothing after a failure has been noted."""
        events, status = self.convert(files or [source], *options, **environment)
        finished = [event for event in events if event["event"] == "finished"]
        what = f"{source.name} {' '.join(options)}"
        check(status == 0 and len(finished) == 1, f"{what}: status {status}, {events[-2:]}")
        return Path(finished[0]["destination"]) if len(finished) == 1 else None


def sound_of(found):
    return [(stream["codec_name"], stream["channels"]) for stream in found if stream["codec_type"] == "audio"]


def expect(program, source, output, sounds, subtitles=0, extra=""):
    """Holds the output against the source and against what must come out."""
    if output is None:
        return
    what = f"{source.name} {extra}"
    decoded = source.suffix in (".ts", ".mpg")
    check(digest(program.ffmpeg, source, decoded) == digest(program.ffmpeg, output, decoded),
          f"{what}: the video differs")
    found, duration = streams(output)
    check(sum(stream["codec_type"] == "video" for stream in found) == 1, f"{what}: not one video")
    check(sound_of(found) == sounds, f"{what}: sound is {sound_of(found)} instead of {sounds}")
    texts = [stream for stream in found if stream["codec_type"] == "subtitle"]
    check(len(texts) == subtitles and all(stream["codec_name"] == "mov_text" for stream in texts),
          f"{what}: {len(texts)} subtitles instead of {subtitles}")
    _, before = streams(source)
    check(abs(duration - before) <= 0.3, f"{what}: {duration} s instead of {before} s")


def containers(program, folder):
    for name, video, audio, sounds in [
            ("a.mkv", "h264", "aac", [("aac", 2)]), ("b.mkv", "mpeg4", "aac", [("aac", 2)]),
            ("c.mkv", "hevc", "aac", [("aac", 2)]), ("d.mp4", "h264", "aac", [("aac", 2)]),
            ("e.mp4", "hevc", "ac3", [("aac", 2)]), ("f.mp4", "mpeg4", "mp3", [("aac", 2)]),
            ("g.mov", "h264", "aac", [("aac", 2)]), ("h.mov", "mpeg4", "aac", [("aac", 2)]),
            ("i.ts", "h264", "aac", [("aac", 2)]), ("j.ts", "hevc", "ac3", [("aac", 2)]),
            ("k.mpg", "mpeg2video", "mp2", [("aac", 2)]), ("l.mpg", "mpeg2video", "ac3", [("aac", 2)]),
            ("m.webm", "av1", "opus", [("aac", 2)]), ("n.webm", "av1", "vorbis", [("aac", 2)]),
            ("o.flv", "h264", "aac", [("aac", 2)]), ("p.flv", "h264", "mp3", [("aac", 2)])]:
        source = make(program.ffmpeg, folder, Movie(name, video, [Sound(audio, rate=44100 if name[0] == "p" else 48000)]))
        for extension in ("0", "1"):
            options = ("--set", "DefaultExtension=" + extension)
            output = program.converted(source, *options)
            expect(program, source, output, sounds, extra=" ".join(options))
            if output:
                check(output.suffix == (".m4v" if extension == "1" else ".mp4"), f"{name}: {output.name}")
                if video == "hevc":
                    tag = [s["codec_tag_string"] for s in streams(output)[0] if s["codec_type"] == "video"]
                    check(tag == ["hvc1"], f"{name}: the video's tag is {tag}")


def sounds(program, folder):
    """Every codec under every conversion style, with the registered settings."""
    copies = {0: {}, 1: {"ac3": 0}, 2: {"ac3": 0}}
    for codec, channels in [("aac", 2), ("aac", 6), ("ac3", 2), ("ac3", 6), ("dts", 2), ("dts", 6), ("mp3", 2),
                            ("vorbis", 2), ("opus", 2), ("flac", 2), ("eac3", 2), ("eac3", 6)]:
        source = make(program.ffmpeg, folder, Movie(f"{codec}-{channels}.mkv", sounds=[Sound(codec, channels)]))
        for style in (0, 1, 2):
            if codec == "aac" or codec in copies[style]:
                wanted = (codec, channels)
            elif style == 0:
                wanted = ("aac", 2)
            else:
                wanted = ("ac3", 6 if (codec, channels) == ("dts", 6) else 2)
            options = ("--set", f"ConversionPreset={style}")
            expect(program, source, program.converted(source, *options), [wanted], extra=" ".join(options))
    silent = make(program.ffmpeg, folder, Movie("silent.mkv", sounds=[]))
    for style in (0, 1, 2):
        expect(program, silent, program.converted(silent, "--set", f"ConversionPreset={style}"), [])


def styles(program, folder):
    """Settings that change the sound."""
    dts = make(program.ffmpeg, folder, Movie("dts.mkv", sounds=[Sound("dts", 6)]))
    ac3 = make(program.ffmpeg, folder, Movie("ac3.mkv", sounds=[Sound("ac3", 6)]))
    high = make(program.ffmpeg, folder, Movie("high.mkv", sounds=[Sound("flac", 2, rate=96000)]))
    for source, wanted, *settings in [
            (dts, ("ac3", 2), "ConversionPreset=1", "DTSDownmix=1"),
            (ac3, ("ac3", 2), "ConversionPreset=1", "AC3Downmix=1"),
            (dts, ("dts", 6), "ConversionPreset=2", "CustomDTS51Handling=3"),
            (ac3, ("ac3", 6), "ConversionPreset=2", "CustomAC351Handling=2"),
            (ac3, ("aac", 2), "ConversionPreset=2", "CustomAC351Handling=0"),
            (high, ("aac", 2), "AudioVolume=150"), (high, ("aac", 2), "AudioVolume=0"),
            (dts, ("aac", 2), "ProduceStreamableFiles=1"),
            (high, ("ac3", 2), "ConversionPreset=1", "AC3StereoBitrate=3")]:
        options = [word for setting in settings for word in ("--set", setting)]
        output = program.converted(source, *options)
        expect(program, source, output, [wanted], extra=" ".join(options))
        if output and source is high:
            rates = [s["sample_rate"] for s in streams(output)[0] if s["codec_type"] == "audio"]
            check(rates == ["48000"], f"high.mkv {options}: sampled at {rates}")


def surround(program, folder):
    """A surround track beside the stereo one, and the track in the user's language."""
    source = make(program.ffmpeg, folder, Movie("tracks.mkv", sounds=[
        Sound("ac3", 2, "eng"), Sound("aac", 2, "ger"), Sound("ac3", 6, "ger"), Sound("dts", 6, "fre")]))
    options = ("--set", "IncludeSurroundTrack=1")
    german = dict(LANGUAGE="de:en")
    expect(program, source, program.converted(source, *options, **german), [("aac", 2), ("ac3", 6)], extra="German")
    expect(program, source, program.converted(source, *options, LANGUAGE="fr"), [("aac", 2), ("ac3", 6)],
           extra="French, its surround track converted")
    expect(program, source, program.converted(source, *options, "--set", "IncludeSurroundTrackTranscoded=0",
                                              LANGUAGE="fr"), [("aac", 2), ("dts", 6)], extra="French, copied")
    expect(program, source, program.converted(source, "--audio", "3"), [("aac", 2)], extra="--audio 3")
    for name in ("languages.mp4", "languages.ts"):
        source = make(program.ffmpeg, folder, Movie(name, sounds=[Sound("ac3", 6, "eng"), Sound("aac", 2, "deu")]))
        output = program.converted(source, "--set", "ConversionPreset=1", **german)
        expect(program, source, output, [("aac", 2)], extra="German")


def subtitles(program, folder):
    for name in ("embedded.mkv", "embedded.mp4"):
        source = make(program.ffmpeg, folder, Movie(name, subtitles=["eng", "ger"] if name.endswith("mkv") else []))
        expect(program, source, program.converted(source), [("aac", 2)], 0, "left out")
        wanted = 2 if name.endswith("mkv") else 0
        expect(program, source, program.converted(source, "--set", "DisableBuiltinSubtitles=0"), [("aac", 2)],
               wanted, "kept")
    source = make(program.ffmpeg, folder, Movie("side.mkv"))
    side = Path(folder, "side.en.srt")
    side.write_text(srt("from the side"), encoding="utf-8")
    output = program.converted(source, files=[side, source])
    expect(program, source, output, [("aac", 2)], 1, "paired by name")
    if output:
        text = subprocess.run([program.ffmpeg, "-loglevel", "error", "-i", str(output), "-map", "0:s:0", "-f", "srt",
                               "-"], stdout=subprocess.PIPE, check=True).stdout.decode()
        check("from the side" in text, f"side.mkv: the subtitle says {text!r}")
    latin = Path(folder, "latin.srt")
    latin.write_bytes(srt("Köln").encode("cp1252"))
    output = program.converted(source, "--subtitle", str(latin), "--set", "ExternalSubtitleEncoding=8")
    expect(program, source, output, [("aac", 2)], 1, "in another character set")
    if output:
        text = subprocess.run([program.ffmpeg, "-loglevel", "error", "-i", str(output), "-map", "0:s:0", "-f", "srt",
                               "-"], stdout=subprocess.PIPE, check=True).stdout.decode()
        check("Köln" in text, f"side.mkv: the subtitle says {text!r}")


def oddities(program, folder):
    for name in ("cover.mkv", "cover.mp4"):
        source = make(program.ffmpeg, folder, Movie(name, cover=True))
        expect(program, source, program.converted(source), [("aac", 2)])
    twenty = make(program.ffmpeg, folder, Movie("twenty.mkv", sounds=[
        Sound("mp3", 2, language) for language in ("eng ger fre spa chi jpn rus ita por dut pol cze hun swe dan nor "
                                                    "fin gre tur kor").split()]))
    expect(program, twenty, program.converted(twenty, LANGUAGE="ko"), [("aac", 2)])
    plain = make(program.ffmpeg, folder, Movie("plain.mkv"))
    for name in ("quotes ' \" here.mkv", "line\nbreak.mkv", "%n %s %@.mkv", "-dash.mkv", "Köln 東京 🎬.mkv", ".hidden.mkv",
                 "no, Duration: 1:2 Stream #0:0: Video: vp9.mkv", "a" * 200 + ".mkv", "back\\slash.mkv", "[out].mkv"):
        source = Path(folder, name)
        os.link(plain, source)
        expect(program, source, program.converted(source), [("aac", 2)], extra=repr(name))
        source.unlink()
    for name, video, kind in [("refused.mkv", "vp9", "refused"), ("impossible.flv", "flv1", "videoNotEmbeddable")]:
        source = make(program.ffmpeg, folder, Movie(name, video, [Sound("mp3", rate=44100)]))
        events, status = program.convert([source, plain])
        kinds = [event.get("kind") for event in events if event["event"] == "failed"]
        check(status == 1 and kinds == [kind] and events[-1]["finished"] == 1, f"{name}: {status} {events}")
        check(source.exists(), f"{name} is gone")
    for name in ("cut.mkv", "cut.mp4"):
        cut_off(program, make(program.ffmpeg, folder, Movie(name)))


def cut_off(program, source):
    """What there is of the movie is converted, and the user is told that it is not all. An MP4 that has lost its
    index, which usually stands at the end, is refused."""
    if source.suffix == ".mp4":
        without_index = source.with_name("without index.mp4")
        without_index.write_bytes(source.read_bytes()[:source.stat().st_size * 6 // 10])
        events, status = program.convert([without_index])
        check(status == 1 and [event.get("kind") for event in events] == ["refused", None],
              f"{without_index.name}: {status} {events}")
    begun = source.with_name("begun" + source.suffix)
    subprocess.run([program.ffmpeg, "-y", "-loglevel", "error", "-i", str(source), "-c", "copy", "-movflags",
                    "faststart", str(begun)], check=True, stdin=subprocess.DEVNULL)
    whole = begun.read_bytes()
    source.write_bytes(whole[:len(whole) * 6 // 10])
    for movie, alerts in ((begun, []), (source, ["incompletesourcewarning"])):
        events, status = program.convert([movie])
        told = [event["identifier"] for event in events if event["event"] == "alert"]
        check(status == 0 and told == alerts, f"{movie.name}: {status} {events}")


def main():
    themes = {"containers": containers, "sounds": sounds, "styles": styles, "subtitles": subtitles,
              "surround": surround, "oddities": oddities}
    with tempfile.TemporaryDirectory() as folder:
        themes[sys.argv[1]](Program(sys.argv[2], folder), folder)
    print(f"{len(failures)} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
