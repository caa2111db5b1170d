"""Quit while something converts: the question and both answers; signals."""
import signal
import unittest

from case import HALFWAY, WindowCase


class QuitRoads(WindowCase):
    def convert(self):
        self.program.scenario(HALFWAY)
        screen = self.queue("one.mkv")
        self.row("one.mkv", "Converting.*")
        self.wait(self.program.mark("half").exists, "half of the movie")
        self.wait(self.output_of("one.mkv").exists, "something written")
        return screen

    def nothing_is_left(self):
        self.assertFalse(self.output_of("one.mkv").exists())
        self.assertTrue((self.program.movies / "one.mkv").exists())
        self.assertEqual(self.program.tools(), [])

    def test_idle_quits_unasked(self):
        self.open().press("ctrl+q")
        self.assertEqual(self.program.ended(), 0)

    def test_cancel_goes_on(self):
        screen = self.convert()
        screen.press("ctrl+q")
        screen.click(screen.find("push button", "Cancel"))
        screen.gone("dialog", ".*")
        self.row("one.mkv", "Converting.*")
        self.program.mark("go").touch()
        self.row("one.mkv", "Finished.*")
        self.assertTrue(self.output_of("one.mkv").exists())

    def test_quit_leaves_nothing(self):
        screen = self.convert()
        # The window's own close button asks the same as the menu.
        screen.press("alt+F4")
        dialog = screen.find("dialog", ".*")
        screen.click(screen.find("push button", "Quit", dialog))
        self.assertEqual(self.program.ended(), 0)
        self.nothing_is_left()

    def test_signal_while_converting(self):
        for number, status in ((signal.SIGTERM, 143), (signal.SIGINT, 130), (signal.SIGHUP, 129)):
            with self.subTest(signal=number):
                self.convert()
                self.program.process.send_signal(number)
                self.assertEqual(self.program.ended(), status)
                self.nothing_is_left()
                self.program.mark("half").unlink()

    def test_signal_while_a_question_is_asked(self):
        screen = self.convert()
        screen.press("ctrl+q")
        screen.find("push button", "Cancel")
        self.program.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.program.ended(), 143)
        self.nothing_is_left()

    def test_killed_leaves_no_orphan(self):
        self.convert()
        self.program.process.kill()
        self.assertEqual(self.program.ended(), -9)
        self.wait(lambda: self.program.tools() == [], "the tool to end")


if __name__ == "__main__":
    unittest.main()
