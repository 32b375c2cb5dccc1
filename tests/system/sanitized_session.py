"""A session with a program that was built with the sanitizers, none of which has anything to say."""

import os
import pathlib
import time

from desk import system_test
from desk.controls import LEFT_HANDED, Controls
from desk.instruments import STEEL_GUITAR, Note
from desk.library import BASS
from desk.pull_down import PullDown
from desk.pulse_audio import PulseAudioRoom
from desk.room import Room
from desk.screen import Screen
from desk.tuner import Tuner

GUITAR_A = Note(STEEL_GUITAR, 45)


class UnderTheSanitizers(system_test.SystemTest):
    maxDiff = None  # a report is as long as it is

    def test_a_session_gives_no_cause_for_a_report(self) -> None:
        program = pathlib.Path(os.environ["CORVANE_PROGRAM"])
        self.assertIn(b"__asan_init", program.read_bytes(), "built without the sanitizers")
        reports = self.desktop.folder("reports")
        self.config_home = self.desktop.folder("config")
        room = self.enter_room()
        log = f"log_path={reports}/report"
        began = time.monotonic()
        tuner = self.start_tuner(self.config_home, {
            **room.environment, "ASAN_OPTIONS": f"detect_leaks=1:{log}",
            "UBSAN_OPTIONS": f"print_stacktrace=1:{log}"})
        self.go_through(tuner, room)
        status = tuner.quit()
        told = "\n".join(report.read_text() for report in reports.iterdir())
        self.assertEqual((status, told), (0, ""))
        print(f"figure: seconds under the sanitizers without a report = "
              f"{time.monotonic() - began:.0f}")

    def go_through(self, tuner: Tuner, room: Room) -> None:
        tuner.wait_until_listening(room)
        self.assert_reads("A2", self.hear(tuner, room, GUITAR_A))
        self.play_the_tone(tuner)
        screen = Screen(tuner.process.pid)
        self.use_every_kind_of_control(screen, Controls(screen, self.config_home))
        tuner.window.minimise()
        tuner.wait_until_listening(room, False)
        tuner.window.activate()
        tuner.wait_until_listening(room)
        self.lose_the_server(tuner, room)

    def play_the_tone(self, tuner: Tuner) -> None:
        tuner.window.click("Play reference")
        tuner.window.wait_for(lambda shown: shown.get("Status") == "Playing reference")
        tuner.window.wait_for(lambda shown: shown.get("Status") == "Play a note")

    def use_every_kind_of_control(self, screen: Screen, controls: Controls) -> None:
        screen.activate()
        screen.press(name="Bass")
        screen.press(name=LEFT_HANDED)
        screen.press(name="Raise")
        screen.press(name="415 Hz")
        with PullDown(screen, controls.tuning_face()) as opened:
            opened.choose(BASS[7].name, [tuning.name for tuning in BASS])
        with PullDown(screen, controls.presets_face()):
            pass
        with PullDown(screen, screen.find(name="Help")) as opened:
            self.assertEqual(opened.titles(), ["Privacy Policy"])
        screen.press(name="E1")
        controls.wait_until_locked("E1")
        controls.wait_until_saved(instrument="bass", tuning=BASS[7].id, a4="415", left="true")
        screen.press(name="Guitar")
        screen.resize(420, 700)
        screen.resize(1000, 1200)

    def lose_the_server(self, tuner: Tuner, room: PulseAudioRoom) -> None:
        room.crash()
        tuner.window.wait_for(lambda shown: "Microphone problem" in shown)
        room.open()
        tuner.wait_until_listening(room)
        self.assert_reads("A2", self.hear(tuner, room, GUITAR_A))


if __name__ == "__main__":
    system_test.main()
