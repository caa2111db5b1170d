"""What every test of the roads begins with, and what it says when it fails."""
import os
import unittest
from pathlib import Path

from desktop import Desktop
from program import Program
from screen import Screen
from waiting import until

BUNDLE = os.environ["DECANT_BUNDLE"]
TOOL = os.environ["DECANT_TOOL"]
DRAGSOURCE = os.environ.get("DECANT_DRAGSOURCE")
MOCKS = Path(__file__).parents[2] / "integration" / "platform" / "desktopservices.py"
NEXT_TO_SOURCE = 1  # of the destination menu
UNFOLDED = 117  # pixels of the file panel, at least

# A conversion that gets half way, and ends when the test says so.
HALFWAY = """conversion
progress frame=1\\nout_time_ms=50000000\\nspeed= 100x\\nprogress=continue\\n
announce half
wait go
"""


class WindowCase(unittest.TestCase):
    """Each test has a person's account of its own; the desktop is shared by those of one file."""

    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop()
        cls.addClassCleanup(cls.desktop.close)

    def setUp(self):
        self.program = Program(self.desktop, BUNDLE, TOOL)
        self.addCleanup(self.program.close)
        self.addCleanup(self.tell_if_failed)
        self.program.set(DefaultDestination=NEXT_TO_SOURCE)
        self.program.scenario("")

    def tell_if_failed(self):
        outcome = self._outcome.result
        if any(test is self for test, _ in outcome.failures + outcome.errors):
            print("the program said:\n" + self.program.output(), flush=True)

    def open(self, *files, **environment):
        """Starts the window and looks at it."""
        self.program.start(*files, **environment)
        self.screen = Screen(self.desktop, self.program.process.pid)
        self.screen.find("frame", "Decant.*")
        window = self.wait(lambda: self.windows("^Decant"), "the window")[0]
        self.screen.xdotool("windowactivate", "--sync", window)
        return self.screen

    def windows(self, title):
        return self.desktop.windows(title, self.program.process.pid)

    def wait(self, condition, what):
        return until(condition, lambda: f"{what}, in\n{self.screen.picture()}")

    def queue(self, *names):
        """Opens the window with new movies and queues each by its button."""
        self.open(*[self.program.movie(name) for name in names])
        for name in names:
            self.add(name)
        return self.screen

    def add(self, name):
        button = self.screen.find("push button", "Start Conversion|Add to Queue")
        self.wait(lambda: self.screen.place(button.get_parent())[3] >= UNFOLDED, "the panel to unfold")
        self.screen.click(button)
        return self.row(name)

    def row(self, name, status=".*"):
        return self.screen.find("list item", f"{name}, Status: {status}")

    def no_row(self, name):
        self.screen.gone("list item", f"{name}, .*")

    def output_of(self, name):
        return self.program.movies / (Path(name).stem + ".m4v")


if __name__ == "__main__":
    unittest.main()
