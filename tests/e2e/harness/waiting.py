"""Waits for conditions, never for a length of time."""

import os
import time

#: How long a condition may take, in seconds. A program under sanitizers is slower.
LIMIT = float(os.environ.get("VESK_E2E_LIMIT", "30"))
_PAUSE = 0.01


def until(condition, what, limit=LIMIT):
    """The first true value of `condition`; fails, naming `what`, when it never becomes true."""
    end = time.monotonic() + limit
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError("waited %.0f s in vain for %s" % (limit, what))
        time.sleep(_PAUSE)
