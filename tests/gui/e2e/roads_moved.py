"""The program's folder is moved while the program runs."""
import os
import shutil
import signal
import tempfile
import unittest
from pathlib import Path

from case import HALFWAY, WindowCase
from screen import Screen
from waiting import lives, until

MOVED = "Decant has been moved, but applications should never be moved while they are running."
NOT_RESTARTED = "Decant could not restart itself. Please do so yourself."


def running_from(bundle):
    """The processes of a program at this place."""
    found = []
    for name in filter(str.isdigit, os.listdir("/proc")):
        try:
            if os.readlink(f"/proc/{name}/exe") == str(bundle / "decant") and lives(int(name)):
                found.append(int(name))
        except OSError:  # gone meanwhile
            pass
    return found


class MovedRoads(WindowCase):
    def setUp(self):
        super().setUp()
        self.apps = self.program.home / "apps"
        self.apps.mkdir()
        self.move(self.apps / "program")

    def move(self, place, renamed=None):
        """Moves the bundle by renaming it, or what is named."""
        old, new = renamed or (self.program.bundle, place)
        os.rename(old, new)
        self.program.bundle = place
        self.addCleanup(self.end_all_at, place)

    def end_all_at(self, place):
        for pid in running_from(place):
            os.kill(pid, signal.SIGKILL)

    def press(self, text, button):
        """Answers the dialog with this text."""
        self.screen.find("label", text)
        self.screen.click(self.screen.find("push button", button))

    def new_instance(self):
        pid = self.wait_for_one_at(self.program.bundle)
        until(lambda: self.desktop.windows("^Decant", pid), "the window of the new instance")
        # It is the one that others hand their files to.
        self.assertEqual(self.program.run().returncode, 0)
        self.assertEqual(running_from(self.program.bundle), [pid])
        return pid

    def wait_for_one_at(self, place):
        return until(lambda: running_from(place), f"an instance at {place}")[0]

    def test_renamed(self):
        self.open()
        self.move(self.program.home / "renamed")
        self.press(MOVED, "Restart Decant")
        self.assertEqual(self.program.ended(), 0)
        self.new_instance()

    def test_folder_above_renamed(self):
        self.open()
        other = self.program.home / "other apps"
        self.move(other / "program", renamed=(self.apps, other))
        self.press(MOVED, "Restart Decant")
        self.assertEqual(self.program.ended(), 0)
        pid = self.new_instance()
        # The new one watches, too.
        self.screen = Screen(self.desktop, pid)
        self.move(self.program.home / "again")
        self.press(MOVED, "Restart Decant")
        until(lambda: not lives(pid), "the end of the second instance")
        self.new_instance()

    def test_to_another_volume(self):
        self.open()
        memory = Path("/dev/shm")
        elsewhere = Path(tempfile.mkdtemp(dir=memory if memory.is_dir() else self.program.home))
        self.addCleanup(shutil.rmtree, elsewhere)
        # As a move between volumes is done.
        shutil.copytree(self.program.bundle, elsewhere / "program", symlinks=True)
        shutil.rmtree(self.program.bundle)
        self.press(MOVED, "Restart Decant")
        self.press(NOT_RESTARTED, "Quit")
        self.assertEqual(self.program.ended(), 0)
        self.assertEqual(running_from(elsewhere / "program"), [])

    def convert_and_move(self):
        # It does not wait in the bundle, whose folder goes.
        self.program.scenario(HALFWAY.replace("wait go", "hang"))
        self.queue("one.mkv")
        self.row("one.mkv", "Converting.*")
        self.wait(self.program.mark("half").exists, "half of the movie")
        self.move(self.program.home / "renamed")
        self.press(MOVED, "Restart Decant")

    def test_quits_a_conversion(self):
        self.convert_and_move()
        self.press("Conversion is in progresss.*", "Quit")
        self.assertEqual(self.program.ended(), 0)
        self.assertFalse(self.output_of("one.mkv").exists())
        self.new_instance()

    def test_keeps_a_conversion(self):
        self.convert_and_move()
        self.press("Conversion is in progresss.*", "Cancel")
        self.screen.gone("dialog", ".*")
        self.row("one.mkv", "Converting.*")
        # It is the one instance still.
        self.assertEqual(self.program.run(self.program.movie("two.mkv")).returncode, 0)
        self.assertEqual(running_from(self.program.bundle), [self.program.process.pid])
        # Its tool is not where it was; the one that runs is not disturbed.
        self.press("The file 'two.mkv' can't be read .*", "OK")
        self.row("one.mkv", "Converting.*")


if __name__ == "__main__":
    unittest.main()
