# SPDX-License-Identifier: MIT
"""The program's promises, and the tests or commands that show each."""

from typing import NamedTuple


class Promise(NamedTuple):
    """Shown by the tests of a preset whose names match a pattern, or by a command that takes too long for
    ./check and prints its own figures."""

    text: str
    tests: str = ""
    preset: str = "dev"
    command: str = ""
    figures: str = ".*"  # which of its tests' figures belong to it

    @property
    def shown_by(self) -> str:
        return self.command or f"ctest --preset {self.preset} -R '{self.tests}'"


def _fault(name: str) -> str:
    return rf"pulse_test\..*Faults\.{name}/"


GROUPS: dict[str, list[Promise]] = {
    "Keeps listening": [
        Promise("The audio server is killed and restarted: recording resumes without a leak, on "
                "PulseAudio and PipeWire",
                _fault("TheServerIsKilledAndComesBack")),
        Promise("The audio server hangs, briefly or until the connection times out",
                _fault("TheServerHangs.*")),
        Promise("The audio server starts after the program",
                r"pulse_test\..*Absence\.AServerThatStartsLater.*"),
        Promise("The input is unplugged and another one plugged in",
                _fault("TheOnlyMicrophoneIsUnplugged.*")),
        Promise("The default input changes, also to another rate and channel count",
                _fault("TheDefaultChanges.*")),
        Promise("The user moves the recording in the mixer",
                _fault("TheUserMovesTheRecording.*")),
        Promise("The input is muted or suspended (a suspended virtual input of PipeWire must be "
                "reopened)", _fault("TheMicrophoneIs(Muted|Suspended)")),
        Promise("The server ends the recording", _fault("TheServerEndsTheRecording")),
        Promise("No file descriptor is left when connecting",
                r"pulse_test\..*Shortage.*"),
        Promise("No buffer joins two devices or two moments",
                r"pulse_test\..*(Faults|Restart\.SoundFromBefore).*",
                figures="rounds|buffers"),
        Promise("On the screen, with either server: no stale note, the message and its button "
                "without input, the right note afterwards",
                r"system\.servers"),
        Promise("If any libpulse call after the start of the program fails, once or permanently, it "
                "listens or shows one of the four messages, and leaks nothing",
                r"pulse_(test\.FailingCalls\.|unit_test\.every_call).*"),
        Promise("An hour of guitar: nothing grows, every string is shown",
                command="bench/hour"),
        Promise("24 hours of audio through pipeline and engine: constant memory, every hour's "
                "results equal to the bit", command="bench/soak"),
    ],
    "Loses nothing": [
        Promise("The preferences file is corrupt, empty, a directory, a pipe, unreadable or "
                "read-only: valid values, and no saved value is lost",
                r"qt_test\.(PreferencesFaults\.(AnEmpty|WhatIsStill|AFolder|APipe|"
                r"ALink)|OfAnotherUser).*"),
        Promise("The disk is full, or so slow that the next choice is made during the write",
                r"qt_test\..*(AFullDisk|SettingsWriterTest.*Disk).*"),
        Promise("Two programs save at once",
                r"(qt_test\.(Preferences|SettingsWriter).*(OfTwoPrograms|Another).*|"
                r"system\.controls)"),
        Promise("The program is killed while saving",
                r"qt_test\..*IsKilledWhileItWrites.*"),
        Promise("The whole program starts with any content of the file", r"system\.controls"),
        Promise("Any input to the detector, the pipeline, the engine, the preferences and the "
                "replay tool", command="fuzz/run"),
    ],
    "Keeps no data": [
        Promise("It connects only to the display, the audio server and D-Bus, writes only its "
                "preferences, starts no program unasked, and loads no code from the working "
                "directory or the home directory", r"system\.privacy"),
        Promise("It is hardened: position independent, full RELRO, no executable stack, stack "
                "protector, fortified library calls, control flow protection",
                r"policy\.hardening"),
    ],
    "Has no undefined behaviour": [
        Promise("Every plain C++ test under AddressSanitizer and UndefinedBehaviorSanitizer",
                r"[a-z]+_test\..*", preset="asan"),
        Promise("Every plain C++ test under ThreadSanitizer", r"[a-z]+_test\..*", preset="tsan"),
        Promise("The whole program under AddressSanitizer, LeakSanitizer and "
                "UndefinedBehaviorSanitizer", command="tests/system/sanitized"),
    ],
}

PROMISES = [promise for group in GROUPS.values() for promise in group]
