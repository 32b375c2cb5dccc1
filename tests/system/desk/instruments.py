# SPDX-License-Identifier: MIT
"""Sampled instruments: notes rendered from Debian's sound font."""

import array
import dataclasses
import pathlib
import struct
import subprocess
import wave

SOUND_FONT = "/usr/share/sounds/sf2/TimGM6mb.sf2"
SAMPLE_RATE = 48000
PEAK = 0.5  # of full scale, like a microphone near the instrument
RELEASE_SECONDS = 0.2

# The default tempo of a MIDI file is 120 beats a minute.
TICKS_PER_BEAT = 500
TICKS_PER_SECOND = 2 * TICKS_PER_BEAT
VELOCITY = 100  # of 127
BEND_CENTRE = 8192
BEND_CENTS = 200.0  # the default bend range: two semitones each way

STEEL_GUITAR = 25
FINGERED_BASS = 33
GRAND_PIANO = 0


@dataclasses.dataclass(frozen=True)
class Note:
    """`program`: General MIDI, from 0. `key`: A4 is 69."""

    program: int
    key: int
    seconds: float = 1.6
    detune_cents: float = 0.0


class Band:
    """Renders notes into `directory`, each once."""

    def __init__(self, directory: pathlib.Path):
        self._directory = directory

    def wav(self, note: Note) -> pathlib.Path:
        name = "-".join(str(value) for value in dataclasses.astuple(note))
        path = self._directory / f"{name}.wav"
        if not path.exists():
            self._render(note, path)
        return path

    def _render(self, note: Note, path: pathlib.Path) -> None:
        score = path.with_suffix(".mid")
        score.write_bytes(_midi(note))
        # Without reverb and chorus, which add a detuned voice.
        command = ["fluidsynth", "-n", "-i", "-q", "-R", "0", "-C", "0", "-g", "1.0",
                   "-r", str(SAMPLE_RATE), "-F", path, SOUND_FONT, score]
        done = subprocess.run(command, capture_output=True, text=True, timeout=60)
        if done.returncode != 0 or not path.exists():
            raise RuntimeError(f"fluidsynth gave no sound: {done.stdout}{done.stderr}")
        _trim_and_level(path, round((note.seconds + RELEASE_SECONDS) * SAMPLE_RATE))


def _trim_and_level(path: pathlib.Path, frames: int) -> None:
    """Removes the silence that fluidsynth appends for its reverb, and scales the loudest sample to `PEAK`: the
    instruments differ by a factor of ten."""
    with wave.open(str(path)) as rendered:
        form = rendered.getparams()
        samples = array.array("h", rendered.readframes(frames))
    loudest = max(map(abs, samples))
    if loudest == 0:
        raise RuntimeError(f"{path.name} is silent")
    factor = PEAK * 32767 / loudest
    with wave.open(str(path), "wb") as levelled:
        levelled.setparams(form)
        levelled.writeframes(array.array("h", (round(sample * factor) for sample in samples)))


def _midi(note: Note) -> bytes:
    """The smallest Standard MIDI File with the note, detuned by -200 to below 200 cents with a pitch bend, to
    0.025 cents."""
    bend = BEND_CENTRE + round(note.detune_cents / BEND_CENTS * BEND_CENTRE)
    if not 0 <= bend < 2 * BEND_CENTRE:
        raise ValueError(f"{note.detune_cents} cents exceed the pitch bend range")
    track = b"".join([
        _event(0, 0xC0, note.program),
        _event(0, 0xE0, bend & 0x7F, bend >> 7),
        _event(0, 0x90, note.key, VELOCITY),
        _event(round(note.seconds * TICKS_PER_SECOND), 0x80, note.key, 0),
        _event(0, 0xFF, 0x2F, 0x00),
    ])
    header = struct.pack(">4sIHHH", b"MThd", 6, 0, 1, TICKS_PER_BEAT)
    return header + struct.pack(">4sI", b"MTrk", len(track)) + track


def _event(ticks: int, *message: int) -> bytes:
    """`ticks` after the previous event, as a variable-length quantity."""
    return bytes([0x80 | ticks >> 7, ticks & 0x7F, *message])
