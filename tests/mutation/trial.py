"""Tries changes: builds each, runs the tests that reach it until one fails, and keeps what came of it."""

import json
import os
import shutil
import tempfile
import threading

from tests.mutation.variants import Variant

NOTICED, UNNOTICED = "noticed", "unnoticed"
REFUSED, SAME = "does not compile", "same code"  # these do not count


class Trials:
    """Tries changes in an order that is given, until enough of them count."""

    def __init__(self, root, build, finder, reach, folder, jobs, say):
        self.root, self.build, self.finder, self.reach = root, build, finder, reach
        self.folder, self.jobs, self.say = folder, jobs, say
        self.results = {}
        self._lock = threading.Lock()
        self._stopped = threading.Event()
        self._by_file = {}
        for (file, line), names in reach.reached.items():
            self._by_file.setdefault(file, set()).update(names)

    def resume(self, name):
        """Goes on with what a file has, and keeps what comes there."""
        self._kept = name
        if os.path.exists(name):
            with open(name) as file:
                for line in file:
                    if line.endswith("\n"):
                        entry = json.loads(line)
                        self.results[entry["key"]] = entry

    def tests_for(self, mutation):
        """The names of the tests that reach a change, the fastest first."""
        lines = {mutation.line}
        # A statement of several lines is reached with its first.
        lines.update(range(mutation.line, mutation.line + mutation.before.count("\n") + 1))
        names = set()
        for line in lines:
            names |= self.reach.reached.get((mutation.file, line), set())
        if not names and not mutation.function:
            names = self._users(mutation)
        return sorted(names, key=lambda name: (self.reach.seconds[name], name))

    def _users(self, mutation):
        """The tests that reach what uses something that is defined outside functions, or its file if that is unknown."""
        seen, waiting, names = set(), [mutation.owner], set()
        while waiting:
            for use in self.finder.uses.get(waiting.pop(), ()):
                if isinstance(use, str):
                    if use not in seen:
                        seen.add(use)
                        waiting.append(use)
                else:
                    names |= self.reach.reached.get(tuple(use), set())
        if names:
            return names
        objects = self.build.dependents.get(mutation.file, set())
        files = {file for file, others in self.build.dependents.items() if others & objects and file.endswith(".cpp")}
        return set().union(*(self._by_file.get(file, set()) for file in files | {mutation.file}))

    def _objects(self, mutation):
        """The objects that a change can change."""
        linked = {each for objects, _ in self.build.images.values() for each in objects}
        objects = self.build.dependents.get(mutation.file, set()) & linked
        if mutation.function:
            first, last = mutation.function
            lines = {(mutation.file, line) for line in range(first, last + 1)}
            objects = {each for each in objects if self.reach.emitted[each] & lines}
        return sorted(objects)

    def _try(self, mutation):
        """Tries one change in a folder of its own. Returns what came of it, and the test that noticed it."""
        with tempfile.TemporaryDirectory(prefix="zelka-mutate-") as workplace:
            variant = Variant(self.build, os.path.join(workplace, "build"))
            with open(os.path.join(self.root, mutation.file), "rb") as file:
                contents = file.read()
            before = mutation.before.encode()
            assert contents[mutation.offset:mutation.offset + len(before)] == before
            changed = contents[:mutation.offset] + mutation.after.encode() + contents[mutation.offset + len(before):]
            for output in self._objects(mutation):
                if self._stopped.is_set():
                    return None
                if variant.compile(output, (mutation.file, changed)):
                    return REFUSED, "", 0
                if variant.same(output):
                    del variant.objects[output]
            if not variant.objects:
                return SAME, "", 0
            if variant.link():
                return REFUSED, "", 0
            return self._run(mutation, variant, workplace)

    def _run(self, mutation, variant, workplace):
        library = variant.programs.get(next(iter(self.build.images)))
        programs = {os.path.join(self.build.folder, name): made for name, made in variant.programs.items()}
        names = self.tests_for(mutation)
        for number, name in enumerate(names):
            if self._stopped.is_set():
                return None
            test = self.reach.tests[name]
            place = os.path.join(workplace, str(number))
            os.makedirs(place)
            status = test.run(programs, library, 5 + 5 * self.reach.seconds[name], place)
            shutil.rmtree(place, ignore_errors=True)
            if status is None:
                return NOTICED, name + " (does not end)", len(names)
            if status:
                return NOTICED, name, len(names)
        return UNNOTICED, "", len(names)

    def run(self, mutations, count):
        """Tries changes until `count` of them count. Returns those, in their order."""
        waiting = iter(mutations)
        order, counted, running = [], 0, 0
        finished = threading.Condition(self._lock)

        def counts(mutation):
            return self.results[mutation.key()]["result"] in (NOTICED, UNNOTICED)

        def work():
            nonlocal counted, running
            while not self._stopped.is_set():
                with finished:
                    # Those under way may turn out not to count.
                    while counted + running >= count and running and not self._stopped.is_set():
                        finished.wait(1)
                    mutation = next(waiting, None) if counted + running < count else None
                    if mutation is None:
                        return
                    order.append(mutation)
                    if mutation.key() in self.results:
                        counted += counts(mutation)
                        continue
                    running += 1
                try:
                    outcome = self._try(mutation)
                except BaseException:
                    self._stopped.set()
                    raise
                with finished:
                    running -= 1
                    finished.notify_all()
                    if outcome is None:
                        return
                    self._keep(mutation, outcome)
                    counted += counts(mutation)
                    self._tell(mutation, outcome, counted, count)

        workers = [threading.Thread(target=work) for _ in range(self.jobs)]
        for worker in workers:
            worker.start()
        try:
            for worker in workers:
                while worker.is_alive():
                    worker.join(0.5)
        except KeyboardInterrupt:
            self.say("Stopping; the same command goes on from here")
            self._stopped.set()
            for worker in workers:
                worker.join()
        return [mutation for mutation in order if mutation.key() in self.results and counts(mutation)][:count]

    def _keep(self, mutation, outcome):
        entry = {"key": mutation.key(), "result": outcome[0], "by": outcome[1], "tests": outcome[2]}
        self.results[mutation.key()] = entry
        with open(self._kept, "a") as file:
            file.write(json.dumps(entry) + "\n")

    def _tell(self, mutation, outcome, counted, count):
        note = {NOTICED: f"noticed by {outcome[1]}", UNNOTICED: f"UNNOTICED by {outcome[2]} tests"}
        self.say(f"[{counted}/{count}] {mutation.text()}: {note.get(outcome[0], 'does not count, ' + outcome[0])}")
