# SPDX-License-Identifier: MIT
"""What the program connects to, writes, starts and loads, from a trace of its system calls."""

import os
import pathlib
import re
import time
from typing import ClassVar

from desk import system_test
from desk.browser import Browser
from desk.controls import LEFT_HANDED, PLAY, POLICY, Controls
from desk.plucked import write_plucked
from desk.pulse_audio import PulseAudioRoom
from desk.settings import settings_file
from desk.trace import Trace
from desk.tuner import Tuner

GUITAR_A = 45

# Files that a careless program would load from the working directory.
DECOYS = ("qt.conf", "Corvane/qmldir", "Corvane/Main.qml", "QtQuick/qmldir", "QtQml/qmldir",
          "QtQuick/libqtquick2plugin.so", "QtQml/libqmlplugin.so", "Main.qml", "qmldir",
          "platforms/libqxcb.so", "plugins/platforms/libqxcb.so", "imageformats/libqsvg.so",
          "platformthemes/libqgtk3.so", "styles/libstyle.so", "libQt6Core.so.6", "libpulse.so.0",
          "platforminputcontexts/libibusplatforminputcontextplugin.so", "qml/QtQuick/qmldir")
CODE = re.compile(r"\.(qml|qmlc|js|jsc|mjs|so(\.\d+)*)$|/(qmldir|qt\.conf)$")


class Privacy(system_test.SystemTest):
    trace: ClassVar[Trace]

    @classmethod
    def setUpClass(cls) -> None:
        """Traces a session with every action, then the privacy page."""
        cls.home = cls.desktop.folder("home")
        cls.place = cls.desktop.folder("place")
        for folder in (cls.home, cls.place, cls.home / ".local/lib/qt6", cls.home / ".config"):
            lay_decoys(folder)
        cls.browser = Browser(cls.desktop)
        cls.program = pathlib.Path(os.environ["CORVANE_PROGRAM"])
        cls.trace = Trace(cls.desktop.folder("trace"), cls.program, cls.place)
        with PulseAudioRoom(cls.desktop) as room:
            cls.sound = room.environment["XDG_RUNTIME_DIR"]
            environment = {**room.environment, **cls.browser.environment, "HOME": str(cls.home)}
            with Tuner(cls.desktop, cls.trace.command, cls.home / ".config", environment) as tuner:
                tuner.wait_until_listening(room)
                cls.play(tuner, room)
                cls.status = tuner.quit()
        cls.trace.wait_until_complete()

    @classmethod
    def play(cls, tuner: Tuner, room: PulseAudioRoom) -> None:
        window = tuner.window
        with room.sounding(write_plucked(cls.desktop.folder("string") / "a.wav", GUITAR_A)):
            window.wait_for(lambda shown: shown.get("Note") == "A")
        with room.recording() as recording:
            window.press(name=PLAY)
            recording.wait_for_tone(110.0)
        window.press(name=LEFT_HANDED)
        window.press(name="415 Hz")
        window.press(name="Bass")
        Controls(window, cls.home / ".config").wait_until_saved(left="true", a4="415",
                                                                instrument="bass")
        cls.page_wanted = time.time()
        window.press(name=POLICY)
        cls.browser.wait_for_addresses(1)

    def test_session_succeeds(self) -> None:
        self.assertEqual(self.status, 0)
        print(f"figure: calls looked at = {len(self.trace.calls())}")

    def test_connects_only_to_display_audio_server_and_session_bus(self) -> None:
        display = f"/tmp/.X11-unix/X{os.environ['DISPLAY'].removeprefix(':')}"
        session_bus = re.search(r"unix:path=([^,]+)", os.environ["DBUS_SESSION_BUS_ADDRESS"])[1]
        needed = {f"{self.sound}/pulse/native", session_bus}
        seen = {accessibility_bus(path) for path in self.trace.connections()}
        self.assertLessEqual(needed, seen)
        self.assertTrue({display, f"@{display}"} & seen, seen)
        self.assertLessEqual(seen, needed | {display, f"@{display}", "the accessibility bus"})

    def test_writes_only_its_preferences(self) -> None:
        preferences = settings_file(self.home / ".config")
        ours = {str(preferences.parent), str(preferences), f"{preferences}.new"}
        theirs = {
            # libpulse's cookie.
            str(self.home / ".config/pulse"), str(self.home / ".config/pulse/cookie"),
        }
        # fontconfig's cache, if the system's is out of date.
        fonts = str(self.home / ".cache/fontconfig")
        written = {name: how for name, how in self.trace.written().items()
                   if not name.startswith(fonts)}
        self.assertIn(str(preferences), written)
        self.assertEqual({name: how for name, how in written.items()
                          if name not in ours | theirs}, {})

    def test_starts_only_the_url_opener_on_request(self) -> None:
        started = self.trace.started()
        self.assertEqual([call.texts[0] for call in started],
                         [str(self.program), str(self.browser.program)])
        self.assertGreaterEqual(started[1].time, self.page_wanted)

    def test_loads_no_code_from_working_or_home_directory(self) -> None:
        tried = self.trace.tried()
        self.assertTrue([name for name in tried if CODE.search(name)], "the trace has loaded code")
        relative = {name for name in tried if not name.startswith("/")}
        theirs = {name for name in tried
                  if name.startswith((f"{self.home}/", f"{self.place}/"))}
        self.assertEqual({name for name in relative | theirs if CODE.search(name)}, set())
        self.assertEqual({name for name in theirs if name.startswith(f"{self.place}/")}, set())


def accessibility_bus(path: str) -> str:
    return "the accessibility bus" if re.search(r"/at-spi/bus(_\d+)?$", path) else path


def lay_decoys(folder: pathlib.Path) -> None:
    for name in DECOYS:
        decoy = folder / name
        decoy.parent.mkdir(parents=True, exist_ok=True)
        decoy.write_text("not code; loading it fails\n")


if __name__ == "__main__":
    system_test.main()
