"""What the window shows at one moment: the name of each item that has a description, by the
latter."""

Reading = dict[str, str]

VERDICTS = ("In tune", "Flat", "Sharp")


def is_heard(reading: Reading) -> bool:
    return reading.get("Status") in VERDICTS


def note(reading: Reading) -> str:
    """The note with its octave: "E2"."""
    return reading.get("Note", "") + reading.get("Octave", "")


def cents(reading: Reading) -> float:
    return float(reading["Cents"].removesuffix(" ¢").replace("\N{MINUS SIGN}", "-"))
