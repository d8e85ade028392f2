"""Drives the real window: the accessibility tree of the program, the mouse and keyboard, screenshots, test songs."""
