#!/usr/bin/env python3
"""Prints the build targets that the tests need whose names match a regular expression, for script/test -R.

    tests/targets.py BUILD REGEX    one target a line; `all` when no such test is known, `none` when they need nothing
    tests/targets.py --check BUILD  fails if it would overlook a test of an executable that is built

The names of GoogleTest's tests stand in the sources, so that nothing has to be built for it. The words that name a
parameter are not known before: any word of the source may be one.
"""

import json
import os
import re
import subprocess
import sys

PLAIN = re.compile(r"\bTEST(?:_F)?\(\s*(\w+),\s*(\w+)\)")
PARAMETERISED = re.compile(r"\bTEST_P\(\s*(\w+),\s*(\w+)\)")
TYPED = re.compile(r"\bTYPED_TEST\(\s*(\w+),\s*(\w+)\)")
INSTANCE = re.compile(r"\bINSTANTIATE_TEST_SUITE_P\(\s*(\w*),\s*(\w+)")
WORD = re.compile(r"[A-Za-z0-9]+")
LABEL = "builds="


class Names:
    """The tests of one executable: whole names, and the beginnings of names that a parameter ends."""

    def __init__(self, texts):
        everything = "\n".join(texts)
        self.whole = {".".join(test) for test in PLAIN.findall(everything)}
        instances = {}
        for prefix, suite in INSTANCE.findall(everything):
            instances.setdefault(suite, set()).add(prefix + "/" if prefix else "")
        tests = PARAMETERISED.findall(everything)
        self.beginnings = {prefix + suite + "." + test + "/" for suite, test in tests for prefix in instances.get(suite, ())}
        self.typed = {suite + "." + test for suite, test in TYPED.findall(everything)}
        files = [text for text in texts if INSTANCE.search(text)] if self.beginnings else []
        self.words = {word for text in files for word in WORD.findall(text)} | {str(number) for number in range(100)}

    def match(self, regex):
        """Whether a test's name may match."""
        if any(regex.search(name) for name in self.whole | self.typed):
            return True
        return any(regex.search(name) or any(regex.search(name + word) for word in self.words) for name in self.beginnings)

    def has(self, name):
        """Whether a test of that name is known to be this executable's."""
        return (name in self.whole or any(name.startswith(known) for known in self.typed) or
                any(name.startswith(known) for known in self.beginnings))


def executables(build):
    """Yields the target, the prefixes of its tests' names and its names, of each executable."""
    with open(os.path.join(build, "test_sources.txt")) as lines:
        for line in lines:
            target, prefix, *sources = line.rstrip("\n").split("|")
            texts = []
            for source in sources:
                if source.endswith((".cpp", ".mm")) and os.path.isabs(source):
                    # Tests stand in headers, too, where several sources share them.
                    for path in (source, os.path.splitext(source)[0] + ".h"):
                        if os.path.exists(path):
                            with open(path, encoding="utf-8") as file:
                                texts.append(file.read())
            yield target, ["", prefix] if prefix else [""], Names(texts)


def other_tests(build):
    """Yields the name, the command and the target of each test that ctest knows, as far as it knows them: the command
    once it is built, and the target where a label names it."""
    listed = subprocess.run(["ctest", "--show-only=json-v1"], cwd=build, capture_output=True, text=True, check=True)
    for test in json.loads(listed.stdout)["tests"]:
        labels = [label for item in test["properties"] if item["name"] == "LABELS" for label in item["value"]]
        target = [label[len(LABEL):] for label in labels if label.startswith(LABEL)]
        yield test["name"], test.get("command", []), target


class Prefixed:
    """A regular expression as it applies to names that ctest puts something before."""

    def __init__(self, regex, prefix):
        self.regex, self.prefix = regex, prefix

    def search(self, name):
        return self.regex.search(self.prefix + name)


def needed(build, text):
    """The targets; None when they cannot be told."""
    regex = re.compile(text)
    targets = {target for target, prefixes, names in executables(build)
               if any(names.match(Prefixed(regex, prefix)) for prefix in prefixes)}
    root = os.path.realpath(build) + os.sep
    found = bool(targets)
    for name, command, named in other_tests(build):
        if not regex.search(name) or name.endswith("_NOT_BUILT"):
            continue
        if not command and not named:
            return None
        found = True
        targets |= set(named) or {word[len(root):] for word in command[:1] if os.path.realpath(word).startswith(root)}
    return targets if found else None


def check(build):
    overlooked = 0
    known = {target: (prefixes, names) for target, prefixes, names in executables(build)}
    for name, command, _ in other_tests(build):
        target = os.path.basename(command[0]) if command else ""
        if target not in known or not any(word.startswith("--gtest_filter=") for word in command):
            continue
        prefixes, names = known[target]
        if "." in name and not any(name.startswith(prefix) and names.has(name[len(prefix):]) for prefix in prefixes):
            overlooked += 1
            print(f"{name} of {target} would be overlooked")
    return 1 if overlooked else 0


def main(arguments):
    if len(arguments) != 2 or arguments[0] in ("-h", "--help"):
        print(__doc__.strip())
        return 0 if arguments[:1] in (["-h"], ["--help"]) else 2
    if arguments[0] == "--check":
        return check(arguments[1])
    targets = needed(*arguments)
    print("all" if targets is None else "\n".join(sorted(targets)) or "none")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
