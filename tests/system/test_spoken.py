"""What a screen reader says while a string is tuned by its words alone. With CORVANE_WRITE set, puts
the transcript into docs/accessibility.md, of which the test asks whether it is still true."""

import math
import os
import pathlib
import re
import time
from typing import NamedTuple

import pyatspi

from desk import system_test
from desk.instruments import STEEL_GUITAR, Note
from desk.plucked import write_plucked
from desk.screen import Screen
from desk.screen_reader import ScreenReader
from desk.system_test import SystemTest
from desk.waiting import wait_until

DOCUMENT = pathlib.Path(__file__).resolve().parents[2] / "docs" / "accessibility.md"
BLOCK = re.compile(r"(?<=<!-- transcript -->\n```\n).*?(?=```\n)", re.DOTALL)

GUITAR_E = Note(STEEL_GUITAR, 40)
E2_HERTZ = 440 * 2 ** ((40 - 69) / 12)
# As a guitarist turns the peg between the plucks.
PLUCKS = (-40, -28, -16, -8, 0, 0, 0)
IS_NEWS = (True, True, True, True, True, False, False)
# A string that sounds for longer than it takes to say something of it, on a slow machine too. The
# guitarist goes on as soon as something is said.
PLUCK_SECONDS = 4.0
# And when nothing is said, after this, which is longer than anything is waited for with it.
NOTHING_SECONDS = 1.8
SAID_SECONDS = 10.0
WORDS_A_SECOND = 2  # of a meter
SILENCE = "Play a note"
FLAT = re.compile(r"E2, (\d+) cents flat")
IN_TUNE = "E2, in tune"
# The detector is far better, but the words are rounded to whole cents.
MOST_CENTS_OFF = 1


class Step(NamedTuple):
    """What the guitarist did, and what was said until the next step."""

    done: str
    said: list[str]


class Spoken(SystemTest):
    def setUp(self) -> None:
        self.room = self.enter_room()
        self.reader = self.enterContext(ScreenReader())
        tuner = self.start_listening(self.room, "guitar", "g6-standard")
        self.screen = Screen(tuner.process.pid)
        self.screen.activate()
        self.screen.rest_mouse()

    def test_a_string_is_tuned_by_what_is_said(self) -> None:
        # At once, while it can be asked for; what takes long, later.
        self.reader.wait_for(lambda said: SILENCE in said)
        strings = {cents: self.plucked(cents, PLUCK_SECONDS) for cents in set(PLUCKS)}
        self.screen.focus("Auto")
        self.reader.wait_for(lambda said: "Auto, selected, radio button, on" in said)
        steps = [self.press("Right", "E2, not selected, radio button"),
                 self.press("space", "selected")]
        steps += [self.pluck(cents, strings[cents], is_news)
                  for cents, is_news in zip(PLUCKS, IS_NEWS)]
        sentences = [words for step in steps[2:] for words in step.said]
        self.assertEqual([len(step.said) for step in steps[2:]], [int(news) for news in IS_NEWS])
        *flat, last = sentences
        self.assertEqual(last, IN_TUNE)
        for words, detuned in zip(flat, PLUCKS):
            self.assertAlmostEqual(int(FLAT.fullmatch(words)[1]), -detuned,
                                   delta=MOST_CENTS_OFF)
        self.assert_is_in_the_document("".join(map(line, steps)))

    def test_a_note_that_stays_in_tune_is_said_once(self) -> None:
        string = self.plucked(0, 4)
        self.reader.forget()
        began = time.monotonic()
        player = self.room.start_playing(string)
        self.reader.wait_for(lambda said: IN_TUNE in said, SAID_SECONDS)
        self.reader.listen_while(lambda: player.poll() is None)
        self.hear_the_rest()
        seconds = time.monotonic() - began
        self.assertEqual(self.reader.words.count(IN_TUNE), 1)
        for name in ("Cents: E2", "Fine: E2", "Level"):
            changes = [said for said in self.reader.changes if said.words.startswith(name)]
            self.assertTrue(changes, name)
            # However late some of them may have come, all were within this time.
            self.assertLessEqual(len(changes), WORDS_A_SECOND * seconds + 1, name)

    def test_the_arrows_in_a_list_and_the_steps_of_the_stepper_are_followed(self) -> None:
        self.reader.wait_for(lambda said: SILENCE in said)
        self.screen.focus("Standard")
        for key, words in (("space", "Standard, checked"), ("Down", "Half step down"),
                           ("End", "12-string standard"), ("Home", "Standard, checked"),
                           ("d", "Drop D"), ("Escape", "Standard, button, E A D G B E")):
            self.press(key, words)
        self.screen.focus("440  Modern")
        self.press("Tab", "Concert pitch in hertz, 440, spin button")
        self.press("Up", "441")
        self.press("Prior", "451")

    def test_nothing_of_it_stays_behind_another_window(self) -> None:
        self.reader.wait_for(lambda said: SILENCE in said)
        self.wait_for_announcement("")
        player = self.room.start_playing(self.plucked(-30, 8))
        self.reader.wait_for(lambda said: FLAT.fullmatch(said[-1]), SAID_SECONDS)
        self.wait_for_announcement(self.reader.words[-1])
        self.open_other_window()
        self.assertIsNone(player.poll())
        self.wait_for_announcement("")

    def wait_for_announcement(self, words: str) -> None:
        """Until a reader of the screen finds it; "" for none."""
        wait_until(lambda: "".join(self.screen.names(pyatspi.ROLE_NOTIFICATION)) == words,
                   SAID_SECONDS, lambda: f"{self.screen.names(pyatspi.ROLE_NOTIFICATION)}")

    def open_other_window(self) -> None:
        other = self.desktop.processes.start(["xev"])
        self.addCleanup(self.desktop.processes.end, other)

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
        # A string is some cents sharper while it is being plucked.
        wait_until(lambda: abs(self.cents_flat() - 30) <= MOST_CENTS_OFF, SAID_SECONDS,
                   lambda: f"{self.cents_flat()} cents flat")
        self.assertRegex(self.description_of("Level"), r"^[1-9]\d*0 percent$")

    def description_of(self, name: str) -> str:
        return next(item.description for item in self.screen.items()
                    if item.name == name and item.description)

    def cents_flat(self) -> float:
        words = FLAT.fullmatch(self.description_of("Cents"))
        return float(words[1]) if words else math.nan

    def press(self, key: str, words: str) -> Step:
        """A key, after which exactly this is said."""
        self.reader.forget()
        self.screen.keys(key)
        self.reader.wait_for(lambda said: words in said)
        self.hear_the_rest()
        self.assertEqual(self.reader.words, [words])
        return Step(f"[{key}]", [words])

    def pluck(self, cents: int, string: pathlib.Path, is_news: bool) -> Step:
        self.reader.forget()
        player = self.room.start_playing(string)
        if is_news:
            self.reader.wait_for(lambda said: said, SAID_SECONDS)
        else:
            end = time.monotonic() + NOTHING_SECONDS
            self.reader.listen_while(lambda: time.monotonic() < end)
        self.assertIsNone(player.poll(), "the string sounds no more")
        self.hear_the_rest()
        self.desktop.processes.end(player)
        return Step(f"a pluck, {-cents} cents down", list(self.reader.words))

    def hear_the_rest(self) -> None:
        """What was said before now, which comes no later than the answer to a question."""
        self.screen.frame()
        self.reader.listen()

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
