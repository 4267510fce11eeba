"""Builds variants of the library and of the tests that hold parts of it, beside the build folder's own and without
touching a source: the compiler is given other contents for a file."""

import filecmp
import json
import os
import re
import shlex
import subprocess
import threading


def run_apart(command, folder):
    """Runs a command that an interrupt from the terminal does not reach: a compiler that is stopped has not refused."""
    return subprocess.run(command, cwd=folder, capture_output=True, text=True, start_new_session=True)


class Build:
    """What a build folder builds, and how."""

    def __init__(self, root, folder, programs):
        """`programs`: the files of the test programs, the library's own first, from the folder."""
        self.root, self.folder = root, folder
        with open(os.path.join(folder, "compile_commands.json")) as file:
            commands = (shlex.split(entry["command"]) for entry in json.load(file))
        self.commands = {}
        for command in commands:
            if os.path.basename(command[0]) == "ccache":
                del command[0]
            self.commands[command[command.index("-o") + 1]] = command
        self._locks = {}
        self.dependents = self._dependents()
        ours = {each for objects in self.dependents.values() for each in objects}
        # Each program that holds objects made of the library's sources, with these and its link command.
        self.images = {}
        for program in programs:
            link = self._ninja("commands", "-s", program).splitlines()[-1]
            objects = [word for word in link.split() if word in ours]
            if objects:
                self.images[program] = (objects, link)

    def _ninja(self, *arguments):
        return subprocess.run(["ninja", "-C", self.folder, "-t", *arguments], capture_output=True, text=True,
                              check=True).stdout

    def _dependents(self):
        """The objects that include each file of src/, by its name from the root."""
        found, target = {}, None
        for line in self._ninja("deps").splitlines():
            if line and not line.startswith(" "):
                target = line.split(":")[0]
            elif target in self.commands:
                # From the build folder, if a compiler's cache has put it so.
                name = os.path.relpath(os.path.join(self.folder, line.strip()), self.root)
                if name.startswith("src" + os.sep):
                    found.setdefault(name, set()).add(target)
        return found

    def reference(self, output):
        """The file of an object as it is without a change, made by the same command as the changed ones."""
        made = os.path.join(self.folder, "reference", output)
        with self._locks.setdefault(output, threading.Lock()):
            if not os.path.exists(made) or os.path.getmtime(made) < os.path.getmtime(os.path.join(self.folder, output)):
                complaint = Variant(self, os.path.join(self.folder, "reference")).compile(output)
                if complaint:
                    raise SystemExit(complaint)
        return made

    def sources(self):
        """Each source file of the library and the arguments that the compiler gets for it."""
        for output, command in sorted(self.commands.items()):
            source = command[-1]
            if source.startswith(os.path.join(self.root, "src") + os.sep) and output.startswith("src/"):
                at = command.index("-o")
                yield source, [word for word in command[1:at] + command[at + 2:-1] if word != "-c"]


class Variant:
    """A variant of some of a build's objects, in a folder of its own."""

    def __init__(self, build, folder, flags=()):
        self.build, self.folder, self.flags = build, folder, list(flags)
        self.objects, self.programs = {}, {}

    def compile(self, output, replaced=None):
        """Makes one object, with other contents for the file that `replaced` names. Returns the compiler's complaint, or
        None."""
        made = os.path.join(self.folder, output)
        os.makedirs(os.path.dirname(made), exist_ok=True)
        command = list(self.build.commands[output])
        command[command.index("-o") + 1] = made
        extra = list(self.flags)
        if replaced:
            name, contents = replaced
            overlay = os.path.join(self.folder, "overlay.json")
            with open(os.path.join(self.folder, "contents"), "wb") as file:
                file.write(contents)
            with open(overlay, "w") as file:
                json.dump({"version": 0, "use-external-names": False,
                           "roots": [{"type": "file", "name": os.path.join(self.build.root, name),
                                      "external-contents": os.path.join(self.folder, "contents")}]}, file)
            extra += ["-ivfsoverlay", overlay]
        command[-2:-2] = extra
        done = run_apart(command, self.build.folder)
        if done.returncode:
            return done.stderr
        self.objects[output] = made
        return None

    def same(self, output):
        """Whether an object is what it is without the change."""
        return filecmp.cmp(self.objects[output], self.build.reference(output), shallow=False)

    def link(self, flags="", without=()):
        """Links every program that has one of the objects, with other flags. Returns the linker's complaint, or None."""
        for program, (objects, command) in self.build.images.items():
            if not any(each in self.objects for each in objects):
                continue
            made = os.path.join(self.folder, program)
            os.makedirs(os.path.dirname(made), exist_ok=True)
            words = re.split(r"( )", command)
            for i, word in enumerate(words):
                if word in self.objects:
                    words[i] = self.objects[word]
                elif word == program:
                    words[i] = made + (" " + flags if flags else "")
                elif word in without:
                    words[i] = ""
            done = run_apart(["sh", "-c", "".join(words)], self.build.folder)
            if done.returncode:
                return done.stderr
            self.programs[program] = made
        return None
