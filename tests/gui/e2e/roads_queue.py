"""Pause and resume, by the toolbar and by the row; remove."""
import os
import unittest
from pathlib import Path

from case import HALFWAY, WindowCase
from waiting import stat_of


class QueueRoads(WindowCase):
    def setUp(self):
        super().setUp()
        self.program.scenario(HALFWAY)

    def tool_is_stopped(self):
        return all(stat_of(pid)[0] == "T" for pid in self.program.tools())

    def test_pause_and_resume_by_the_toolbar(self):
        self.program.set(InsertJobsAtBottom=1)
        screen = self.queue("one.mkv", "two.mkv")
        self.row("one.mkv", "Converting.*")
        self.wait(self.program.mark("half").exists, "half of the movie")
        self.assertEqual(len(self.program.tools()), 1)
        screen.click(screen.find("push button", "Pause Queue"))
        self.row("one.mkv", "Paused.*")
        self.wait(self.tool_is_stopped, "the tool to stop")
        self.wait(lambda: self.windows("Paused"), "the title to say so")

        screen.click(screen.find("push button", "Resume Queue"))
        self.row("one.mkv", "Converting.*")
        self.wait(lambda: not self.tool_is_stopped(), "the tool to go on")
        self.program.mark("go").touch()
        self.row("one.mkv", "Finished.*")
        self.row("two.mkv", "Finished.*")

    def test_pause_and_resume_by_the_row(self):
        screen = self.queue("one.mkv")
        self.wait(self.program.mark("half").exists, "half of the movie")
        screen.row_button(self.row("one.mkv", "Converting.*"), 2)
        row = self.row("one.mkv", "Paused.*")
        self.wait(self.tool_is_stopped, "the tool to stop")
        screen.row_button(row, 2)
        self.row("one.mkv", "Converting.*")
        self.program.mark("go").touch()
        self.row("one.mkv", "Finished.*")

    def test_remove_by_the_row(self):
        screen = self.queue("one.mkv", "two.mkv")
        self.wait(self.program.mark("half").exists, "half of the movie")
        self.wait(self.output_of("one.mkv").exists, "something written")
        first = self.program.tools()
        screen.row_button(self.row("one.mkv", "Converting.*"), 0)
        self.no_row("one.mkv")
        self.wait(lambda: not set(first) & set(self.program.tools()), "the tool to end")
        self.wait(lambda: not self.output_of("one.mkv").exists(), "the partial output to go")
        self.row("two.mkv", "Converting.*")
        self.program.mark("go").touch()
        self.row("two.mkv", "Finished.*")
        self.assertTrue((self.program.movies / "one.mkv").exists())

    def test_the_tool_killed_from_outside(self):
        self.queue("one.mkv", "two.mkv")
        self.wait(self.program.mark("half").exists, "half of the movie")
        tool = self.program.tools()[0]
        self.program.mark("go").touch()
        os.kill(tool, 9)
        self.row("one.mkv", "F(ailed|inished).*")
        self.row("two.mkv", "Finished.*")

    def test_the_source_removed_while_queued(self):
        self.queue("one.mkv", "two.mkv")
        Path(self.program.movies / "two.mkv").unlink()
        self.program.mark("go").touch()
        self.row("one.mkv", "Finished.*")
        self.row("two.mkv", "Failed.*")


if __name__ == "__main__":
    unittest.main()
