#!/usr/bin/env python3
"""Pictures of every window, in many looks: pictures.py BUNDLE TOOL SIDEWINDOWS FOLDER [LOOK…]

TOOL is the scripted stand-in for ffmpeg, SIDEWINDOWS shows what the program seldom shows. A picture is
FOLDER/LOOK-SCENE.png."""
import sys
from dataclasses import dataclass
from pathlib import Path

from desktop import Desktop
from program import Program
from screen import Screen
from waiting import poll, until

LIGHT = {"Window": ("239,240,241", "35,38,41"), "View": ("252,252,252", "35,38,41"),
         "Button": ("252,252,252", "35,38,41"), "Selection": ("61,174,233", "252,252,252"),
         "Tooltip": ("247,247,247", "35,38,41")}
DARK = {"Window": ("42,46,50", "252,252,252"), "View": ("27,30,32", "252,252,252"),
        "Button": ("49,54,59", "252,252,252"), "Selection": ("61,174,233", "252,252,252"),
        "Tooltip": ("49,54,59", "252,252,252")}


@dataclass
class Look:
    dark: bool = False
    language: str = "en"
    scale: int = 1
    points: int = 10
    smallest: bool = False


LOOKS = {
    "light-en": Look(), "dark-en": Look(dark=True), "light-de": Look(language="de"),
    "dark-de": Look(dark=True, language="de"), "2x-en": Look(scale=2),
    "small-de": Look(language="de", smallest=True), "large-en": Look(points=20),
    "large-de": Look(language="de", points=20), "mirrored": Look(language="ar"),
    "mirrored-dark": Look(language="ar", dark=True),
}

REPORT = r"""probe
stderr Input #0, matroska,webm, from '@INPUT@':\n  Duration: 01:52:07.04, start: 0.000000, bitrate: 5310 kb/s\n
stderr   Stream #0:0: Video: h264 (High), yuv420p, 1920x800, 24 fps, 24 tbr, 1k tbn (default)\n
stderr   Stream #0:1(ger): Audio: ac3, 48000 Hz, 5.1(side), fltp, 448 kb/s (default)\n
stderr   Stream #0:2(eng): Audio: dts (DTS), 48000 Hz, 5.1(side), fltp, 1536 kb/s\n
stderr   Stream #0:3(eng): Subtitle: subrip\n
stderr At least one output file must be specified\n
exit 1
"""
BUSY = REPORT + r"""conversion
progress frame=1\nout_time_ms=2825000000\nspeed= 100x\nprogress=continue\n
announce half
hang
"""
FAILED = REPORT + r"""conversion Sorcerer.mkv
stderr Conversion failed!\n
exit 1
""" + BUSY.removeprefix(REPORT)
NAMES = ["The Lighthouse at the End of the World (Director's Cut) [1080p].mkv", "Night Train.mkv", "Sorcerer.mkv"]


