"""The feedback window: real clicks through its panes, and what becomes of each way."""
import json
import os
import unittest
from urllib.parse import unquote

from case import WindowCase
from screen import Screen

SIDEWINDOWS = os.environ["DECANT_SIDEWINDOWS"]


class FeedbackRoad(WindowCase):
    def show(self, **keys):
        """The window, with these keys added to the bundle's information."""
        file = self.program.bundle / "resources" / "Info.json"
        information = json.loads(file.read_text(encoding="utf-8")) | keys
        file.unlink()
        file.write_text(json.dumps(information), encoding="utf-8")
        self.program.start_beside(SIDEWINDOWS, "feedback")
        self.screen = Screen(self.desktop, self.program.process.pid)
        self.screen.find("label", "You have now used Decant more than 20 times.*")
        return self.screen

    def press(self, name):
        self.screen.click(self.screen.find("push button", name))

    def said(self):
        """What it said, when the window has closed."""
        self.wait(lambda: "closing" in self.program.output(), "the window to close")
        self.assertEqual(self.windows("."), [])
        return [line for line in self.program.output().splitlines() if line.startswith(("opened", "closing"))]

    def written(self):
        return self.screen.atspi.Text.get_text(self.screen.look("text", "What went wrong"), 0, -1)

    def test_unsure(self):
        self.show()
        self.press("I Am Not Sure Yet")
        self.assertEqual(self.said(), ["closing"])

    def test_happy_rates(self):
        screen = self.show(MacupdateProductPage="https://decant.example/rate")
        self.press("I am happy with it")
        self.assertFalse(screen.has(screen.find("push button", "Rate It in the Store"), "ENABLED"))
        self.press("Rate It on the Web")
        self.assertEqual(self.said(), ["opened https://decant.example/rate", "closing"])

    def test_angry_writes(self):
        screen = self.show()
        self.press("I Have a Problem")
        self.wait(lambda: screen.has(screen.look("text", "What went wrong"), "FOCUSED"), "the field")
        screen.xdotool("type", "--delay", "0", "It stops at the end")
        self.wait(lambda: self.written() == "It stops at the end", "the text")
        self.press("Send to Support")
        said = self.said()
        self.assertEqual(len(said), 2)
        self.assertIn("body=It stops at the end\n", unquote(said[0]))

    def test_keyboard(self):
        screen = self.show()
        self.wait(lambda: screen.focused(), "a button with the keyboard")
        self.assertEqual(screen.focused().get_name(), "I am happy with it")
        screen.press("Return")
        screen.find("push button", "Not Now")
        screen.press("Escape")
        self.assertEqual(self.said(), ["closing"])

    def test_turned_off(self):
        screen = self.show()
        self.press("Do Not Ask Again")
        dialog = screen.find("dialog", "Confirmation")
        screen.click(screen.find("push button", "Turn off feedback dialoge", dialog))
        screen.gone("dialog", "Confirmation")
        self.assertEqual(self.said(), ["closing"])


if __name__ == "__main__":
    unittest.main()
