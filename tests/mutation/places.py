"""Finds the places in src/ at which a small change may be made, in clang's syntax tree of it."""

import dataclasses
import os
import re

import clang.cindex
from clang.cindex import CursorKind

SWAPPED = {
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
    "==": ["!="], "!=": ["=="], "&&": ["||"], "||": ["&&"],
    "&": ["|"], "|": ["&"], "^": ["&"], "<<": [">>"], ">>": ["<<"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "|=": ["&="], "&=": ["|="],
}
FUNCTIONS = {
    CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
    CursorKind.CONVERSION_FUNCTION, CursorKind.FUNCTION_TEMPLATE,
}
VARIABLES = {CursorKind.VAR_DECL, CursorKind.FIELD_DECL, CursorKind.ENUM_CONSTANT_DECL}
NUMBER = re.compile(r"(0[xX][0-9a-fA-F']+|[0-9']+)([uUlLzZ]*)")

@dataclasses.dataclass(frozen=True)
class Mutation:
    """A change: `before`, at an offset (in bytes) of a file, becomes `after`."""

    file: str  # from the repository's root
    line: int
    offset: int
    before: str
    after: str
    kind: str
    # The lines of the function that the change is in; none of a constant expression's, whose value any file may hold.
    function: tuple = ()
    # Outside of functions, the name (clang's USR) of what is defined there.
    owner: str = ""

    def key(self):
        return f"{self.file}:{self.offset}:{self.kind}:{self.before}:{self.after}"

    def change(self):
        def short(code):
            code = " ".join(code.split())
            return code if len(code) <= 100 else code[:97] + "..."
        return f"{self.kind}: `{short(self.before)}` -> `{short(self.after)}`"

    def text(self):
        return f"{self.file}:{self.line}: {self.change()}"

class Finder:
    """Collects the changes of all of src/, of each header once, and the lines that use what stands outside functions."""

    def __init__(self, root):
        self.root = root
        self.mutations = {}
        self.uses = {}
        self._seen = set()
        self._sources = {}

    def read(self, file, arguments):
        """Looks at a source file as the compiler is called for it, and at the headers of src/ that it includes."""
        unit = clang.cindex.Index.create().parse(file, args=arguments)
        errors = [str(each) for each in unit.diagnostics if each.severity >= clang.cindex.Diagnostic.Error]
        if errors:
            raise SystemExit(f"{file} cannot be read:\n" + "\n".join(errors))
        for cursor in unit.cursor.get_children():
            name = self._name(cursor)
            if name and (name, cursor.extent.start.offset) not in self._seen:
                self._seen.add((name, cursor.extent.start.offset))
                self._visit(cursor, [], None, "")

    def _name(self, cursor):
        """The file of a cursor, from the root, if it is the library's."""
        file = cursor.location.file
        if file is None:
            return None
        name = os.path.relpath(os.path.realpath(file.name), self.root)
        return name if name.startswith("src" + os.sep) else None

    def _source(self, name):
        if name not in self._sources:
            with open(os.path.join(self.root, name), "rb") as file:
                self._sources[name] = file.read()
        return self._sources[name]

    def _add(self, cursor, start, end, after, kind):
        name, function, owner = cursor
        source = self._source(name)
        before = source[start:end].decode()
        if not before or before == after:
            return
        # Lines stay where they are, for what tells them.
        after += "\n" * (before.count("\n") - after.count("\n"))
        line = source.count(b"\n", 0, start) + 1
        mutation = Mutation(name, line, start, before, after, kind, function or (), "" if function else owner)
        self.mutations.setdefault(mutation.key(), mutation)

    def _visit(self, cursor, parents, function, owner):
        kind = cursor.kind
        if kind in (CursorKind.STATIC_ASSERT, CursorKind.USING_DIRECTIVE):
            return
        name = self._name(cursor)
        if name is None:
            return
        extent = cursor.extent
        if kind in FUNCTIONS and function is None:
            head = self._source(name)[extent.start.offset:extent.end.offset].split(b"{")[0]
            folded = re.search(rb"\bconst(expr|eval)\b", head)
            function = () if folded else (extent.start.line, extent.end.line)
            # What a constant expression's value depends on is used wherever it is.
            owner = cursor.get_usr() if folded else owner
        elif kind in VARIABLES and not function:
            owner = cursor.get_usr()
        if kind in (CursorKind.DECL_REF_EXPR, CursorKind.MEMBER_REF_EXPR, CursorKind.CALL_EXPR):
            target = cursor.referenced
            if target is not None and self._name(target):
                self.uses.setdefault(target.get_usr(), set()).add((name, extent.start.line) if function else owner)
        children = list(cursor.get_children())
        place = (name, function, owner)
        self._operators(place, cursor, children)
        self._constants(place, cursor, parents)
        self._statements(place, cursor, children)
        self._calls(place, cursor, children)
        for child in children:
            self._visit(child, parents + [kind], function, owner)

    def _operators(self, place, cursor, children):
        kind = cursor.kind
        source = self._source(place[0])
        pair = None
        if kind in (CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            pair = children
        elif kind == CursorKind.CALL_EXPR and cursor.spelling.startswith("operator") and len(children) == 3:
            pair = [children[0], children[2]]
        if pair:
            start, end = pair[0].extent.end.offset, pair[1].extent.start.offset
            operator = source[start:end].decode(errors="replace")
            for other in SWAPPED.get(operator.strip(), ()):
                at = start + operator.index(operator.strip())
                self._add(place, at, at + len(operator.strip()), other, "operator")
        if kind == CursorKind.UNARY_OPERATOR and len(children) == 1:
            start, inner = cursor.extent.start.offset, children[0].extent.start.offset
            operator = source[start:inner].decode(errors="replace").strip()
            if operator in ("!", "-", "~"):
                self._add(place, start, inner, "", "operator")
            elif operator in ("++", "--"):
                self._add(place, start, inner, "--" if operator == "++" else "++", "operator")
        if kind == CursorKind.CONDITIONAL_OPERATOR and len(children) == 3:
            spans = [source[each.extent.start.offset:each.extent.end.offset].decode() for each in children]
            self._add(place, cursor.extent.start.offset, cursor.extent.end.offset,
                      f"{spans[0]} ? {spans[2]} : {spans[1]}", "condition")

    def _constants(self, place, cursor, parents):
        kind = cursor.kind
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        text = self._source(place[0])[start:end].decode(errors="replace")
        if kind == CursorKind.INTEGER_LITERAL:
            number = NUMBER.fullmatch(text)
            if number:
                value = int(number[1].replace("'", ""), 0)
                self._add(place, start, end, f"{0 if value == 1 else value + 1}{number[2]}", "constant")
        elif kind == CursorKind.FLOATING_LITERAL and re.fullmatch(r"[0-9.']+(e-?\d+)?[fF]?", text):
            self._add(place, start, end, f"({text} + 1)", "constant")
        elif kind == CursorKind.CXX_BOOL_LITERAL_EXPR and text in ("true", "false"):
            self._add(place, start, end, "false" if text == "true" else "true", "constant")
        elif kind == CursorKind.STRING_LITERAL and re.fullmatch(r'"[^"\\]+"', text):
            # A selector is a template argument; it is checked as a whole.
            if CursorKind.DECL_REF_EXPR not in parents and function_of(parents):
                self._add(place, start, end, text[:-2] + '"', "text")

    def _statements(self, place, cursor, children):
        kind = cursor.kind
        source = self._source(place[0])
        if kind in (CursorKind.IF_STMT, CursorKind.WHILE_STMT):
            conditions = [each for each in children[:2] if each.kind.is_expression()]
            if conditions and source[:conditions[0].extent.start.offset].rstrip().endswith((b"(", b";")):
                start, end = conditions[0].extent.start.offset, conditions[0].extent.end.offset
                for value in ("true", "false") if kind == CursorKind.IF_STMT else ("false",):
                    self._add(place, start, end, value, "condition")
        if kind == CursorKind.COMPOUND_STMT:
            bodies = children
        elif kind in (CursorKind.IF_STMT, CursorKind.FOR_STMT, CursorKind.WHILE_STMT, CursorKind.CXX_FOR_RANGE_STMT):
            bodies = children[-2 if kind == CursorKind.IF_STMT and len(children) > 2 else -1:]
        else:
            bodies = []
        for body in bodies:
            if is_statement(body, source):
                self._add(place, body.extent.start.offset, body.extent.end.offset, "", "dropped statement")
        if kind == CursorKind.COMPOUND_STMT:
            for first, second in zip(children, children[1:]):
                if is_statement(first, source) and is_statement(second, source):
                    self._swap(place, first, second, "swapped statements")
        if kind == CursorKind.RETURN_STMT and children and children[0].kind.is_expression():
            start, end = children[0].extent.start.offset, children[0].extent.end.offset
            if len(source[start:end]) > 5:  # "{}", "true", "nil" and numbers are constants
                self._add(place, start, end, "{}", "returned value")

    def _calls(self, place, cursor, children):
        if cursor.kind != CursorKind.CALL_EXPR or cursor.spelling.startswith("operator"):
            return
        arguments = [each for each in cursor.get_arguments() if each is not None]
        for first, second in zip(arguments, arguments[1:]):
            one, other = (each.type.get_canonical().spelling for each in (first, second))
            if one == other and "type-parameter" not in one and "dependent" not in one:
                self._swap(place, first, second, "swapped arguments")

    def _swap(self, place, first, second, kind):
        source = self._source(place[0])
        a, b, c, d = (first.extent.start.offset, first.extent.end.offset, second.extent.start.offset,
                      second.extent.end.offset)
        # What a macro makes has the macro's place.
        if a < b <= c < d and source[a:b] != source[c:d]:
            self._add(place, a, d, (source[c:d] + source[b:c] + source[a:b]).decode(), kind)

def function_of(parents):
    return any(kind in FUNCTIONS or kind == CursorKind.LAMBDA_EXPR for kind in parents)

def is_statement(cursor, source):
    """Whether a body's child is an expression with its semicolon."""
    end = cursor.extent.end.offset
    return cursor.kind.is_expression() and source[end:end + 1] == b";" and cursor.extent.start.offset < end
