# SPDX-License-Identifier: MIT
"""The private desktop: display, session bus, accessibility bus and window manager."""

import contextlib
import os
import pathlib
import signal
import subprocess
import tempfile

from .processes import Processes
from .waiting import EVENTUALLY_SECONDS, wait_until

Size = tuple[int, int]  # in pixels
SCREEN = (2560, 1440)  # room for a very large window

_DESKTOP_VARIABLES = ("DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY", "SESSION_MANAGER", "LANGUAGE")
_DESKTOP_PREFIXES = ("DBUS_", "AT_SPI_", "PULSE_", "PIPEWIRE_", "WIREPLUMBER_", "XDG_", "QT_",
                     "QSG_", "LC_")


class PrivateDesktop(contextlib.ExitStack):
    """A context that moves this process and the programs that it starts to a private desktop, through `os.environ`.
    Leaving it, also by SIGINT or SIGTERM, ends every program on it and removes its files. One per process: the
    accessibility library binds to the first.

    Without `read_aloud` no assistive technology is active, which saves the programs work."""

    def __init__(self, read_aloud: bool = True, screen: Size = SCREEN):
        super().__init__()
        self._read_aloud = read_aloud
        self._screen = screen

    def __enter__(self) -> "PrivateDesktop":
        super().__enter__()
        with contextlib.ExitStack() as undo_if_this_fails:
            undo_if_this_fails.push(self.__exit__)
            self._open()
            undo_if_this_fails.pop_all()
        return self

    def __exit__(self, *exception) -> bool | None:
        # A second signal must not interrupt the cleanup.
        blocked = signal.pthread_sigmask(signal.SIG_BLOCK, {signal.SIGINT, signal.SIGTERM})
        try:
            return super().__exit__(*exception)
        finally:
            signal.pthread_sigmask(signal.SIG_SETMASK, blocked)

    def folder(self, purpose: str) -> pathlib.Path:
        """A new empty folder that only this user can enter, as XDG_RUNTIME_DIR has to be."""
        return pathlib.Path(tempfile.mkdtemp(prefix=f"{purpose}-", dir=self.root))

    @property
    def picture(self) -> pathlib.Path:
        """The display's current content, a memory-mapped file in the format of xwd."""
        return self.root / "Xvfb_screen0"

    def _open(self) -> None:
        self._end_on_signals()
        self.root = pathlib.Path(self.enter_context(
            tempfile.TemporaryDirectory(prefix="corvane-desktop-", ignore_cleanup_errors=True)))
        self.processes = Processes(self.folder("logs"))
        self.callback(self.processes.end_all)
        self._move_in()
        self._start_display(self._screen, "-fbdir", str(self.root))
        self._start_session_bus()
        self._start_accessibility_bus()
        self._start_window_manager()

    def _end_on_signals(self) -> None:
        def interrupt(*_) -> None:
            raise KeyboardInterrupt

        for number in (signal.SIGTERM, signal.SIGHUP):
            self.callback(signal.signal, number, signal.signal(number, interrupt))

    def _move_in(self) -> None:
        before = dict(os.environ)
        self.callback(lambda: (os.environ.clear(), os.environ.update(before)))
        for name in before:
            if name in _DESKTOP_VARIABLES or name.startswith(_DESKTOP_PREFIXES):
                del os.environ[name]
        os.environ.update(
            TMPDIR=str(self.folder("tmp")), HOME=str(self.folder("home")),
            XDG_RUNTIME_DIR=str(self.folder("run")),
            XDG_CONFIG_HOME=str(self.folder("config")), LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb")
        if self._read_aloud:
            os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"

    def _start_display(self, screen: Size, *options: str) -> None:
        number = self._start_and_read_line(
            "Xvfb", "-displayfd", "{fd}", "-screen", "0", f"{screen[0]}x{screen[1]}x24",
            "-nolisten", "tcp", "-noreset", *options)
        os.environ["DISPLAY"] = f":{number}"
        # The first key switches to xdotool's keyboard. The window manager then grabs its keys again, and
        # would lose one pressed meanwhile.
        subprocess.run(["xdotool", "key", "Shift_L"], check=True, timeout=EVENTUALLY_SECONDS)

    def _start_session_bus(self) -> None:
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._start_and_read_line(
            "dbus-daemon", "--session", "--nofork", "--nopidfile",
            f"--address=unix:path={self.root}/bus", "--print-address={fd}")

    def _start_accessibility_bus(self) -> None:
        self._start_and_wait(
            ["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"],
            ["dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
             "org.freedesktop.DBus.GetNameOwner", "string:org.a11y.Bus"])
        subprocess.run(
            ["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus",
             "org.freedesktop.DBus.Properties.Set", "string:org.a11y.Status", "string:IsEnabled",
             f"variant:boolean:{str(self._read_aloud).lower()}"],
            check=True, stdout=subprocess.DEVNULL, timeout=EVENTUALLY_SECONDS)

    def _start_window_manager(self) -> None:
        self._start_and_wait(["openbox", "--sm-disable"], ["xdotool", "get_num_desktops"])

    def _start_and_wait(self, command: list[str], is_ready: list[str]) -> None:
        self.processes.start(command)
        wait_until(lambda: subprocess.run(is_ready, capture_output=True).returncode == 0,
                   lambda: self.processes.last_words(command[0]))

    def _start_and_read_line(self, *command: str) -> str:
        """Starts a program that writes its address to the descriptor `{fd}`."""
        told, tell = os.pipe()
        with os.fdopen(told) as answer:
            try:
                self.processes.start([part.format(fd=tell) for part in command], pass_fds=(tell,))
            finally:
                os.close(tell)
            line = answer.readline().strip()
        if not line:
            raise RuntimeError(self.processes.last_words(command[0]))
        return line
