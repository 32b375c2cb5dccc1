"""What the user sees when the sound goes away, and when it is back."""

import time
from collections.abc import Callable

from desk import system_test
from desk.instruments import STEEL_GUITAR, Note
from desk.pipewire import PipeWireRoom
from desk.pulse_audio import PulseAudioRoom
from desk.readings import Reading, is_heard, note
from desk.room import Room
from desk.tuner import Tuner

NO_MICROPHONE = "No microphone is available."
ALLOW = "Allow Microphone"
PROBLEM = "Microphone problem"
STALE_SECONDS = 1.0
BACK_SECONDS = 2.0
# Long enough to sound, one after the other, through whatever is looked at.
GUITAR_A = Note(STEEL_GUITAR, 45, seconds=4.0)
GUITAR_D = Note(STEEL_GUITAR, 50, seconds=4.0)


class Faults(system_test.SystemTest):
    def test_on_pulseaudio_the_right_note_is_back_after_every_fault(self) -> None:
        self.go_through_faults(self.enterContext(PulseAudioRoom(self.desktop)))

    def test_on_pipewire_the_right_note_is_back_after_every_fault(self) -> None:
        self.go_through_faults(self.enterContext(PipeWireRoom(self.desktop)))

    def go_through_faults(self, room: Room) -> None:
        tuner = self.start_listening(room, "guitar", "g6-standard")
        self.go_through(tuner, room, "server killed", room.crash, room.open)
        self.go_through(tuner, room, "microphone unplugged", room.unplug, room.plug_in)

    def go_through(self, tuner: Tuner, room: Room, title: str, fault: Callable[[], None],
                   repair: Callable[[], None]) -> None:
        title = f"{title}, {type(room).__name__.removesuffix('Room')}"
        before = room.start_playing(self.band.wav(GUITAR_A))
        self.wait_for_note(tuner, "A2", seconds=5)
        fault()
        self.assert_note_goes_out(tuner, title)
        tuner.window.wait_for(lambda shown: shown.get(PROBLEM) == NO_MICROPHONE)
        tuner.window.click(ALLOW)
        tuner.window.wait_for(lambda shown: shown.get(PROBLEM) == NO_MICROPHONE)
        self.desktop.processes.end(before)
        after = self.band.wav(GUITAR_D)
        repair()
        back = time.monotonic()
        player = room.start_playing(after)
        shown = self.wait_for_note(tuner, "D3", seconds=BACK_SECONDS)
        print(f"figure: {title}: seconds until the next note is shown after the repair = "
              f"{time.monotonic() - back:.2f}")
        self.desktop.processes.end(player)
        self.assertNotIn(PROBLEM, shown)
        self.assertNotIn(ALLOW, tuner.window.buttons())

    def wait_for_note(self, tuner: Tuner, name: str, seconds: float) -> Reading:
        return tuner.window.wait_for(lambda shown: is_heard(shown) and note(shown) == name, seconds)

    def assert_note_goes_out(self, tuner: Tuner, title: str) -> None:
        """What is read in one look was shown, at the latest, when the look began."""
        began = time.monotonic()
        look, shown = began, tuner.window.read()
        while is_heard(shown):
            self.assertLess(look - began, STALE_SECONDS, f"{title}, and still {shown}")
            look, shown = time.monotonic(), tuner.window.read()
        print(f"figure: {title}: seconds for which the last note stays lit = {look - began:.2f}")


if __name__ == "__main__":
    system_test.main()
