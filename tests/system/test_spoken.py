"""What a screen reader says while a string is tuned by its words alone. With CORVANE_WRITE set, puts
the transcript into docs/accessibility.md, of which the test asks whether it is still true."""

import os
import pathlib
import re
from typing import ClassVar, NamedTuple

from desk import system_test
from desk.instruments import STEEL_GUITAR, Note
from desk.plucked import write_plucked
from desk.pulse_audio import PulseAudioRoom
from desk.room import Room
from desk.screen import Screen
from desk.screen_reader import ScreenReader
from desk.system_test import SystemTest

DOCUMENT = pathlib.Path(__file__).resolve().parents[2] / "docs" / "accessibility.md"
BLOCK = re.compile(r"(?<=<!-- transcript -->\n```\n).*?(?=```\n)", re.DOTALL)

GUITAR_E = Note(STEEL_GUITAR, 40)
E2_HERTZ = 440 * 2 ** ((40 - 69) / 12)
# As a guitarist turns the peg between the plucks.
PLUCKS = (-40, -28, -16, -8, 0, 0, 0)
PLUCK_SECONDS = 1.8
WORDS_A_SECOND = 2  # of a meter
LATEST_SECONDS = 0.3  # by which an event may be late that another one is not
FLAT = re.compile(r"E2, (\d+) cents flat")
IN_TUNE = "E2, in tune"
# The detector is far better, but the words are rounded to whole cents.
MOST_CENTS_OFF = 1


class Step(NamedTuple):
    """What the guitarist did, and what was said until the next step."""

    done: str
    said: list[str]


class Spoken(SystemTest):
    room: ClassVar[Room]

    @classmethod
    def setUpClass(cls) -> None:
        cls.room = cls.enterClassContext(PulseAudioRoom(cls.desktop))

    def setUp(self) -> None:
        self.reader = self.enterContext(ScreenReader())
        tuner = self.start_listening(self.room, "guitar", "g6-standard")
        self.screen = Screen(tuner.process.pid)
        self.screen.activate()
        self.screen.rest_mouse()

    def test_a_string_is_tuned_by_what_is_said(self) -> None:
        self.screen.focus("Auto")
        self.reader.wait_for(lambda said: "Auto, selected, radio button, on" in said)
        steps = [self.press("Right", "E2, not selected, radio button"),
                 self.press("space", "selected")]
        steps += [self.pluck(cents) for cents in PLUCKS]
        sentences = [words for step in steps[2:] for words in step.said]
        self.assertEqual([len(step.said) for step in steps], [1, 1, 1, 1, 1, 1, 1, 0, 0])
        *flat, last = sentences
        self.assertEqual(last, IN_TUNE)
        for words, detuned in zip(flat, PLUCKS):
            self.assertAlmostEqual(int(FLAT.fullmatch(words)[1]), -detuned,
                                   delta=MOST_CENTS_OFF)
        self.assert_is_in_the_document("".join(map(line, steps)))

    def test_a_note_that_stays_in_tune_is_said_once(self) -> None:
        player = self.room.start_playing(self.plucked(0, 4))
        self.reader.wait_for(lambda said: IN_TUNE in said)
        self.reader.listen_while(lambda: player.poll() is None)
        self.assertEqual(self.reader.words.count(IN_TUNE), 1)
        for name in ("Cents: E2", "Fine: E2", "Level"):
            changes = [said for said in self.reader.changes if said.words.startswith(name)]
            self.assertTrue(changes, name)
            for before, after in zip(changes, changes[WORDS_A_SECOND:]):
                self.assertGreater(after.seconds - before.seconds, 1 - LATEST_SECONDS, name)

    def test_the_arrows_in_a_list_are_followed(self) -> None:
        self.screen.focus("Standard")
        for key, words in (("space", "Standard, checked"), ("Down", "Half step down"),
                           ("End", "12-string standard"), ("Home", "Standard, checked"),
                           ("d", "Drop D"), ("Escape", "Standard, button, E A D G B E")):
            self.press(key, words)

    def test_the_stepper_says_each_step(self) -> None:
        self.screen.focus("440  Modern")
        self.press("Tab", "Concert pitch in hertz, 440, spin button")
        self.press("Up", "441")
        self.press("Prior", "451")

    def test_a_chip_says_that_it_is_locked_and_that_it_is_heard(self) -> None:
        self.screen.find(name="Auto", description="on")
        self.screen.press(name="A2")
        self.screen.find(name="A2", description="locked")
        player = self.room.start_playing(self.band.wav(GUITAR_E))
        self.screen.find(name="A2", description="locked, being heard")
        player.wait()
        self.screen.press(name="Auto")
        self.screen.find(name="A2", description="")
        self.room.start_playing(self.band.wav(GUITAR_E))
        self.screen.find(name="E2", description="being heard")

    def test_the_meters_and_the_level_say_their_values(self) -> None:
        self.screen.find(name="Level", description="silent")
        self.screen.find(description="nothing heard", name="Fine")
        self.room.start_playing(self.plucked(-30, 4))
        self.screen.find(name="Fine", description="E2, more than 10 cents flat")
        wide, level = (next(item.description for item in self.screen.items()
                            if item.name == name and item.description) for name in ("Cents", "Level"))
        self.assertAlmostEqual(int(FLAT.fullmatch(wide)[1]), 30, delta=MOST_CENTS_OFF)
        self.assertRegex(level, r"^[1-9]\d*0 percent$")

    def press(self, key: str, words: str) -> Step:
        """A key, after which exactly this is said."""
        self.reader.forget()
        self.screen.keys(key)
        self.reader.wait_for(lambda said: words in said)
        self.assertEqual(self.said(), [words])
        return Step(f"[{key}]", [words])

    def pluck(self, cents: int) -> Step:
        self.reader.forget()
        player = self.room.start_playing(self.plucked(cents, PLUCK_SECONDS))
        self.reader.listen_while(lambda: player.poll() is None)
        return Step(f"a pluck, {-cents} cents down", self.said())

    def said(self) -> list[str]:
        """But for what is said of silence, which depends on how long this machine takes."""
        return [words for words in self.reader.words if words != "Play a note"]

    def plucked(self, cents: float, seconds: float) -> pathlib.Path:
        path = self.desktop.folder("string") / "plucked.wav"
        return write_plucked(path, E2_HERTZ * 2 ** (cents / 1200), seconds)

    def assert_is_in_the_document(self, transcript: str) -> None:
        """But for what its numbers may be off."""
        document = DOCUMENT.read_text(encoding="utf-8")
        if "CORVANE_WRITE" in os.environ:
            document = BLOCK.sub(lambda _: transcript, document)
            DOCUMENT.write_text(document, encoding="utf-8")
        written = BLOCK.search(document)[0]
        number = re.compile(r"\d+")
        self.assertEqual(number.sub("", written), number.sub("", transcript))
        for one, other in zip(number.findall(written), number.findall(transcript)):
            self.assertAlmostEqual(int(one), int(other), delta=MOST_CENTS_OFF)


def line(step: Step) -> str:
    return f"{step.done:<26}{' / '.join(step.said) or '(nothing)'}\n"


if __name__ == "__main__":
    system_test.main()
