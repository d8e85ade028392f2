"""The list of the equivalent mutants: changes of the code that change nothing that a test could see.

An entry does not depend on the line's number. It is a paragraph: the file and the function, then the line of code, the
change, and the reason, each indented.
"""


class Malformed(Exception):
    pass


def read(text):
    """A dictionary from the keys of the mutants to the reasons."""
    entries = {}
    for paragraph in text.split("\n\n"):
        lines = [line for line in paragraph.splitlines() if line and not line.startswith("#")]
        if not lines:
            continue
        words = lines[0].split(" ")
        if len(words) != 2 or len(lines) < 4 or any(not line.startswith("    ") for line in lines[1:]):
            raise Malformed(f"this is no entry:\n{paragraph}")
        key = (*words, lines[1].strip(), lines[2].strip())
        if key in entries:
            raise Malformed(f"this entry is there twice:\n{paragraph}")
        entries[key] = " ".join(line.strip() for line in lines[3:])
    return entries


def entry(mutant):
    """The head of an entry, without its reason."""
    return f"{mutant.file} {mutant.function}\n    {mutant.text}\n    {mutant.change}\n"
