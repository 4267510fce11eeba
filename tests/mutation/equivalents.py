#!/usr/bin/python3
"""The changes that are known to make no difference, with the reason for each: equivalents.txt."""

import dataclasses
import os

FILE = os.path.join(os.path.dirname(__file__), "equivalents.txt")


@dataclasses.dataclass(frozen=True)
class Equivalent:
    """A change of a line, told by the line's text, so that it is found again when lines are added above."""

    file: str
    line: str
    change: str
    reason: str


def known():
    """The entries of equivalents.txt. Raises ValueError for one that is incomplete or names no line of its file."""
    with open(FILE) as file:
        paragraphs = file.read().split("\n\n")
    entries = []
    for paragraph in paragraphs:
        lines = [line for line in paragraph.splitlines() if line and not line.startswith("#")]
        if not lines:
            continue
        file, separator, line = lines[0].partition(": ")
        indented = [each.strip() for each in lines[1:] if each.startswith("    ")]
        if not separator or len(indented) != len(lines) - 1 or len(indented) < 2:
            raise ValueError(f"{FILE}: each entry has a place, a change and a reason; this one has not: {lines[0]}")
        if line not in source_lines(file):
            raise ValueError(f"{FILE}: {file} has no such line (any more): {line}")
        entries.append(Equivalent(file, line, indented[0], " ".join(indented[1:])))
    return entries


def source_lines(name):
    """The lines of a file, named from the repository's root, without the space around them."""
    path = os.path.join(os.path.dirname(__file__), "..", "..", name)
    if not os.path.exists(path):
        return set()
    with open(path) as file:
        return {line.strip() for line in file}


def reasons(mutations, root):
    """By key, why those of the changes that are known to make no difference make none."""
    by_place = {(each.file, each.line, each.change): each.reason for each in known()}
    found, sources = {}, {}
    for each in mutations:
        if each.file not in sources:
            with open(os.path.join(root, each.file)) as file:
                sources[each.file] = [line.strip() for line in file]
        reason = by_place.get((each.file, sources[each.file][each.line - 1], each.change()))
        if reason:
            found[each.key()] = reason
    return found


if __name__ == "__main__":
    print(f"{len(known())} changes are known to make no difference")
