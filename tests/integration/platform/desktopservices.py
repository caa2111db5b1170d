"""Services of a desktop, mocked: ADDRESS LOGFILE KIND…

A KIND is a name with its parameters: "notifications:CAPABILITIES:FIRSTNUMBER:renumbers", capabilities
with commas between them, the last where a message that replaces another gets a new number. "pausing" makes the others stop this process before they answer;
"dying:FILE" makes the first of them end it, which FILE remembers."""

import os
import signal
import sys

import dbus
import dbus.bus
import dbus.mainloop.glib
import dbus.service
from dbusmock import mockobject
from gi.repository import GLib

BEFORE_AN_ANSWER = []


def mock(bus, log, name, methods):
    path = "/" + name.replace(".", "/")
    service = mockobject.DBusMockObject(dbus.service.BusName(name, bus), path, name, {})
    service.logfile = log  # one file for all
    for method in methods:
        service.AddMethod(name, *method)
    return service


def before_an_answer():
    for work in BEFORE_AN_ANSWER:
        work()


def pause():
    os.kill(os.getpid(), signal.SIGSTOP)


def die_once(remembering):
    if not os.path.exists(remembering):
        with open(remembering, "w", encoding="utf-8"):
            os._exit(0)


def notifications(bus, log, capabilities="", first="1", renumbers=""):
    numbers = iter(range(int(first), int(first) + 1000))

    def notify(_, app, replaces, *rest):
        before_an_answer()
        return next(numbers) if renumbers or not replaces else replaces

    def tell_capabilities(_):
        return dbus.Array(filter(None, capabilities.split(",")), signature="s")

    return mock(bus, log, "org.freedesktop.Notifications",
                [("GetCapabilities", "", "as", tell_capabilities),
                 ("Notify", "susssasa{sv}i", "u", notify)])


def notifications_refusing(bus, log):
    def refuse(*_):
        raise dbus.exceptions.DBusException("not today", name="org.example.Refused")

    return mock(bus, log, "org.freedesktop.Notifications",
                [("GetCapabilities", "", "as", "ret = ['body']"),
                 ("Notify", "susssasa{sv}i", "u", refuse)])


def file_manager(bus, log, answer="well"):
    def show(*_):
        before_an_answer()
        if answer == "refuses":
            raise dbus.exceptions.DBusException("not today", name="org.example.Refused")

    return mock(bus, log, "org.freedesktop.FileManager1", [("ShowItems", "ass", "", show)])


def launcher(bus, log):
    """Logs what programs tell it by signals."""
    def updated(uri, properties):
        told = " ".join(f"{key}={properties[key]}" for key in sorted(properties))
        types = "".join(type(properties[key]).__name__[0] for key in sorted(properties))
        os.write(log.fileno(), f"0 {uri} {told} {types}\n".encode())

    bus.add_signal_receiver(updated, "Update", "com.canonical.Unity.LauncherEntry")
    bus.get_name_owner("org.freedesktop.DBus")  # by now the bus knows of the receiver
    return bus


KINDS = {
    "pausing": lambda bus, log: BEFORE_AN_ANSWER.append(pause),
    "dying": lambda bus, log, file: BEFORE_AN_ANSWER.append(lambda: die_once(file)),
    "notifications": notifications,
    "notifications-refusing": notifications_refusing,
    "filemanager": file_manager,
    "launcher": launcher,
}


def main(address, log_path, *kinds):
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.bus.BusConnection(address)
    with open(log_path, "ab", buffering=0) as log:
        services = [KINDS[name](bus, log, *parameters)
                    for name, *parameters in (kind.split(":") for kind in kinds)]
        assert len(services) == len(kinds)
        print("ready", flush=True)
        GLib.MainLoop().run()


main(*sys.argv[1:])
