"""Sampled instruments: notes as a microphone would hear them, rendered from Debian's sound font."""

import array
import dataclasses
import pathlib
import subprocess
import wave

from . import midi

SOUND_FONT = "/usr/share/sounds/sf2/TimGM6mb.sf2"
SAMPLE_RATE = 48000
PEAK = 0.5  # of full scale: a microphone near the instrument, with room left
RELEASE_SECONDS = 0.2

STEEL_GUITAR = 25
FINGERED_BASS = 33
GRAND_PIANO = 0


@dataclasses.dataclass(frozen=True)
class Note:
    """`program` counts General MIDI from 0; `key` has A4 at 69."""

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
        score.write_bytes(midi.one_note(note.program, note.key, note.seconds, note.detune_cents))
        # Reverb and chorus would add a room and a second, detuned voice.
        command = ["fluidsynth", "-n", "-i", "-q", "-R", "0", "-C", "0", "-g", "1.0",
                   "-r", str(SAMPLE_RATE), "-F", path, SOUND_FONT, score]
        done = subprocess.run(command, capture_output=True, text=True, timeout=60)
        if done.returncode != 0 or not path.exists():
            raise RuntimeError(f"fluidsynth gave no sound: {done.stdout}{done.stderr}")
        _trim_and_level(path, round((note.seconds + RELEASE_SECONDS) * SAMPLE_RATE))


def _trim_and_level(path: pathlib.Path, frames: int) -> None:
    """Cuts off the seconds of silence that fluidsynth leaves for its reverb, and makes the loudest
    sample `PEAK`: the instruments differ by a factor of ten."""
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
