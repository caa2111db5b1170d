"""Desktop services that hold off suspend, mocked: ADDRESS LOGFILE KIND…

The kind "pausing" makes the others stop this process before they answer."""

import os
import signal
import sys
import time

import dbus
import dbus.bus
import dbus.mainloop.glib
import dbus.service
from dbusmock import mockobject
from gi.repository import GLib

PORTAL = "org.freedesktop.portal.Desktop"
PORTAL_PATH = "/org/freedesktop/portal/desktop"
REQUEST = "org.freedesktop.portal.Request"


def mock(bus, log, name, path, interface, methods):
    service = mockobject.DBusMockObject(
        dbus.service.BusName(name, bus), path, interface, {})
    service.logfile = log  # one file for all
    for method in methods:
        service.AddMethod(interface, *method)
    return service


PAUSING = []


def pause():
    """Keeps the answer back until somebody continues this process."""
    if PAUSING:
        os.kill(os.getpid(), signal.SIGSTOP)


def refuse(*_):
    raise dbus.exceptions.DBusException("not today", name="org.example.Refused")


def lock(self, *_):
    """A descriptor as logind gives it; its closing is logged."""
    pause()
    read_end, write_end = os.pipe()

    def closed(*_):
        self.log("lock closed")
        return False

    GLib.io_add_watch(read_end, GLib.IO_HUP, closed)
    descriptor = dbus.types.UnixFd(write_end)
    os.close(write_end)
    return descriptor


COOKIES = iter(range(4711, 4800))


def cookie(*_):
    pause()
    return next(COOKIES)


def gnome(bus, log, answer=cookie):
    return mock(bus, log, "org.gnome.SessionManager", "/org/gnome/SessionManager",
                "org.gnome.SessionManager",
                [("Inhibit", "susu", "u", answer), ("Uninhibit", "u", "", "")])


def kde(bus, log):
    return mock(bus, log, "org.freedesktop.PowerManagement",
                "/org/freedesktop/PowerManagement/Inhibit",
                "org.freedesktop.PowerManagement.Inhibit",
                [("Inhibit", "ss", "u", cookie), ("UnInhibit", "u", "", "")])


def logind(bus, log):
    return mock(bus, log, "org.freedesktop.login1", "/org/freedesktop/login1",
                "org.freedesktop.login1.Manager", [("Inhibit", "ssss", "h", lock)])


class Plain(dbus.service.Object):
    """An object that is no mock, beside some that are: the mock library looks into every object."""

    methods = {}
    interface = ""


class Request(Plain):
    """The portal's object of one request."""

    def __init__(self, bus, path, note):
        super().__init__(bus, path)
        self.note = note

    @dbus.service.method(REQUEST)
    def Close(self):
        self.note("Close")
        self.remove_from_connection()

    @dbus.service.signal(REQUEST, signature="ua{sv}")
    def Response(self, response, results):
        self.note(f"Response {response}")


class Portal(Plain):
    """Answers first with a handle and then, by a signal on it, with the outcome."""

    def __init__(self, bus, log, response, own_path=False):
        super().__init__(dbus.service.BusName(PORTAL, bus), PORTAL_PATH)
        self.bus, self.log, self.response, self.own_path = bus, log, response, own_path

    def note(self, text):
        os.write(self.log.fileno(), f"{time.time():.3f} {text}\n".encode())

    @dbus.service.method("org.freedesktop.portal.Inhibit", in_signature="sua{sv}",
                         out_signature="o", sender_keyword="sender")
    def Inhibit(self, window, flags, options, sender=None):
        self.note(f'Inhibit "{window}" {flags} "{options["reason"]}"')
        pause()
        owner = sender[1:].replace(".", "_")
        token = "of_its_own" if self.own_path else options["handle_token"]
        path = f"{PORTAL_PATH}/request/{owner}/{token}"
        request = Request(self.bus, path, self.note)
        if not self.own_path:
            GLib.idle_add(request.Response, self.response, {})
        return dbus.ObjectPath(path)


KINDS = {
    "pausing": lambda bus, log: PAUSING.append(True),
    "gnome": gnome,
    "gnome-refuses": lambda bus, log: gnome(bus, log, refuse),
    "kde": kde,
    "logind": logind,
    "portal": lambda bus, log: Portal(bus, log, 0),
    "portal-denies": lambda bus, log: Portal(bus, log, 1),
    "portal-with-path-of-its-own": lambda bus, log: Portal(bus, log, 0, own_path=True),
}


def main(address, log_path, *kinds):
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.bus.BusConnection(address)
    with open(log_path, "ab", buffering=0) as log:
        services = [KINDS[kind](bus, log) for kind in kinds]
        assert len(services) == len(kinds)
        print("ready", flush=True)
        GLib.MainLoop().run()


main(*sys.argv[1:])
