"""Drop, choose, convert, reveal; what is refused."""
import shutil
import subprocess
import unittest

from case import DRAGSOURCE, MOCKS, WindowCase
from waiting import until

TWO_SOUNDS = r"""probe two.mkv
stderr Input #0, matroska,webm, from '@INPUT@':\n  Duration: 00:01:40.00, start: 0.000000, bitrate: 1280 kb/s\n
stderr   Stream #0:0: Video: h264 (High), yuv420p, 1280x720, 25 fps, 25 tbr, 1k tbn (default)\n
stderr   Stream #0:1(eng): Audio: aac (LC), 48000 Hz, stereo, fltp (default)\n
stderr   Stream #0:2(fre): Audio: aac (LC), 48000 Hz, stereo, fltp\n
stderr At least one output file must be specified\n
exit 1
"""


class ConvertRoads(WindowCase):
    def drag(self, *files):
        """Drags the files over the window, waits for its answer, lets go; how the drag ended."""
        source = subprocess.Popen([DRAGSOURCE, *map(str, files)], env=self.desktop.environment,
                                  stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True)
        self.addCleanup(source.stdout.close)
        self.addCleanup(source.wait)
        self.addCleanup(source.kill)
        window = until(lambda: self.desktop.windows("^dragsource$", source.pid), "the window to drag from")[0]
        until(lambda: "Position: 10" in self.desktop.run("xdotool", "getwindowgeometry", window).decode(),
              "that window in its place")
        x, y, width, height = self.screen.resting_place(self.screen.find("frame", "Decant.*"))
        self.screen.xdotool("mousemove", 1150, 90, "mousedown", 1)
        for step in range(1, 6):
            self.screen.xdotool("mousemove", 1150 - step * 30, 90 + step * 10)
        # Moves until the window has answered: what is said before the drag has begun is lost.
        self.screen.xdotool("mousemove", x + width // 2, y + height // 2)
        self.screen.xdotool("mousemove", x + width // 2 + 5, y + height // 2 + 5)
        answer = source.stdout.readline().strip()
        self.screen.xdotool("mouseup", 1)
        end = next(line.strip() for line in source.stdout if line.strip() in ("copied", "ignored"))
        return answer, end

    def test_drop_choose_convert_reveal(self):
        self.program.scenario(TWO_SOUNDS)
        _, calls = self.desktop.mock(MOCKS, "filemanager")
        screen = self.open()
        self.assertTrue(screen.find("label", "Drop movies here"))
        one, two, titles = (self.program.movie(name) for name in ("one.mkv", "two.mkv", "two.srt"))

        self.assertEqual(self.drag(one, two, titles), ("accepted", "copied"))
        self.wait(lambda: self.shown("one.mkv"), "the first movie in the panel")
        screen.click(screen.find("push button", "Start Conversion"))
        self.wait(lambda: self.shown("two.mkv"), "the second movie in the panel")
        self.assertTrue(self.shown("Subtitles: two.srt"))
        sounds = screen.find("combo box", "#1: eng .*")
        screen.click(sounds)
        screen.click(screen.find("list item", "#2: fre .*"))
        screen.find("combo box", "#2: fre .*")
        screen.click(screen.find("push button", "Start Conversion"))

        self.row("one.mkv", "Finished.*")
        row = self.row("two.mkv", "Finished.*")
        self.assertTrue(self.output_of("one.mkv").is_file())
        self.assertTrue(self.output_of("two.mkv").is_file())
        arguments = self.program.calls("conversion")[1]
        self.assertIn(str(titles), " ".join(arguments))
        self.assertIn("0:2", [word for flag, word in zip(arguments, arguments[1:]) if flag == "-map"])

        screen.row_button(row, 1)
        called = until(lambda: calls.read_text(), "a call of the file manager")
        self.assertIn("ShowItems", called)
        self.assertIn(self.output_of("two.mkv").as_uri(), called)

    def shown(self, text):
        """The label of this text, which may be cut on the screen."""
        return next((node for node in self.screen.walk() if node.get_name() == text), None)

    def test_subtitles_alone_are_refused(self):
        self.open()
        self.assertEqual(self.drag(self.program.movie("one.srt")), ("refused", "ignored"))
        self.assertEqual(self.program.calls("probe"), [])

    def test_the_real_tool(self):
        tool = self.program.bundle / "resources" / "ffmpeg"
        tool.unlink()
        tool.symlink_to(shutil.which("ffmpeg", path="/usr/bin:/bin"))
        movie = self.program.movies / "real.mkv"
        self.desktop.run(tool, "-loglevel", "error", "-f", "lavfi", "-i", "testsrc2=duration=1:size=160x120",
                         "-f", "lavfi", "-i", "sine=duration=1", "-c:v", "mpeg4", "-c:a", "aac", movie, check=True)
        self.open(movie)
        self.add("real.mkv")
        self.row("real.mkv", "Finished.*")
        told = self.desktop.run("ffprobe", "-v", "error", "-show_entries", "stream=codec_name", "-of", "csv=p=0",
                                self.output_of("real.mkv"), check=True).decode().split()
        self.assertEqual(told, ["mpeg4", "aac"])


if __name__ == "__main__":
    unittest.main()
