"""A conversion fails, is explained, and is reported by mail."""
import unittest
from urllib.parse import unquote

from case import WindowCase
from waiting import until


class FailureRoad(WindowCase):
    def test_explanation_and_report(self):
        self.program.scenario("conversion\nstderr Conversion failed, and nobody knows why.\\n\nexit 1\n")
        mailed = self.program.home / "mailed"
        for name in ("xdg-open", "xdg-email"):
            opener = self.program.bin / name
            opener.write_text(f'#!/bin/sh\nprintf "%s\\n" "$@" > "{mailed}.new" && mv "{mailed}.new" "{mailed}"\n')
            opener.chmod(0o755)
        screen = self.queue("one.mkv")
        row = self.row("one.mkv", "Failed.*")

        screen.row_button(row, 1)
        dialog = screen.find("dialog", ".+")
        texts = [node.get_name() for node in screen.walk(dialog) if node.get_role_name() == "label"]
        self.assertTrue(any("one.mkv" in text for text in texts), texts)
        self.assertFalse(mailed.exists(), "nothing is sent unasked")
        screen.click(screen.find("push button", "Send .*|.*[Rr]eport.*", dialog))
        link = unquote(until(mailed.read_text, "a mail link"))
        self.assertTrue(link.startswith("mailto:support@decant.example?"), link[:200])
        self.assertIn("Conversion failed, and nobody knows why.", link)
        screen.gone("dialog", ".+")

        screen.row_button(row, 0)
        self.no_row("one.mkv")
        self.wait(lambda: not self.output_of("one.mkv").exists(), "the partial output to go")
        self.assertTrue((self.program.movies / "one.mkv").exists())


if __name__ == "__main__":
    unittest.main()
