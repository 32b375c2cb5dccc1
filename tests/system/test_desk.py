"""The private desktop itself: sound travels on it, and nothing of it stays behind."""

import pathlib
import signal
import subprocess
import sys

from desk import system_test
from desk.instruments import GRAND_PIANO, Note
from desk.pipewire import PipeWireRoom
from desk.pulse_audio import PulseAudioRoom
from desk.recording import RATE, first_sound, power
from desk.room import Room
from desk.waiting import wait_until

# In power: 20 dB. A quarter of a second of one tone leaks 26 dB less than itself to 26 Hz away.
LOUDER = 100

OPEN_A_DESKTOP = """
import signal
from desk.desktop import PrivateDesktop
from desk.pulse_audio import PulseAudioRoom
with PrivateDesktop() as desktop, PulseAudioRoom(desktop, microphone=False):
    print(desktop.root, flush=True)
    {then}
"""


class SoundInTheRoom(system_test.SystemTest):
    def test_the_microphone_hears_what_is_played_on_pulseaudio(self) -> None:
        self.assert_is_heard(self.enterContext(PulseAudioRoom(self.desktop)))

    def test_the_microphone_hears_what_is_played_on_pipewire(self) -> None:
        self.assert_is_heard(self.enterContext(PipeWireRoom(self.desktop)))

    def assert_is_heard(self, room: Room) -> None:
        with room.record(RATE) as recorder:
            self.addCleanup(recorder.kill)
            room.start_playing(self.band.wav(Note(GRAND_PIANO, 69)))
            heard = first_sound(recorder.stdout)
            recorder.terminate()
        semitone_up = 440.0 * 2 ** (1 / 12)
        self.assertGreater(power(heard, 440.0), LOUDER * power(heard, semitone_up))


class NothingStays(system_test.SystemTest):
    def test_when_it_is_left(self) -> None:
        self.assert_ends(then="pass", status=0)

    def test_when_something_fails_on_it(self) -> None:
        self.assert_ends(then="1 / 0", status=1)

    def test_when_it_is_interrupted(self) -> None:
        self.assert_ends(then="signal.pause()", send=signal.SIGINT, status=-signal.SIGINT)

    def test_when_it_is_asked_to_end(self) -> None:
        self.assert_ends(then="signal.pause()", send=signal.SIGTERM, status=-signal.SIGINT)

    def test_no_program_runs_on_when_it_is_killed(self) -> None:
        with open_desktop("signal.pause()") as opened:
            root = opened.stdout.readline().strip()
            self.assertTrue(programs_of(root))
            opened.kill()
        wait_until(lambda: not programs_of(root), 10, lambda: f"left: {programs_of(root)}")

    def assert_ends(self, then: str, status: int, send: signal.Signals | None = None) -> None:
        with open_desktop(then) as opened:
            root = opened.stdout.readline().strip()
            if send:
                self.assertTrue(programs_of(root))
                opened.send_signal(send)
        self.assertEqual(opened.returncode, status)
        self.assertFalse(pathlib.Path(root).exists())
        self.assertEqual(programs_of(root), [])


def open_desktop(then: str) -> subprocess.Popen:
    """Another desktop, in a process of its own; the folder of its files is the first line that it
    prints."""
    return subprocess.Popen([sys.executable, "-c", OPEN_A_DESKTOP.format(then=then)], text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                            cwd=pathlib.Path(__file__).parent)


def programs_of(root: str) -> list[str]:
    """The running programs that were started on the desktop with its files in `root`."""
    found = []
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if f"={root}/".encode() in (process / "environ").read_bytes():
                found.append((process / "comm").read_text().strip())
        except OSError:  # It ended meanwhile, or is another user's.
            continue
    return found


if __name__ == "__main__":
    system_test.main()
