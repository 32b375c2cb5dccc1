"""When the tuner listens, and what it shows when there is nothing to hear."""

import os
import subprocess

from desk import system_test
from desk.instruments import STEEL_GUITAR, Note
from desk.pulse_audio import PulseAudioRoom
from desk.readings import note
from desk.waiting import wait_until

GUITAR_A = Note(STEEL_GUITAR, 45)
NO_MICROPHONE = "No microphone is available."
# The toolkit's tester of events opens a window of this title.
OTHER_WINDOW = "Event Tester"


class Silence(system_test.SystemTest):
    def test_the_last_note_stays_on_display_in_silence(self) -> None:
        room = self.enter_room()
        tuner = self.start_listening(room, "guitar", "g6-standard")
        self.hear(tuner, room, GUITAR_A)
        silent = tuner.window.wait_for(lambda shown: shown.get("Status") == "Play a note")
        self.assertEqual(note(silent), "A2")
        self.assertEqual(silent["Cents"], "0.0 ¢")
        self.assertEqual(silent["Frequency"], "— Hz")
        self.assertNotIn("Heard note", silent)


class NoMicrophone(system_test.SystemTest):
    def test_a_server_that_only_has_the_sound_of_the_speaker_has_no_microphone(self) -> None:
        room = self.enter_another_room(PulseAudioRoom(self.desktop, microphone=False))
        self.assert_says_so(room.environment)

    def test_without_a_sound_server_there_is_no_microphone(self) -> None:
        self.assert_says_so(dict(os.environ))

    def assert_says_so(self, environment: dict[str, str]) -> None:
        tuner = self.start_tuner(self.desktop.folder("config"), environment)
        tuner.window.wait_for(lambda shown: shown.get("Microphone problem") == NO_MICROPHONE,
                              seconds=10)


class ListeningFollowsTheWindow(system_test.SystemTest):
    def test_a_minimised_window_does_not_listen(self) -> None:
        room = self.enter_room()
        tuner = self.start_listening(room, "guitar", "g6-standard")
        tuner.window.minimise()
        tuner.wait_until_listening(room, False)
        tuner.window.activate()
        tuner.wait_until_listening(room)
        self.assert_reads("A2", self.hear(tuner, room, GUITAR_A))

    def test_a_window_behind_another_goes_on_listening(self) -> None:
        room = self.enter_room()
        tuner = self.start_listening(room, "guitar", "g6-standard")
        self.open_other_window()
        self.assert_reads("A2", self.hear(tuner, room, GUITAR_A))

    def open_other_window(self) -> None:
        other = self.desktop.processes.start(["xev"])
        self.addCleanup(self.desktop.processes.end, other)
        wait_until(lambda: active_title() == OTHER_WINDOW, 10,
                   lambda: f"the active window is {active_title()}")


def active_title() -> str:
    return subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True,
                          text=True, timeout=10).stdout.strip()


if __name__ == "__main__":
    system_test.main()
