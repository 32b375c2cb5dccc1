"""What the window shows at one moment: each readout's description with its text."""

import statistics
from collections.abc import Sequence

Reading = dict[str, str]

VERDICTS = ("In tune", "Flat", "Sharp")


def is_heard(reading: Reading) -> bool:
    return reading.get("Status") in VERDICTS


def note(reading: Reading) -> str:
    """The note with its octave: "E2"."""
    return reading.get("Note", "") + reading.get("Octave", "")


def cents(reading: Reading) -> float:
    return float(reading["Cents"].removesuffix(" ¢").replace("\N{MINUS SIGN}", "-"))


def middle(heard: Sequence[Reading]) -> Reading:
    """The reading with the median cents: neither the pluck nor the dying away of a note counts."""
    median = statistics.median_low(cents(reading) for reading in heard)
    return next(reading for reading in heard if cents(reading) == median)
