"""What an assistive technology finds: every control has a role, a name and the keyboard; a conversion is
started and removed by the keyboard alone, and by accessible actions alone."""
import re
import unittest

from case import HALFWAY, WindowCase

CONTROLS = {"push button", "check box", "radio button", "toggle button", "combo box", "spin button", "slider",
            "text", "list", "list item", "tree", "table", "page tab", "page tab list", "menu item"}
CONTAINERS = {"application", "frame", "filler", "layered pane", "panel", "menu bar", "tool bar", "dialog",
              "separator", "scroll pane", "scroll bar", "viewport", "menu"}
WORDS = {"label", "image", "icon", "progress bar", "status bar", "tool tip", "static"}
# Where the keyboard goes on by arrow keys, not by Tab.
BY_ARROWS = {"list item", "page tab", "menu item", "menu"}
STYLES = ["Plays Everywhere", "High Speed & Quality", "Custom"]


class Accessibility(WindowCase):
    def name(self, node):
        """What is read out for a control. A combo box's own name is its value: another word must say what of."""
        if node.get_role_name() == "combo box":
            return " ".join(self.screen.labels(node)) or node.get_description()
        return node.get_name()

    def stops(self, nodes):
        """Which of the nodes the keyboard reaches, by walking round once."""
        seen = []
        node = self.screen.focused(nodes)
        for _ in range(80):
            if node is not None:
                if node in seen:
                    return seen
                seen.append(node)
            before = node
            self.screen.press("Tab")
            node = self.wait(lambda: self.other_than(before, nodes),
                             f"the focus to move from {before and self.name(before)}")
        self.fail("the keyboard never comes round")

    def other_than(self, before, nodes):
        """What has the keyboard, unless that is what had it before."""
        node = self.screen.focused(nodes)
        return None if node == before else node

    def check(self, window):
        """Roles and names of everything shown, and a way for the keyboard to every control."""
        screen = self.screen
        problems, wanted, nodes = [], [], list(screen.walk(window))
        for node in nodes:
            role, name = node.get_role_name(), self.name(node)
            if role not in CONTROLS | CONTAINERS | WORDS:
                problems.append(f"unexpected role {role} of '{node.get_name()}'")
            takes_keys = role in CONTROLS - BY_ARROWS and screen.has(node, "ENABLED")
            if (takes_keys or role in CONTROLS or screen.has(node, "FOCUSABLE")) and not name:
                problems.append(f"a {role} '{node.get_name()}' without a name")
            if takes_keys:
                wanted.append(node)
        reached = self.stops(nodes)
        problems += [f"the keyboard reaches something that is not shown: {node.get_role_name()} {node.get_name()}"
                     for node in reached if screen.place(node)[3] < 4]
        missed = [node for node in wanted if node not in reached
                  and not any(self.stands_for(node, stop) for stop in reached)]
        problems += [f"the keyboard does not reach {node.get_role_name()} '{self.name(node)}'" for node in missed]
        self.assertEqual(problems, [], screen.picture())

    def stands_for(self, node, stop):
        """Tabs, entries and styles take the keyboard as one: arrow keys go on from the chosen one."""
        if node.get_role_name() in ("page tab list", "list"):
            return node == stop.get_parent()
        return node.get_name() in STYLES and stop.get_name() in STYLES

    def test_empty(self):
        self.check(self.open().find("frame", "Decant.*"))

    def test_with_a_shown_file(self):
        screen = self.open(self.program.movie("one.mkv"))
        screen.resting_place(screen.find("push button", "Start Conversion"))
        self.check(screen.find("frame", "Decant.*"))

    def test_with_jobs(self):
        screen = self.queue("one.mkv", "two.mkv")
        self.row("two.mkv", "Finished.*")
        screen.gone("push button", "Skip")
        self.check(screen.find("frame", "Decant.*"))

    def test_options_of_each_style(self):
        screen = self.open()
        screen.click(screen.find("check box", "Options"))
        self.focus("check box", STYLES[0])
        for style in STYLES:
            with self.subTest(style=style):
                self.wait(lambda: screen.has(screen.find("check box", style), "CHECKED"), "the style")
                self.check(screen.find("frame", "Decant.*"))
                self.focus("check box", style)
                screen.press("Right", "space")

    def test_preferences(self):
        screen = self.open()
        screen.press("ctrl+comma")
        dialog = screen.find("dialog", "Preferences")
        for tab in [node for node in screen.walk(dialog) if node.get_role_name() == "page tab"]:
            with self.subTest(tab=tab.get_name()):
                screen.click(tab)
                screen.find("page tab list", tab.get_name())
                self.check(dialog)

    def focus(self, role, name):
        """Goes on by Tab until that control has the keyboard."""
        for _ in range(40):
            node = self.screen.focused()
            if node and node.get_role_name() == role and re.fullmatch(name, node.get_name()):
                return
            self.screen.press("Tab")
            self.wait(lambda: self.screen.focused() != node, "the focus to move")
        self.fail(f"{role} {name} not reached")

    def test_by_keyboard_alone(self):
        self.program.scenario(HALFWAY)
        self.program.movie("one.mkv")
        # The panel opens among the films of the account.
        (self.program.home / "Videos").symlink_to(self.program.movies)
        screen = self.open()
        screen.press("ctrl+o")
        dialog = screen.find("dialog", ".+")
        self.wait(lambda: screen.has(screen.find("text", "File name:", dialog), "FOCUSED"), "the keyboard there")
        screen.find("table cell", "one.mkv", dialog)
        screen.type("one.mkv")
        # The first may go to the list of names that begin so; the main window does nothing on it.
        screen.press("Return", "Return")
        screen.find("push button", "Start Conversion")
        self.focus("push button", "Start Conversion")
        screen.press("space")
        self.row("one.mkv", "Converting.*")
        self.wait(self.output_of("one.mkv").exists, "something written")
        self.focus("list item", "one.mkv, .*")
        if not screen.has(self.row("one.mkv"), "SELECTED"):
            screen.press("space")  # the panel left the keyboard to the list as it folded
            self.wait(lambda: screen.has(self.row("one.mkv"), "SELECTED"), "the row to be selected")
        screen.press("space")
        self.row("one.mkv", "Paused.*")
        screen.press("Delete")
        self.no_row("one.mkv")
        self.wait(lambda: not self.program.tools(), "the tool to end")
        self.wait(lambda: not self.output_of("one.mkv").exists(), "the partial output to go")

    def test_by_accessible_actions_alone(self):
        self.program.scenario(HALFWAY)
        screen = self.open(self.program.movie("one.mkv"))
        screen.act(screen.find("push button", "Start Conversion"), "Press")
        row = self.row("one.mkv", "Converting.*")
        self.wait(self.output_of("one.mkv").exists, "something written")
        screen.act(row, "Toggle")
        self.wait(lambda: screen.has(self.row("one.mkv"), "SELECTED"), "the row to be selected")
        screen.act(screen.find("menu item", "Queue"), "ShowMenu")
        for entry, status in (("Pause Conversion", "Paused"), ("Convert Now", "Converting")):
            screen.act(screen.find("menu item", entry), "Press")
            self.row("one.mkv", status + ".*")
        screen.act(screen.find("menu item", "Remove"), "Press")
        self.no_row("one.mkv")
        self.wait(lambda: not self.output_of("one.mkv").exists(), "the partial output to go")


if __name__ == "__main__":
    unittest.main()
