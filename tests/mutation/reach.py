"""Finds out which tests reach which lines of src/, by running each test once on a build that counts."""

import concurrent.futures
import glob
import hashlib
import json
import os
import shutil
import subprocess
import time

from tests.mutation.variants import Variant

COUNTING = ["-O0", "-g1", "-fprofile-instr-generate", "-fcoverage-mapping", "-mllvm", "-runtime-counter-relocation"]


# Stands in the commands of tests that ctest found by asking the program for them.
DISCOVERED = "--gtest_also_run_disabled_tests"


class Test:
    """One test: a command, and what a run of it needs."""

    def __init__(self, name, command, folder, environment):
        self.name, self.command, self.folder, self.environment = name, command, folder, environment

    def run(self, programs, library, seconds, workplace, extra=()):
        """Runs the test on other programs and another library. Returns its exit code; None when the time is over."""
        command = [programs.get(self.command[0], self.command[0])] + self.command[1:]
        environment = {**os.environ, **dict(self.environment), "TMPDIR": workplace, **dict(extra)}
        if library:
            environment["ZELKA_LIBRARY"] = library
        process = subprocess.Popen(command, cwd=self.folder, env=environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
        try:
            return process.wait(seconds)
        except subprocess.TimeoutExpired:
            return None
        finally:
            # The hosts that a test has started may outlive it.
            try:
                os.killpg(process.pid, 9)
            except ProcessLookupError:
                pass
            process.wait()


def tests_of(folder):
    """The tests that ctest has for the programs that are built, on this machine's build of the library."""
    listed = subprocess.run(["ctest", "--show-only=json-v1"], cwd=folder, capture_output=True, text=True, check=True)
    for entry in json.loads(listed.stdout)["tests"]:
        properties = {each["name"]: each["value"] for each in entry["properties"]}
        if "full" in properties.get("LABELS", []) or DISCOVERED not in entry.get("command", []):
            continue
        environment = [word.split("=", 1) for word in properties.get("ENVIRONMENT", [])]
        yield Test(entry["name"], entry["command"], properties.get("WORKING_DIRECTORY", folder), environment)


def digest(*files):
    sum_ = hashlib.sha256()
    for name in files:
        with open(name, "rb") as file:
            sum_.update(file.read())
    return sum_.hexdigest()[:20]


class Reach:
    """The lines that each test reaches and how long it takes, kept in a folder from one run to the next."""

    def __init__(self, build, folder, tests, hosts, jobs, say):
        self.build, self.folder, self.jobs, self.say = build, folder, jobs, say
        self.tests = {test.name: test for test in tests}
        self.hosts = hosts  # the programs that tests start
        self.reached, self.seconds, self.failing = {}, {}, []
        self.emitted = {}
        os.makedirs(folder, exist_ok=True)

    def measure(self):
        variant = self._variant()
        kept_name = os.path.join(self.folder, "reached.json")
        kept = {}
        if os.path.exists(kept_name):
            with open(kept_name) as file:
                kept = json.load(file)
        library = os.path.join(self.build.folder, next(iter(self.build.images)))
        marks = {program: digest(library, program, *self.hosts)
                 for program in {test.command[0] for test in self.tests.values()}}
        missing = [test for test in self.tests.values()
                   if kept.get(test.name, {}).get("mark") != marks[test.command[0]]]
        if missing:
            self.say(f"Running {len(missing)} tests once to see which lines they reach")
        with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
            started = time.monotonic()
            try:
                results = pool.map(lambda each: self._run(each, variant), missing)
                for done, (test, result) in enumerate(zip(missing, results), 1):
                    kept[test.name] = {"mark": marks[test.command[0]], **result}
                    if time.monotonic() - started > 15:
                        started = time.monotonic()
                        self.say(f"  {done} of {len(missing)}")
            finally:
                pool.shutdown(cancel_futures=True)
                with open(kept_name + ".new", "w") as file:
                    json.dump(kept, file)
                os.replace(kept_name + ".new", kept_name)
        for name in self.tests:
            self.seconds[name] = kept[name]["seconds"]
            if not kept[name]["passed"]:
                self.failing.append(name)
                continue
            for file, lines in kept[name]["lines"].items():
                for line in lines:
                    self.reached.setdefault((file, line), set()).add(name)

    def _variant(self):
        """The counting build, made again when an object has changed."""
        folder = os.path.join(self.folder, "counting")
        variant = Variant(self.build, folder, COUNTING)
        outputs = sorted({each for objects, _ in self.build.images.values() for each in objects})
        mark = digest(*(os.path.join(self.build.folder, each) for each in outputs)) + str(COUNTING)
        mark_name = os.path.join(folder, "mark")
        if os.path.exists(mark_name) and open(mark_name).read() == mark:
            variant.objects = {each: os.path.join(folder, each) for each in outputs}
            variant.programs = {each: os.path.join(folder, each) for each in self.build.images}
        else:
            self.say(f"Building {len(outputs)} objects that count")
            with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
                for complaint in pool.map(variant.compile, outputs):
                    if complaint:
                        raise SystemExit(complaint)
            # What counts is written when the program ends, which the library's own link makes no room for.
            complaint = variant.link("-fprofile-instr-generate", without=["-nostartfiles"])
            if complaint:
                raise SystemExit(complaint)
            with open(mark_name, "w") as file:
                file.write(mark)
        for output, made in variant.objects.items():
            self.emitted[output] = self._lines_with_code(made)
        return variant

    def _lines_with_code(self, made):
        """The lines of src/ that an object has code of, by its line table."""
        listed = subprocess.run(["llvm-dwarfdump", "--debug-line", made], capture_output=True, text=True,
                                check=True).stdout
        return parse_line_tables(listed, self.build.root)

    def _run(self, test, variant):
        workplace = os.path.join("/tmp", f"zelka-reach-{os.getpid()}-{abs(hash(test.name)) % 10**9}")
        os.makedirs(workplace)
        try:
            library = next(iter(self.build.images))
            programs = {os.path.join(self.build.folder, name): made for name, made in variant.programs.items()}
            began = time.monotonic()
            status = test.run(programs, variant.programs[library], 120, workplace,
                              [("LLVM_PROFILE_FILE", workplace + "/%c%p-%m.profraw")])
            seconds = time.monotonic() - began
            lines = self._lines(glob.glob(workplace + "/*.profraw"), workplace,
                                [variant.programs[library], *(
                                    [programs[test.command[0]]] if test.command[0] in programs else [])])
            return {"passed": status == 0, "seconds": round(seconds, 3), "lines": lines}
        finally:
            shutil.rmtree(workplace, ignore_errors=True)

    def _lines(self, profiles, workplace, programs):
        """The lines of src/ that were reached, by file."""
        if not profiles:
            return {}
        merged = os.path.join(workplace, "merged")
        subprocess.run(["llvm-profdata", "merge", "-sparse", "-o", merged, *profiles], check=True,
                       capture_output=True)
        command = ["llvm-cov", "export", "-format=lcov", "-instr-profile=" + merged, programs[0]]
        for other in programs[1:]:
            command += ["-object", other]
        listed = subprocess.run(command, check=True, capture_output=True, text=True).stdout
        found, lines = {}, []
        for line in listed.splitlines():
            if line.startswith("SF:"):
                name = os.path.relpath(line[3:], self.build.root)
                lines = found.setdefault(name, []) if name.startswith("src" + os.sep) else []
            elif line.startswith("DA:"):
                number, count = line[3:].split(",")[:2]
                if int(count):
                    lines.append(int(number))
        return {name: lines for name, lines in found.items() if lines}


def parse_line_tables(listed, root):
    """Which lines of src/ stand in the line tables that llvm-dwarfdump lists."""
    directories, files, found, entry, name = {}, {}, set(), None, None
    for line in listed.splitlines():
        words = line.split()
        if line.startswith("include_directories["):
            directories[int(line[20:line.index("]")])] = line.split('"')[1]
        elif line.startswith("file_names["):
            entry = int(line[11:line.index("]")])
        elif words[:1] == ["name:"]:
            name = line.split('"')[1]
        elif words[:1] == ["dir_index:"]:
            path = os.path.relpath(os.path.join(root, directories.get(int(words[1]), ""), name), root)
            files[entry] = path if path.startswith("src" + os.sep) else None
        elif line.startswith("0x") and len(words) > 4 and files.get(int(words[3])):
            found.add((files[int(words[3])], int(words[1])))
    return found