class Pictures:
    def __init__(self, desktop, bundle, tool, side, folder, name):
        self.desktop, self.bundle, self.tool, self.side = desktop, bundle, tool, side
        self.folder, self.name, self.look = folder, name, LOOKS[name]
        self.program = self.screen = None

    def account(self, **settings):
        """A person's account whose desktop has the look."""
        if self.program:
            self.program.close()
        self.program = Program(self.desktop, self.bundle, self.tool)
        colors = DARK if self.look.dark else LIGHT
        lines = ["[KDE]", "widgetStyle=Fusion", "[General]",
                 f"font=Noto Sans,{self.look.points},-1,5,50,0,0,0,0,0",
                 "[Icons]", f"Theme={'breeze-dark' if self.look.dark else 'breeze'}"]
        for group, (back, text) in colors.items():
            lines += [f"[Colors:{group}]", f"BackgroundNormal={back}", f"BackgroundAlternate={back}",
                      f"ForegroundNormal={text}", "ForegroundInactive=161,169,177", "ForegroundLink=29,153,243"]
        config = Path(self.program.environment["XDG_CONFIG_HOME"])
        config.mkdir(exist_ok=True)
        (config / "kdeglobals").write_text("\n".join(lines) + "\n", encoding="utf-8")
        # The palette, fonts and icons of this desktop come from that file, on its users' screens too.
        self.program.environment |= {"QT_QPA_PLATFORMTHEME": "kde", "KDE_SESSION_VERSION": "5",
                                     "LANGUAGE": self.look.language, "QT_SCALE_FACTOR": str(self.look.scale)}
        if self.look.language == "ar":
            self.mirror()
        self.program.set(DefaultDestination=1, **settings)
        self.program.scenario(BUSY)

    def mirror(self):
        """No translation is written from right to left yet: German stands in, the toolkit's own texts mirror."""
        translations = self.program.bundle / "resources" / "translations"
        german = translations.resolve() / "decant_de.qm"
        translations.unlink()
        translations.mkdir()
        (translations / "decant_ar.qm").symlink_to(german)

    def open(self, *files):
        self.program.start(*files)
        self.screen = Screen(self.desktop, self.program.process.pid)
        window = until(lambda: self.windows("^Decant"), "the window")[0]
        self.screen.xdotool("windowactivate", "--sync", window)
        self.screen.xdotool("mousemove", 2879, 1999)
        if self.look.smallest:
            self.screen.xdotool("windowsize", window, 1, 1)

    def windows(self, title):
        return self.desktop.windows(title, self.program.process.pid)

    def controls(self, role):
        return [node for node in self.screen.walk() if node.get_role_name() == role]

    def click(self, node):
        x, y, width, height = (each * self.look.scale for each in self.screen.resting_place(node))
        self.screen.click_at(x + width // 2, y + height // 2)

    def control(self, role, number):
        return until(lambda: self.controls(role)[number], f"{role} {number}")

    def jobs(self, count):
        """So many jobs, as the title tells; the list may show fewer."""
        until(lambda: self.windows(f"^Decant.*[^0-9]{count}[^0-9]"), lambda: f"{count} jobs in\n{self.screen.picture()}")

    def take(self, scene, title="^Decant"):
        """The window, once it looks the same twice."""
        path = self.folder / f"{self.name}-{scene}.png"
        window = until(lambda: self.windows(title), f"a window {title}")
        window = max(window, key=int)
        command = ["import", "-window", window, "-define", "png:exclude-chunks=date,time", "-strip", "png:-"]
        before = None
        for _ in poll(5):  # something may move all the time
            now = self.desktop.run(*command, check=True)
            if now == before:
                break
            before = now
        path.write_bytes(now)

    def dialog(self, scene):
        """The dialog that is open: the newest window."""
        self.screen.resting_place(until(lambda: self.controls("dialog")[0], "a dialog"))
        self.take(scene, ".+")

    def beside(self, kind):
        self.account()
        self.screen = Screen(self.desktop, self.program.start_beside(self.side, kind).pid)

    def feedback(self):
        """Its three panes; the first and the third button of the first lead to the others."""
        for pane, button in enumerate([None, 0, 2]):
            self.beside("feedback")
            self.screen.resting_place(self.control("push button", 2))
            if button is not None:
                self.click(self.control("push button", button))
            self.screen.xdotool("mousemove", 2879, 1999)
            self.take(f"feedback-{pane}", ".+")
        self.beside("progress")
        self.screen.resting_place(self.control("progress bar", 0))
        self.take("progress", ".+")

    def all(self):
        self.feedback()
        self.account()
        self.open()
        self.take("empty")
        self.click(self.control("check box", 3))
        for number in range(3):
            self.click(self.control("check box", number))
            self.take(f"style-{number}")
        self.screen.xdotool("mousemove", 2879, 1999)
        self.screen.press("ctrl+comma")
        until(lambda: self.controls("page tab"), "the preferences")
        for number, tab in enumerate(self.controls("page tab")):
            self.click(tab)
            self.dialog(f"preferences-{number}")

        self.account()
        movie = self.program.movie(NAMES[0])
        self.open(movie, self.program.movie(Path(NAMES[0]).stem + ".srt"))
        self.screen.resting_place(self.control("combo box", 0))
        self.take("file")

        self.account(AutoAdd=1)  # the last one goes on top and converts first
        self.open(*[self.program.movie(name) for name in reversed(NAMES)])
        until(self.program.mark("half").exists, "half a movie")
        self.jobs(3)
        until(lambda: not any("300m" in row.get_name() for row in self.controls("list item")),
              lambda: f"a guess of the time in\n{self.screen.picture()}")
        self.take("busy")
        self.screen.press("ctrl+q")
        self.dialog("alert")

        self.account(AutoAdd=1)
        self.program.scenario(FAILED)
        self.open(*[self.program.movie(name) for name in NAMES])
        until(self.program.mark("half").exists, "half a movie")
        self.jobs(3)
        self.take("failed")
        failed = until(lambda: [row for row in self.controls("list item") if "Sorcerer" in row.get_name()][0], "a row")
        self.click(failed)
        self.screen.press("Return")
        self.dialog("explanation")

        self.account(AutoAdd=1)
        self.open(*[self.program.movie(f"Season 1 Episode {number:02}.mkv") for number in range(1, 51)])
        self.jobs(50)
        self.take("fifty")
        self.program.close()


def main(bundle, tool, side, folder, *looks):
    bundle, tool, side, folder = (Path(each).resolve() for each in (bundle, tool, side, folder))
    folder.mkdir(parents=True, exist_ok=True)
    desktop = Desktop(size="2880x2000")
    try:
        for name in looks or LOOKS:
            Pictures(desktop, bundle, tool, side, folder, name).all()
            print(f"{name}: {len(list(folder.glob(name + '-*.png')))} pictures", flush=True)
    finally:
        desktop.close()


if __name__ == "__main__":
    main(*sys.argv[1:])
