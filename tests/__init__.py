"""The tests that are written in Python. They are run as modules from the top folder: python3 -m unittest tests.desktop.…"""
