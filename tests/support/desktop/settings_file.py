"""The content of plimo.ini."""


def settings(drives="C:", scan=False, artists_background=4194304):
    choice = "#FALSE#\r\n#TRUE#" if scan else "#TRUE#\r\n#FALSE#"
    colours = f'65535\r\n{artists_background}\r\n65535\r\n4194304\r\n65535\r\n"4194304"'
    return f'0\r\n{choice}\r\n"{drives}"\r\n0\r\n0\r\n{colours}\r\n'.encode()
