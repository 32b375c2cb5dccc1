# SPDX-License-Identifier: MIT
"""Waiting for what must happen eventually."""

import time
from collections.abc import Callable
from typing import TypeVar

Result = TypeVar("Result")

# Only a failing test waits this long, also on a busy machine.
EVENTUALLY_SECONDS = 120
POLL_SECONDS = 0.02


def wait_until(condition: Callable[[], Result], complaint: Callable[[], str]) -> Result:
    """The first true result of `condition`. Raises TimeoutError with `complaint` if there is none."""
    deadline = time.monotonic() + EVENTUALLY_SECONDS
    while not (result := condition()):
        if time.monotonic() > deadline:
            raise TimeoutError(f"{complaint()} (waited {EVENTUALLY_SECONDS} s)")
        time.sleep(POLL_SECONDS)
    return result
