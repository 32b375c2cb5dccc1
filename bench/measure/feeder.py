"""feeder.py SOUND PIPE [again]: writes a file of 32-bit floats into a pipe as fast as a microphone
would, and silence after it, or the same again and again, until it is ended.

Prints at which moment of the monotonic clock the first sample was due."""

import os
import sys
import time

RATE = 48000
BYTES_PER_FRAME = 4
CHUNK_FRAMES = 2048  # what the tuner asks a sound card for
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
        # A sound card knows no shorter ones.
        chunk = samples[begin:begin + len(silence)].ljust(len(silence), b"\0")
        written += len(chunk)
        # A chunk is there once its last sample has been.
        due = start + written / BYTES_PER_FRAME / RATE
        time.sleep(max(0.0, due - time.monotonic()))
        os.write(target, chunk)


main(*sys.argv[1:])
