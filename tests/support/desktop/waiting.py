"""Waiting for something that the program does in its own time."""
import time


def wait(condition, what, seconds=10.0):
    """Waits until the condition is true and returns its value; an AssertionError that names `what` otherwise."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"waited {seconds:g} s for {what}")
        time.sleep(0.03)
