"""Waiting for what can be seen, with a deadline, and for children."""
import os
import time

DEADLINE = 15  # seconds; long enough for a loaded machine, and never used up by a test that passes


def poll(seconds=DEADLINE):
    """Turns to look, until the deadline has passed."""
    end = time.monotonic() + seconds
    while True:
        yield
        if time.monotonic() > end:
            return
        time.sleep(0.015)


def until(condition, what, seconds=DEADLINE):
    """What the condition gives once that is true. An error by which a look fails counts as not yet."""
    last = None
    for _ in poll(seconds):
        try:
            seen = condition()
            if seen:
                return seen
            last = None
        except Exception as error:  # the thing looked at may have gone meanwhile
            last = error
    raise AssertionError(f"waited in vain for {what() if callable(what) else what}"
                         + (f": {last!r}" if last else ""))


def stat_of(pid):
    """State letter and parent of a process."""
    with open(f"/proc/{pid}/stat", encoding="utf-8", errors="replace") as file:
        fields = file.read().rpartition(")")[2].split()
    return fields[0], int(fields[1])


def children_of(pid):
    """Everything that descends from a process and has not ended."""
    parents = {}
    for name in os.listdir("/proc"):
        if name.isdigit():
            try:
                state, parent = stat_of(name)
            except OSError:
                continue
            if state not in "ZX":
                parents.setdefault(parent, []).append(int(name))
    found, left = [], [pid]
    while left:
        for child in parents.get(left.pop(), []):
            found.append(child)
            left.append(child)
    return found


def lives(pid):
    try:
        return stat_of(pid)[0] not in "ZX"
    except OSError:
        return False
