"""The session bus goes away while the program uses it."""
import os
import signal
import unittest

from case import HALFWAY, WindowCase
from waiting import until


class TheBusGoesAway(WindowCase):
    def test_while_converting(self):
        # What looks at windows goes with the bus: the title tells.
        self.program.set(AutoAdd=1, AutoClean=1)
        self.program.scenario(HALFWAY)
        self.program.start(self.program.movie("one.mkv"), self.program.movie("two.mkv"))
        until(self.program.mark("half").exists, "half of the movie")
        until(lambda: self.windows(r"^Decant.*\[2 Job"), "both in the title")
        bus = next(each for each in self.desktop.processes if each.args[0] == "dbus-daemon")
        bus.kill()
        bus.wait()
        self.program.mark("go").touch()
        until(lambda: self.windows("^Decant $"), "a title without jobs")
        for name in ("one.mkv", "two.mkv"):
            self.assertTrue(self.output_of(name).exists(), name)
        self.assertIsNone(self.program.process.poll())
        os.kill(self.program.process.pid, signal.SIGTERM)
        self.assertEqual(self.program.ended(), 143)


if __name__ == "__main__":
    unittest.main()
