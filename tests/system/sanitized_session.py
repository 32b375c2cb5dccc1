"""A session with a program that was built with the sanitizers, none of which has anything to say."""

import os
import pathlib
import time

from desk import system_test
from desk.controls import LEFT_HANDED, PLAY, POLICY
from desk.pull_down import PullDown
from desk.pulse_audio import PulseAudioRoom
from desk.tuner import Tuner

GUITAR_A = 45


class UnderTheSanitizers(system_test.SystemTest):
    def test_a_session_gives_no_cause_for_a_report(self) -> None:
        program = pathlib.Path(os.environ["CORVANE_PROGRAM"])
        self.assertIn(b"__asan_init", program.read_bytes(), "built without the sanitizers")
        reports = self.desktop.folder("reports")
        room = self.enter_room()
        log = f"log_path={reports}/report"
        began = time.monotonic()
        tuner = self.open(room, ASAN_OPTIONS=f"detect_leaks=1:{log}",
                          UBSAN_OPTIONS=f"print_stacktrace=1:{log}")
        self.go_through(tuner, room)
        status = tuner.quit()
        told = "\n".join(report.read_text() for report in reports.iterdir())
        self.assertEqual((status, told), (0, ""))
        print(f"figure: seconds under the sanitizers without a report = "
              f"{time.monotonic() - began:.0f}")

    def go_through(self, tuner: Tuner, room: PulseAudioRoom) -> None:
        self.hear(tuner, room, self.plucked(GUITAR_A), "A2", "In tune")
        with room.recording() as recording:
            tuner.window.press(name=PLAY)
            self.assertTrue(recording.wait_for_tone(110.0))
        self.use_every_kind_of_control(tuner)
        tuner.window.minimise()
        tuner.wait_until_listening(room, False)
        tuner.window.activate()
        tuner.wait_until_listening(room)
        room.crash()
        tuner.window.wait_for(lambda shown: "Microphone problem" in shown)
        room.open()
        tuner.wait_until_listening(room)
        self.hear(tuner, room, self.plucked(GUITAR_A), "A2", "In tune")

    def use_every_kind_of_control(self, tuner: Tuner) -> None:
        window = tuner.window
        for name in ("Bass", LEFT_HANDED, "Raise", "415 Hz"):
            window.press(name=name)
        with PullDown(window, self.controls.tuning_face()) as opened:
            opened.choose("5-string drop A")
        with PullDown(window, self.controls.presets_face()):
            pass
        with PullDown(window, window.find(name="Help")) as opened:
            self.assertEqual(opened.titles(), [POLICY])
        window.press(name="E1")
        self.controls.wait_until_locked("E1")
        self.controls.wait_until_saved(instrument="bass", tuning="b5-dropa", a4="415", left="true")
        window.press(name="Guitar")
        window.resize(420, 700)
        window.resize(1000, 1200)


if __name__ == "__main__":
    system_test.main()
