"""The smallest Standard MIDI File that holds one note."""

import struct

# A file that sets no tempo runs at 120 beats a minute.
TICKS_PER_BEAT = 500
TICKS_PER_SECOND = 2 * TICKS_PER_BEAT
VELOCITY = 100  # of 127: how hard it is played
BEND_CENTRE = 8192
BEND_CENTS = 200.0  # a synthesizer's bend range unless told otherwise: two semitones each way


def one_note(program: int, key: int, seconds: float, detune_cents: float) -> bytes:
    """A type 0 file: General MIDI `program` from 0, `key` with middle C at 60, `detune_cents` from -200 to below 200, reached by a pitch bend to 0.025 cents."""
    bend = BEND_CENTRE + round(detune_cents / BEND_CENTS * BEND_CENTRE)
    if not 0 <= bend < 2 * BEND_CENTRE:
        raise ValueError(f"{detune_cents} cents is more than a pitch bend can do")
    track = b"".join([
        _event(0, 0xC0, program),
        _event(0, 0xE0, bend & 0x7F, bend >> 7),
        _event(0, 0x90, key, VELOCITY),
        _event(round(seconds * TICKS_PER_SECOND), 0x80, key, 0),
        _event(0, 0xFF, 0x2F, 0x00),
    ])
    header = struct.pack(">4sIHHH", b"MThd", 6, 0, 1, TICKS_PER_BEAT)
    return header + struct.pack(">4sI", b"MTrk", len(track)) + track


def _event(ticks: int, *message: int) -> bytes:
    return _variable_length(ticks) + bytes(message)


def _variable_length(number: int) -> bytes:
    """Seven bits a byte, the most significant first; all but the last with the top bit set."""
    digits = [number & 0x7F]
    while number := number >> 7:
        digits.append(number & 0x7F | 0x80)
    return bytes(reversed(digits))
