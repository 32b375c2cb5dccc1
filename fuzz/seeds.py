#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the seeds of the fuzzers: fuzz/seeds.py, from the top of the tree.

The order of the bytes is the order in which each fuzzer takes them. What a seed is for is its name.
The packed recordings (FLAC, Ogg, MP3, W64) were written by libsndfile and are not made here; nor
is the engine's tone-beyond-hearing, which was found.
"""

import math
import pathlib
import random
import struct

SEEDS = pathlib.Path(__file__).parent / "seeds"


def write(fuzzer: str, name: str, content: bytes) -> None:
    folder = SEEDS / fuzzer
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(content)


def period(samples: int, partials: int = 3) -> bytes:
    """One period with some overtones, as signed bytes."""
    wave = [sum(math.sin(2 * math.pi * n * i / samples) / n for n in range(1, partials + 1))
            for i in range(samples)]
    return b"".join(struct.pack("b", round(60 * value)) for value in wave)


# The detector: choices of rate, lowest, highest and threshold, the length, then the samples.
RATES = [8000.0, 8000.5, 11025.0, 16000.0, 22050.0, 44100.0, 48000.0, 96000.0, 192000.0]


def block(rate: float, length: int, samples: bytes, scale: float | None = 0.004,
          search: bytes = b"\0\0\0") -> bytes:
    """`scale`: of signed bytes; None if the samples are floats."""
    sound = b"\1" + samples if scale is None else b"\0" + struct.pack("<f", scale) + samples
    return bytes([RATES.index(rate)]) + search + struct.pack("<H", length) + sound


def floats(*values: float) -> bytes:
    return struct.pack(f"<{len(values)}f", *values)


def detector_seeds() -> None:
    noise = random.Random(1).randbytes(700)
    seeds = {
        "a-string": block(48000.0, 4096, period(327)),
        "low-string": block(44100.0, 8192, period(535)),
        "high-note": block(48000.0, 2048, period(12, 1)),
        "above-the-band": block(48000.0, 2048, period(9, 1)),
        "longest-lag": block(8000.5, 1024, period(296)),
        "half-block-lag": block(192000.0, 2048, period(1022)),
        "noise": block(22050.0, 1500, noise),
        "noise-of-any-bits": block(16000.0, 1500, noise, None),
        "too-short": block(44100.0, 1023, period(100)),
        "shortest": block(44100.0, 1024, period(100)),
        "too-slow": block(8000.0, 2048, period(100)),
        "quiet": block(11025.0, 1100, period(50), 0.00005),
        "denormal": block(11025.0, 1100, period(50), 1e-42),
        "loud": block(11025.0, 1100, period(50), 1e36),
        "not-a-number": block(11025.0, 1100, floats(0.5, math.nan, -0.5, 0.1), None),
        "infinite": block(11025.0, 1100, floats(0.5, math.inf, -0.5, -math.inf), None),
        "constant": block(11025.0, 1100, floats(0.3), None),
        "steps": block(22050.0, 1100, floats(*[0.5] * 20, *[-0.5] * 20), None),
        "narrow-search": block(48000.0, 2048, period(109), search=b"\2\2\1"),
        "strict-search": block(48000.0, 2048, period(160), search=b"\1\1\2"),
        "any-search": bytes([9]) + struct.pack("<d", 1e5) + b"\3" + struct.pack("<d", 900.0) +
                      b"\3" + struct.pack("<d", 5000.0) + b"\3" + struct.pack("<d", 1.5) +
                      struct.pack("<H", 2000) + b"\0" + struct.pack("<f", 0.01) + period(60),
    }
    for name, content in seeds.items():
        write("detector", name, content)


# The capture: actions with their arguments.
def feed(channels: int = 1, frames: int | None = None, rate: int = 2, odd: int = 0,
         present: bool = True) -> bytes:
    length = b"\1" if frames is None else b"\0" + struct.pack("<H", frames)
    sound = b"" if frames == 0 else bytes([odd])
    return (bytes([0, channels]) + length + bytes([rate]) +
            b"".join(struct.pack("<H", c + 1) + sound for c in range(max(channels, 1))) +
            bytes([present]))


RESET = b"\5"
DETECT = b"\6"
DONE = b"\0\0"  # a detection with a reading and without concurrent sound


def meanwhile(action: bytes) -> bytes:
    return b"\1" + action + b"\1"


def capture_seeds() -> None:
    seeds = {
        "block-by-block": 2 * feed() + 4 * (DETECT + DONE + feed()),
        "newest-wins": 5 * feed() + DETECT + DONE,
        "long-buffer": feed(frames=16384) + DETECT + DONE + feed(),
        "short-buffers": b"".join(feed(frames=n) for n in (1000, 4096, 1, 4095, 3000, 1)) + DETECT,
        "stereo": 2 * feed(channels=2) + DETECT + DONE,
        "eight-channels": 2 * feed(channels=8) + DETECT + DONE,
        "no-channels": 2 * feed(channels=0) + DETECT + DONE,
        "nothing": feed(frames=0) + feed(present=False) + 2 * feed() + DETECT,
        "odd-samples": b"".join(feed(channels=2, odd=n) for n in range(8)) + DETECT + DONE,
        "reset": feed() + RESET + 2 * feed() + RESET + DETECT + 2 * feed() + DETECT + DONE,
        "rate-change": feed(rate=1) + feed(rate=2) + DETECT + DONE,
        "sound-while-detecting": 2 * feed() + DETECT + meanwhile(feed()) + meanwhile(RESET) + feed(),
    }
    for name, content in seeds.items():
        write("capture", name, content)


# The engine: an action's number, as in EngineSession::actions, with its arguments.
(INSTRUMENT, TUNING, LOCK, PITCH, HAND, START, STOP, HIDE, MIC_SETTINGS, ABANDON, REFERENCE, RESTART,
 PERMISSION, ANSWER, DEVICE, ANSWER_START, SOUND, OUTPUT, END_TONES, READING, RUN, TIME) = range(22)


def act(action: int, *parameters: int) -> bytes:
    return bytes([action, *parameters])


def hear(string: int, confidence: int = 0, level: int = 1) -> bytes:
    return act(READING, 1, string, confidence, level) + act(RUN)


def sound(string: int) -> bytes:
    """Two buffers, the first after a gap: the second completes a block and gives a reading."""
    return act(SOUND, 0, 1) + act(SOUND, 1, 1, 1, string, 0, 1)


def time(milliseconds: int) -> bytes:
    return bytes([TIME]) + struct.pack("<H", milliseconds)


SILENCE = act(READING, 0) + act(RUN)


def engine_seeds() -> None:
    every_string = b"".join(hear(string) for string in range(8))
    seeds = {
        "tuning-up": act(START) + every_string + SILENCE,
        "one-note": b"".join(hear(string) for string in (1, 2, 3, 4, 4, 4, 1, 1, 1, 2, 3, 3, 3)),
        "locked": act(LOCK, 3) + every_string + SILENCE + act(LOCK, 0) + SILENCE,
        "eight-strings": act(TUNING, 7, 20) + act(LOCK, 8) + every_string + act(TUNING, 7, 0) +
                         act(REFERENCE),
        "instruments": b"".join(act(INSTRUMENT, n) + every_string + act(REFERENCE) for n in (1, 2, 0)),
        "foreign-tuning": act(TUNING, 2, 4) + hear(6) + act(INSTRUMENT, 1) + hear(0),
        "pitches": b"".join(act(PITCH, n) + hear(3) for n in range(6)) +
                   act(PITCH, 6) + struct.pack("<d", math.nan) + hear(3),
        "reference": act(REFERENCE) + hear(1) + time(1349) + hear(1) + time(1) + hear(1) +
                     act(END_TONES) + act(RUN),
        "no-loudspeaker": act(OUTPUT, 0, 0) + act(REFERENCE) + hear(1),
        "permission": act(PERMISSION, 1) + 2 * act(START) + act(ANSWER, 1) + act(RUN) + hear(1) +
                      act(PERMISSION, 2) + act(START) + act(PERMISSION, 3) + act(START),
        "no-device": act(DEVICE, 2, 0, 2, 0, 1, 0) + act(START) + act(DEVICE, 0, 1, 0, 1, 0, 0) + act(START),
        "late-answer": act(DEVICE, 0, 1, 0, 1, 1, 1) + act(START) + act(HIDE, 0) + act(HIDE, 1) +
                       act(ANSWER_START, 1) + sound(0) + act(RUN),
        "sound": act(START) + sound(1) + act(RUN) + sound(2) + sound(2) + act(RUN) + act(STOP) +
                 act(START) + sound(3) + act(RUN),
        "restart": hear(1) + act(RESTART, 1, 2, 1, 5, 1) + hear(1) + act(RESTART, 1, 0, 0, 4) + b"bass",
        "odd-readings": act(READING, 1, 8) + struct.pack("<d", math.nan) + b"\0\1" + act(RUN) +
                        act(READING, 1, 8) + struct.pack("<d", 5e-324) + b"\0\4" + act(RUN) +
                        act(READING, 1, 8) + struct.pack("<d", -1.0) + b"\3\0" + act(RUN),
    }
    for name, content in seeds.items():
        write("engine", name, content)


def preferences_seeds() -> None:
    valid = b"[General]\ntuner.instrument=bass\ntuner.tuning=b5-dropa\ntuner.a4=441.7\ntuner.left=true\n"
    deep = b"@Variant(" + 3 * rb"\0\0\0\x9\0\0\0\0\x1" + b")"
    seeds = {
        "valid": valid,
        "empty": b"",
        "cut-short": valid[:-20],
        "foreign-tuning": valid.replace(b"b5-dropa", b"g6-dropd"),
        "out-of-range": valid.replace(b"441.7", b"600"),
        "not-a-number": valid.replace(b"441.7", b"nan"),
        "wrong-types": b"[General]\ntuner.instrument=guitar, bass\ntuner.a4=concert\ntuner.left=maybe\n",
        "lists": valid.replace(b"441.7", b"441.7, 2, \"a\\\"b\""),
        "values-of-the-toolkit": b"[General]\ntuner.instrument=@Invalid()\ntuner.tuning=@String(g6-dropd)\n"
                                 b"tuner.a4=@ByteArray(440)\ntuner.left=@Rect(1 2 3 4)\n",
        "serialised-number": valid.replace(b"441.7", rb"@Variant(\0\0\0\x6@{\x80\0\0\0\0\0)"),
        "serialised-lists": valid.replace(b"441.7", deep),
        "time": valid.replace(b"true", rb"@DateTime(\0\0\0\x10\0\0\0\0\0\0%\x87\xd8\x1\x2\x3\x4\xff\0)"),
        "escapes": b"[General]\ntuner.instrument=\"gu\\x69tar\"\ntuner.tuning=g6\\\n-dropd\n%74uner.a4=442\n",
        "sections": b"[other]\nkey=1\n[General]\ntuner.a4=442\n[general]\ntuner.a4=443\n"
                    b"[%General]\ntuner.left=true\n",
        "comments": b"; one\n# two\n" + valid.replace(b"\n", b"\r\n"),
        "not-settings": b"\x00\xff[[[\n=\n\x7f garbage",
        "marked-utf-16": "[General]\ntuner.a4=442\n".encode("utf-16"),
        "marked-utf-8": b"\xef\xbb\xbf" + valid,
    }
    for name, content in seeds.items():
        write("preferences", name, content)


# The replay tool: recordings.
def chunk(name: bytes, body: bytes, length: int | None = None) -> bytes:
    stated = len(body) if length is None else length
    return name + struct.pack("<I", stated) + body + b"\0" * (len(body) % 2)


def wav(data: bytes, rate: int = 8001, channels: int = 1, bits: int = 8, tag: int = 1,
        before: bytes = b"", length: int | None = None) -> bytes:
    frame = channels * bits // 8
    form = struct.pack("<HHIIHH", tag, channels, rate, rate * frame, frame, bits)
    return chunk(b"RIFF", b"WAVE" + chunk(b"fmt ", form) + before + chunk(b"data", data, length))


def replay_seeds() -> None:
    sound = bytes(128 + value if value < 128 else value - 128 for value in period(73))
    tone = (sound * 200)[:8300]
    short = (sound * 10)[:400]
    seeds = {
        "tone.wav": wav(tone),
        "mu-law.wav": wav(short, tag=7),
        "stereo-16-bit.wav": wav(short, 44100, 2, 16),
        "float-not-numbers.wav": wav(floats(math.nan, math.inf, -math.inf, 1e-45, 3e38) * 20,
                                     48000, 1, 32, 3),
        "double.wav": wav(struct.pack("<40d", *([0.5, -0.5] * 20)), 48000, 2, 64, 3),
        "many-channels.wav": wav(short, 8000, 100),
        "no-channels.wav": wav(short, 8000, 0),
        "no-rate.wav": wav(short, 0),
        "highest-rate.wav": wav(short, 0xFFFFFFFF),
        "no-sound.wav": wav(b""),
        "other-chunks.wav": wav(short, before=chunk(b"LIST", b"INFOodd") + chunk(b"fact", b"\0\0\0\1")),
        "open-length.wav": wav(short, length=0xFFFFFFFF),
        "promises-more.wav": wav(short, length=1000),
        "cut-in-header.wav": wav(short)[:30],
        "adpcm.wav": chunk(b"RIFF", b"WAVE" + chunk(
            b"fmt ", struct.pack("<HHIIHHHH", 17, 1, 8000, 4055, 256, 4, 2, 505)) +
            chunk(b"data", random.Random(2).randbytes(2048))),
        "tone.au": struct.pack(">4sIIIII", b".snd", 24, 0xFFFFFFFF, 2, 8001, 1) + short,
        "big-endian.wav": b"RIFX" + struct.pack(">I", 44) + b"WAVEfmt " +
                          struct.pack(">IHHIIHH", 16, 1, 1, 8001, 8001, 1, 8) +
                          b"data" + struct.pack(">I", 8) + short[:8],
        "aiff": b"FORM" + struct.pack(">I", 62) + b"AIFFCOMM" + struct.pack(">IHIH", 18, 1, 16, 8) +
                b"\x40\x0b\xfa\0\0\0\0\0\0\0" + b"SSND" + struct.pack(">III", 24, 0, 0) + short[:16],
        "letter": b"This is a letter to a friend.",
        "picture": chunk(b"RIFF", b"WEBPVP8 "),
        "empty": b"",
    }
    for name, content in seeds.items():
        write("replay", name, content)


if __name__ == "__main__":
    detector_seeds()
    capture_seeds()
    engine_seeds()
    preferences_seeds()
    replay_seeds()
