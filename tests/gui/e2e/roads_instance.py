"""One program at a time: a second start hands its files over. What happens without a desktop."""
import os
import signal
import unittest

from case import WindowCase
from screen import Screen
from waiting import until


class InstanceRoads(WindowCase):
    def test_second_start_hands_over(self):
        screen = self.open()
        second = self.program.run(self.program.movie("one.mkv"))
        self.assertEqual((second.returncode, second.stdout, second.stderr), (0, "", ""))
        screen.find("push button", "Start Conversion")
        self.add("one.mkv")
        self.row("one.mkv", "Finished.*")
        self.assertEqual(len(self.windows("^Decant")), 1)

    def test_second_start_tells_what_it_cannot_take(self):
        self.open()
        second = self.program.run(os.fsdecode(b"\xff.mkv"))
        self.assertEqual((second.returncode, second.stdout), (1, ""))
        self.assertRegex(second.stderr, r"^decant: .*\.mkv: .+\n$")
        german = self.program.run(os.fsdecode(b"\xff.mkv"), LANGUAGE="de")
        self.assertRegex(german.stderr, r"^decant: .*\.mkv: .*kein gültiges UTF-8.*\n$")

    def test_both_started_at_once(self):
        movies = [self.program.movie(name) for name in ("one.mkv", "two.mkv")]
        both = [self.program.start_another(movie) for movie in movies]
        self.addCleanup(lambda: [process.kill() for process in both])
        gone = until(lambda: [process for process in both if process.poll() is not None], "one of them to give way")
        self.assertEqual([process.returncode for process in gone], [0])
        self.program.process = next(process for process in both if process.poll() is None)
        self.screen = Screen(self.desktop, self.program.process.pid)
        for _ in movies:
            self.screen.click(self.screen.find("push button", "Start Conversion"))
        for name in ("one.mkv", "two.mkv"):
            self.row(name, "Finished.*")
        self.assertIsNone(self.program.process.poll())

    def test_without_session_bus(self):
        # Without a bus there is nothing to look at the window with: its title tells.
        self.program.set(AutoAdd=1)
        process = self.program.start_another(self.program.movie("one.mkv"), without=["DBUS_SESSION_BUS_ADDRESS"])
        self.program.process = process
        until(lambda: self.windows(r"^Decant.*\[1 Job"), "the conversion in the title")
        until(self.output_of("one.mkv").exists, "the converted file")
        os.kill(process.pid, signal.SIGTERM)
        self.assertEqual(self.program.ended(), 143)

    def test_display_that_does_not_answer(self):
        run = self.program.run(DISPLAY=":4095")
        self.assertEqual(run.returncode, 1, run.stderr)
        self.assertIn("decant convert", run.stderr)
        self.assertEqual(run.stdout, "")
        german = self.program.run(DISPLAY=":4095", LANGUAGE="de")
        self.assertEqual(german.returncode, 1)
        self.assertIn("Filme umwandeln mit: decant convert DATEI", german.stderr)

    def test_form_that_is_missing(self):
        (self.program.bundle / "resources" / "ui").unlink()
        run = self.program.run()
        self.assertEqual((run.returncode, run.stdout), (1, ""))
        self.assertEqual(run.stderr, "decant: MainWindow.ui is missing from the program's folder; "
                                     "install Decant again.\n")

    def test_no_display(self):
        run = self.program.run(self.program.movie("one.mkv"), DISPLAY="")
        self.assertEqual(run.returncode, 1)
        self.assertIn("decant convert", run.stderr)


if __name__ == "__main__":
    unittest.main()
