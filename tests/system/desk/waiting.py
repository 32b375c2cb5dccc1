"""Waiting until another program has done something, and never for longer than allowed."""

import time
from collections.abc import Callable
from typing import TypeVar

Result = TypeVar("Result")

POLL_SECONDS = 0.02


def wait_until(condition: Callable[[], Result], seconds: float,
               complaint: Callable[[], str]) -> Result:
    """The first true result of `condition`; else TimeoutError with `complaint` after `seconds`."""
    deadline = time.monotonic() + seconds
    while not (result := condition()):
        if time.monotonic() > deadline:
            raise TimeoutError(f"{complaint()} (waited {seconds} s)")
        time.sleep(POLL_SECONDS)
    return result
