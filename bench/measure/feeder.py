# SPDX-License-Identifier: MIT
"""feeder.py SOUND PIPE [again]: writes a file of 32-bit floats into a pipe in real time, then silence, or repeats it.

Prints the time of the monotonic clock at which the first sample was due."""

import os
import sys
import time

RATE = 48000
BYTES_PER_FRAME = 4
CHUNK_FRAMES = 2048  # the tuner's fragment size
LEAD_SECONDS = 0.1


def main(sound: str, pipe: str, again: str = "") -> None:
    with open(sound, "rb") as opened:
        samples = opened.read()
    silence = bytes(CHUNK_FRAMES * BYTES_PER_FRAME)
    period = len(samples)
    samples += samples[:len(silence)] if again else b""
    target = os.open(pipe, os.O_WRONLY)
    start = time.monotonic() + LEAD_SECONDS
    print(start, flush=True)
    written = 0
    while True:
        begin = written % period if again else written
        # Whole chunks only, like a sound card.
        chunk = samples[begin:begin + len(silence)].ljust(len(silence), b"\0")
        written += len(chunk)
        # A chunk is due with its last sample.
        due = start + written / BYTES_PER_FRAME / RATE
        time.sleep(max(0.0, due - time.monotonic()))
        os.write(target, chunk)


main(*sys.argv[1:])
