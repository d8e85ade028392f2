"""Drives the program for Windows under Wine."""
