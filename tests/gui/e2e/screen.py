"""What a person sees and does: controls found by role and name through AT-SPI, real clicks and keys."""
import os
import re
import subprocess

from waiting import until


class Screen:
    """The windows of one running program. Made after the environment names the desktop's buses."""

    def __init__(self, desktop, pid):
        os.environ.update({name: desktop.environment[name]
                           for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR")})
        import gi  # the buses are found when it is loaded
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi
        self.atspi = Atspi
        Atspi.init()
        self.desktop = desktop
        self.pid = pid
        self.app = until(self._find_app, "the program on the accessibility bus")

    def _find_app(self):
        root = self.atspi.get_desktop(0)
        self.atspi.Accessible.set_cache_mask(root, self.atspi.Cache.NONE)
        for index in range(root.get_child_count()):
            app = root.get_child_at_index(index)
            if app and app.get_process_id() == self.pid:
                self.atspi.Accessible.set_cache_mask(app, self.atspi.Cache.NONE)
                return app
        return None

    # Looking

    def walk(self, node=None, shown=True):
        """Everything below a node, it included, that is shown; or really everything."""
        node = node or self.app
        yield node
        for index in range(node.get_child_count()):
            child = node.get_child_at_index(index)
            if child and (not shown or self.has(child, "SHOWING")):
                yield from self.walk(child, shown)

    def has(self, node, state):
        return node.get_state_set().contains(getattr(self.atspi.StateType, state))

    def look(self, role, name, below=None):
        """The control of that role whose name matches the whole pattern, or None."""
        for node in self.walk(below):
            if node.get_role_name() == role and re.fullmatch(name, node.get_name() or ""):
                return node
        return None

    def find(self, role, name, below=None):
        """The same, waited for."""
        return until(lambda: self.look(role, name, below), lambda: f"{role} '{name}' in\n{self.picture()}")

    def labels(self, node):
        """The names of the labels that stand for a control; a combo box is named by nothing else."""
        relations = [relation for relation in node.get_relation_set()
                     if relation.get_relation_type() == self.atspi.RelationType.LABELLED_BY]
        return [relation.get_target(index).get_name()
                for relation in relations for index in range(relation.get_n_targets())]

    def find_labelled(self, role, label):
        """The control of that role that such a label stands for, waited for."""
        def look():
            return next((node for node in self.walk()
                         if node.get_role_name() == role and label in self.labels(node)), None)
        return until(look, lambda: f"{role} labelled '{label}' in\n{self.picture()}")

    def gone(self, role, name):
        until(lambda: not self.look(role, name), lambda: f"{role} '{name}' to go, in\n{self.picture()}")

    def picture(self):
        lines = []

        def tell(node, depth):
            lines.append(f"{'  ' * depth}{node.get_role_name()} '{node.get_name()}'")
            for index in range(node.get_child_count()):
                child = node.get_child_at_index(index)
                if child and self.has(child, "SHOWING"):
                    tell(child, depth + 1)
        try:
            tell(self.app, 0)
        except Exception as error:
            lines.append(f"… {error}")
        return "\n".join(lines)

    def place(self, node):
        """Where it is on the screen: x, y, width, height."""
        box = self.atspi.Component.get_extents(node, self.atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    def resting_place(self, node):
        """The same once it has come to rest there: panels slide."""
        seen = []

        def rests():
            seen.append(self.place(node))
            return len(seen) > 5 and len(set(seen[-6:])) == 1 and seen[-1][2] > 0
        until(rests, lambda: f"{node.get_name()} to rest")
        return seen[-1]

    # Doing

    def xdotool(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.desktop.environment, check=True, timeout=30)

    def click(self, node):
        x, y, width, height = self.resting_place(node)
        self.click_at(x + width // 2, y + height // 2)

    def click_at(self, x, y, button=1):
        self.xdotool("mousemove", x, y, "click", button)

    def press(self, *keys):
        self.xdotool("key", "--clearmodifiers", *keys)

    def type(self, text):
        """Types into the field that has the keyboard, and waits until it has all of it."""
        field = until(self.focused, "a field")
        self.xdotool("type", "--delay", "0", text)
        read = self.atspi.Text.get_text
        until(lambda: read(field, 0, -1) == text, lambda: f"'{text}', but there is '{read(field, 0, -1)}'")

    def act(self, node, name=None):
        """Does the node's action of that name, or its first, as an assistive technology does."""
        action = self.atspi.Action
        names = [action.get_action_name(node, index) for index in range(action.get_n_actions(node))]
        assert names and (name is None or name in names), f"{node.get_name()}: {names}"
        assert action.do_action(node, names.index(name) if name else 0)

    def focused(self, nodes=None):
        """Which one of the nodes, in the order of `walk`, has the keyboard; for a list its current entry.
        Entries say that they have it even without their list."""
        found = None
        for node in nodes or self.walk():
            if self.has(node, "FOCUSED"):
                entry = node.get_role_name() in ("list item", "page tab")
                if not entry or found == node.get_parent():
                    found = node
        return found

    def row_button(self, row, number):
        """Clicks a button of a job's row; 0 is the outermost (remove), 1 the arrow, 2 pause."""
        x, y, width, height = self.resting_place(row)
        line = (height - 28) // 2  # two lines of text, the buttons' frame, gaps and margins
        size = line + 6
        self.click_at(x + width - 16 - size // 2 - number * (size + 4), y + 9 + size // 2)
