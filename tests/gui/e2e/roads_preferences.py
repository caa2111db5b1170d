"""A preference changed in the window changes the next conversion, and is there after a restart."""
import unittest

from case import WindowCase
from screen import Screen


class PreferencesRoad(WindowCase):
    def open_preferences(self):
        self.screen.click(self.screen.find("push button", "Preferences"))
        return self.screen.find("dialog", ".*Preferences.*")

    def test_next_conversion_obeys(self):
        screen = self.queue("one.mkv")
        self.row("one.mkv", "Finished.*")
        self.assertTrue(self.output_of("one.mkv").exists())
        self.assertNotIn("-movflags", self.program.calls("conversion")[0])

        dialog = self.open_preferences()
        screen.click(screen.find_labelled("combo box", "File name extension:"))
        screen.click(screen.find("list item", ".mp4"))
        screen.click(screen.find("check box", "Make streamable files", dialog))
        self.wait(lambda: screen.has(screen.find("check box", "Make streamable files"), "CHECKED"), "the tick")
        screen.press("Escape")
        screen.gone("dialog", ".*Preferences.*")
        self.program.run(self.program.movie("two.mkv"), check=True)
        self.add("two.mkv")
        self.row("two.mkv", "Finished.*")
        arguments = self.program.calls("conversion")[1]
        self.assertIn("faststart", arguments)
        self.assertTrue((self.program.movies / "two.mp4").exists())

        self.program.process.terminate()
        self.assertEqual(self.program.ended(), 143)
        self.assertEqual(self.program.setting("DefaultExtension"), "0")
        self.assertEqual(self.program.setting("ProduceStreamableFiles"), "1")

    def test_style_in_the_main_window(self):
        screen = self.open()
        screen.click(screen.find("check box", "Custom"))
        screen.click(screen.find("check box", "Options"))
        screen.click(screen.find_labelled("combo box", "MP3:"))
        screen.click(screen.find("list item", "Copy"))
        self.wait(lambda: screen.find_labelled("combo box", "MP3:").get_name() == "Copy", "the choice")
        screen.press("ctrl+q")
        self.assertEqual(self.program.ended(), 0)
        self.assertEqual(self.program.setting("ConversionPreset"), "2")
        self.assertEqual(self.program.setting("CustomMP3Handling"), "3")

    def told_at_the_start(self, words):
        self.program.start()
        self.screen = Screen(self.desktop, self.program.process.pid)
        self.screen.find("label", f".*{words}.*")
        self.screen.click(self.screen.find("push button", "OK"))
        self.screen.gone("label", f".*{words}.*")
        self.program.process.terminate()
        self.assertEqual(self.program.ended(), 143)

    def test_settings_that_cannot_be_read_are_told(self):
        settings = self.program.home / "config" / "org.decant.Decant.conf"
        settings.write_text("no settings\n")
        self.told_at_the_start("is kept as")
        self.assertEqual(settings.with_name(settings.name + ".broken-1").read_text(), "no settings\n")
        # A folder is what even root can't read.
        settings.unlink(missing_ok=True)
        settings.mkdir()
        self.told_at_the_start("is not used")
        self.assertTrue(settings.is_dir())


if __name__ == "__main__":
    unittest.main()
