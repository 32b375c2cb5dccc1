"""What the program promises, and what shows it."""

from typing import NamedTuple


class Promise(NamedTuple):
    """Shown either by tests of a preset, whose names are the matches of a pattern, or by a command
    that takes too long for ./check and prints its own figures."""

    text: str
    tests: str = ""
    preset: str = "dev"
    command: str = ""
    figures: str = ".*"  # those that tell of it, of all that its tests print

    @property
    def shown_by(self) -> str:
        return self.command or f"ctest --preset {self.preset} -R '{self.tests}'"


def _fault(name: str) -> str:
    return rf"pulse_test\..*Faults\.{name}/"


GROUPS: dict[str, list[Promise]] = {
    "It goes on listening": [
        Promise("The audio server is killed and comes back: the sound comes back, on "
                "PulseAudio and on PipeWire, and nothing is leaked",
                _fault("TheServerIsKilledAndComesBack")),
        Promise("The audio server hangs, shortly or until we give it up",
                _fault("TheServerHangs.*")),
        Promise("The audio server starts only after the program",
                r"pulse_test\..*Absence\.AServerThatStartsLater.*"),
        Promise("The input is unplugged and another one is plugged in",
                _fault("TheOnlyMicrophoneIsUnplugged.*")),
        Promise("The default input changes, also to another rate and channel count",
                _fault("TheDefaultChanges.*")),
        Promise("The user moves the recording in the mixer",
                _fault("TheUserMovesTheRecording.*")),
        Promise("The input is muted or suspended (a virtual one of PipeWire has to be opened anew "
                "after the latter)", _fault("TheMicrophoneIs(Muted|Suspended)")),
        Promise("The recording merely ends", _fault("TheServerEndsTheRecording")),
        Promise("The system has no descriptor left when the server is sought",
                r"pulse_test\..*Shortage.*"),
        Promise("No buffer joins two devices or two moments",
                r"pulse_test\..*(Faults|Restart\.SoundFromBefore).*",
                figures="rounds|buffers"),
        Promise("The program itself, on the screen: no stale note, the message and its button while "
                "there is no input, and the right note after the return, on either server",
                r"system\.servers"),
        Promise("Whatever call of the audio library fails, once or for good, ends in listening or "
                "in one of the four messages, and leaks nothing",
                r"pulse_(test\.FailingCalls\.|unit_test\.every_call).*"),
        Promise("An hour of a guitar: nothing grows, and every string is shown",
                command="bench/hour"),
        Promise("24 hours of audio through pipeline and engine: memory flat, and the last hour's "
                "results those of the first to the bit", command="bench/soak"),
    ],
    "It loses nothing": [
        Promise("The preferences file is corrupt, empty, a folder, a pipe, unreadable or read-only: "
                "the program starts with valid values and loses none that was saved",
                r"qt_test\.(PreferencesFaults\.(AnEmpty|WhatIsStill|AFolder|APipe|"
                r"ALink)|OfAnotherUser).*"),
        Promise("The disk is full, or so slow that a choice is made while it writes",
                r"qt_test\..*(AFullDisk|SettingsWriterTest.*Disk).*"),
        Promise("Two programs save at once",
                r"(qt_test\.(Preferences|SettingsWriter).*(OfTwoPrograms|Another).*|"
                r"system\.controls)"),
        Promise("The program is killed while it saves",
                r"qt_test\..*IsKilledWhileItWrites.*"),
        Promise("The whole program starts with whatever stands in the file", r"system\.controls"),
        Promise("Any input to the detector, the pipeline, the engine, the preferences and the "
                "replay tool", command="fuzz/run"),
    ],
    "It keeps nothing": [
        Promise("It talks to the display, the audio server and D-Bus alone, writes its preferences "
                "alone, starts no program that nobody asked for, and loads no code from the working "
                "directory or the user's home", r"system\.privacy"),
        Promise("It is position independent, read-only after relocation, bound at once, without an "
                "executable stack, and built with stack, library call and control flow checks",
                r"policy\.hardening"),
    ],
    "It does what C++ defines": [
        Promise("Every plain C++ test under AddressSanitizer and UndefinedBehaviorSanitizer",
                r"[a-z]+_test\..*", preset="asan"),
        Promise("Every plain C++ test under ThreadSanitizer", r"[a-z]+_test\..*", preset="tsan"),
        Promise("The whole program under AddressSanitizer, its search for leaks, and "
                "UndefinedBehaviorSanitizer", command="tests/system/sanitized"),
    ],
}

PROMISES = [promise for group in GROUPS.values() for promise in group]
