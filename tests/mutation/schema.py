"""Rewrites a source file so that it contains all its mutants, one of which can be made active at run time."""
import bisect
import dataclasses
import pathlib

HEADER = pathlib.Path(__file__).resolve().parent / "mutant.h"

CAPACITY = 2000  # numbers for each file, so that a change in one file does not make the others be compiled again


@dataclasses.dataclass
class Rewritten:
    code: bytes
    ranges: list  # (start, end, mutants), in bytes of the code: an error in this range is the fault of these mutants

    def offset(self, line, column):
        """Of a position as compilers count: from 1, in bytes."""
        return sum(len(text) + 1 for text in self.code.split(b"\n")[:line - 1]) + column - 1

    def around(self, line, column):
        """The mutants at a position."""
        offset = self.offset(line, column)
        found = [(end - start, mutants) for start, end, mutants in self.ranges if start <= offset < end]
        return min(found, key=lambda one: one[0])[1] if found else []

    def behind(self, line, column):
        """The next mutants in the line: a name is reported whose template arguments are wrong."""
        offset, end_of_line = self.offset(line, column), self.offset(line + 1, 1)
        found = [(start, -end, mutants) for start, end, mutants in self.ranges if offset <= start < end_of_line]
        return min(found, key=lambda one: one[:2])[2] if found else []


class Writer:
    def __init__(self, source, sites):
        self.source = source
        self.sites = sites  # sorted: outer ones first
        self.starts = [site.start for site in sites]
        self.code = bytearray()
        self.ranges = []

    def put(self, text):
        self.code += text.encode()

    def render(self, start, end, first):
        """The bytes from start to end, in which only the sites from number `first` on are considered."""
        position = start
        number = max(first, bisect.bisect_left(self.starts, start))
        while number < len(self.sites) and self.sites[number].start < end:
            site = self.sites[number]
            if site.start < position or site.end > end:
                number += 1
                continue
            self.code += self.source[position:site.start]
            self.render_site(site, number)
            position = site.end
            number = bisect.bisect_left(self.starts, position)
        self.code += self.source[position:end]

    def render_site(self, site, number):
        begin = len(self.code)
        test = "plimoConstexprMutant" if site.is_constexpr else "plimoMutant"
        if site.form == "delete":
            self.put(f"{{ if (!{test}({site.mutants[0].number})) {{ ")
            self.render(site.start, site.end, number + 1)
            self.put(" } }")
        elif site.form == "return":
            self.put(f"{{ if ({test}({site.mutants[0].number})) return {site.mutants[0].variant}; ")
            self.ranges.append((begin, len(self.code), site.mutants))
            self.render(site.start, site.end, number + 1)
            self.put(" }")
        else:
            self.put("(")
            opened, closed = ("static_cast<bool>(", ")") if site.form == "condition" else ("(", ")")
            for mutant in site.mutants:
                variant = len(self.code)
                self.put(f"{test}({mutant.number}) ? {opened}{mutant.variant}{closed} : ")
                self.ranges.append((variant, len(self.code), [mutant]))
            self.put(opened)
            self.render(site.start, site.end, number + 1)
            self.put(closed + ")")
        self.ranges.append((begin, len(self.code), site.mutants))


def rewrite(source, sites, base, left_out):
    """The file with the mutants whose keys are not left out. Numbers them from `base` on."""
    kept = []
    for site in sites:
        mutants = [mutant for mutant in site.mutants if mutant.key() not in left_out]
        if mutants:
            kept.append(dataclasses.replace(site, mutants=mutants))
    count = 0
    for site in kept:
        for mutant in site.mutants:
            mutant.number = base + count
            count += 1
    assert count <= CAPACITY
    if not kept:
        return Rewritten(source, []), []
    writer = Writer(source, kept)
    writer.put(f'#include "{HEADER}"\n')
    writer.render(0, len(source), 0)
    return Rewritten(bytes(writer.code), writer.ranges), [m for site in kept for m in site.mutants]
