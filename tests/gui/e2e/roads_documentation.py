"""The documentation, whose pages the web engine draws in processes of its own."""
import os
import signal
import unittest
from pathlib import Path

from case import BUNDLE, WindowCase
from waiting import children_of, lives


class DocumentationRoads(WindowCase):
    def test_killed_leaves_no_helper(self):
        (self.program.bundle / "lib").symlink_to(Path(BUNDLE) / "lib")
        screen = self.open()
        screen.press("F1")
        self.wait(lambda: self.windows("Documentation"), "the documentation")
        helpers = self.wait(lambda: self.drawing_helpers(), "the processes of the web engine")
        self.addCleanup(end, helpers)
        self.program.process.kill()
        self.assertEqual(self.program.ended(), -9)
        self.wait(lambda: not any(lives(pid) for pid in helpers), "the end of the web engine's processes")

    def drawing_helpers(self):
        """All helpers, once one draws a page: those are children of the others."""
        helpers = [pid for pid in children_of(self.program.process.pid) if is_helper(pid)]
        inner = [pid for outer in helpers for pid in children_of(outer)]
        return helpers if inner else None


def is_helper(pid):
    try:
        with open(f"/proc/{pid}/cmdline", "rb") as file:
            return b"QtWebEngineProcess" in file.read()
    except OSError:  # gone meanwhile
        return False


def end(helpers):
    for pid in filter(lives, helpers):
        os.kill(pid, signal.SIGKILL)


if __name__ == "__main__":
    unittest.main()
