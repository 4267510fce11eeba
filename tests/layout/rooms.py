#!/usr/bin/env python3
"""Checks from the sources which file includes which, and where messages are sent.

Three rules:
- The folders of src/ stand in an order (ROOMS, lowest first). A file includes files of its own folder and of the ones
  below it, never of one above. settings_page/ stands above those that it uses (PAGE_USES), and nothing includes it.
- In src/, settings_page/ and simulator/ no circle of includes runs through files. A header and its source (one stem) count as one file,
  because who includes the header needs the source as well.
- In src/ and settings_page/, only handles send messages (HANDLES): elsewhere a message is a method of a handle.

Usage: rooms.py [REPOSITORY]. Prints each line and each circle that breaks a rule; fails when there is one.
"""

import pathlib
import re
import sys

ROOMS = ["platform", "util", "settings", "cache", "render", "contacts", "changes", "hooks", "exports", "bootstrap"]
PAGE_USES = ["platform", "util", "settings", "render"]
LIBRARY = ("src/", "settings_page/")
DATA = "resources/settings.def"  # the rows of the settings, which everybody may include
TREES = ["src", "settings_page", "simulator"]
HANDLES = ["src/platform/", "src/hooks/host_classes.h", "src/settings/settings.h", "settings_page/preferences.h"]
SUFFIXES = {".h", ".cpp", ".mm", ".m", ".c"}
INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*"([^"]+)"')
SEND = re.compile(r"\bsend<")


def lines(root):
    """Every line of the sources: (file, line number, text)."""
    for tree in TREES:
        for path in sorted((root / tree).rglob("*")):
            if path.suffix in SUFFIXES:
                for number, text in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
                    yield path.relative_to(root).as_posix(), number, text


def message_faults(found):
    for path, number, text in found:
        if path.startswith(LIBRARY) and SEND.search(text) and not any(path.startswith(handle) for handle in HANDLES):
            yield f"{path}:{number}: sends a message, which is a handle's to do: {text.strip()}"


def room_of(path):
    """The room's place in the order; None for a file that stands in no room."""
    parts = path.split("/")
    if parts[0] != "src" or len(parts) < 3:
        return None
    return ROOMS.index(parts[1]) if parts[1] in ROOMS else None


def room_faults(root, edges):
    for folder in sorted(path.name for path in (root / "src").iterdir() if path.is_dir()):
        if folder not in ROOMS:
            yield f"src/{folder}: a folder without a place in the order of rooms"
    for source, line, target in edges:
        if target != DATA and (fault := edge_fault(source, target)):
            yield f'{source}:{line}: includes "{target}", {fault}'


def edge_fault(source, target):
    """What is wrong with the one including the other; None when nothing is."""
    if source.startswith("simulator/"):
        return "but the simulator knows nothing of the library" if target.startswith(LIBRARY) else None
    if source.startswith("settings_page/"):
        allowed = target.startswith(("settings_page/", *(f"src/{room}/" for room in PAGE_USES)))
        return None if allowed else f"but the settings page uses {', '.join(PAGE_USES)} and nothing else"
    if not target.startswith("src/"):
        return "which is not of src/"
    above, below = room_of(target), room_of(source)
    if above is None or below is None:
        return "but one of them stands in no room"
    return f"but {ROOMS[below]} stands below {ROOMS[above]}" if above > below else None


def stem(path):
    return path.rsplit(".", 1)[0]


def circles(edges):
    """One circle of each group of files that include each other, as lists of (file, line, included path)."""
    graph = {}
    for source, line, target in edges:
        if stem(source) != stem(target):
            graph.setdefault(stem(source), {}).setdefault(stem(target), (source, line, target))
            graph.setdefault(stem(target), {})
    for group in components(graph):
        if len(group) > 1:
            yield circle_through(graph, group)


def components(graph):
    """Tarjan's strongly connected components, without recursion."""
    index, low, on_stack, stack, result = {}, {}, set(), [], []
    for start in sorted(graph):
        if start in index:
            continue
        work = [(start, iter(graph[start]))]
        while work:
            node, targets = work[-1]
            if node not in index:
                index[node] = low[node] = len(index)
                stack.append(node)
                on_stack.add(node)
            for target in targets:
                if target not in index:
                    work.append((target, iter(graph[target])))
                    break
                if target in on_stack:
                    low[node] = min(low[node], index[target])
            else:
                work.pop()
                if work:
                    low[work[-1][0]] = min(low[work[-1][0]], low[node])
                if low[node] == index[node]:
                    group = set()
                    while node not in group:
                        group.add(stack[-1])
                        on_stack.discard(stack.pop())
                    result.append(group)
    return result


def circle_through(graph, group):
    """The shortest circle through the group's first file."""
    start = min(group)
    paths, seen = [[start]], set()
    while paths:
        path = paths.pop(0)
        for target in sorted(graph[path[-1]]):
            if target == start:
                closed = path + [start]
                return [graph[a][b] for a, b in zip(closed, closed[1:])]
            if target in group and target not in seen:
                seen.add(target)
                paths.append(path + [target])
    raise AssertionError("a group of files that include each other has a circle")


def main():
    root = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parents[2]
    found = list(lines(root))
    edges = [(path, number, match.group(1)) for path, number, text in found if (match := INCLUDE.match(text))]
    for tree in TREES:
        if not any(path.startswith(tree + "/") for path, _, _ in edges):
            sys.exit(f"{root / tree}: no includes found")
    faults = [*room_faults(root, edges), *message_faults(found)]
    for circle in circles(edges):
        faults.append("a circle of includes:\n" + "\n".join(f'    {s}:{n}: includes "{t}"' for s, n, t in circle))
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
