"""Reads what the headers declare for programs: functions with their overloads, globals, and what is said of them.

A small reader of this tree's own headers, no C++ parser: a declaration begins at the line's first column, a comment of
three slashes speaks for all declarations behind it up to the next comment or empty line, and macros of the header and
rows of its tables (*.def) become the declarations that they stand for."""

import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
RUNTIME = ROOT / "Runtime"
HEADERS = RUNTIME / "VELTRuntime"
EXPORTS = ROOT / "Tests" / "exports"

DECLARATIONS_OF_ROWS = "VELTRuntime/ui/accessor_declarations.h"
DECLARATION = re.compile(r"(?:\[\[noreturn\]\] )?(?:VELT_COLD )?VELT_(?:INLINE_)?EXPORT (?!class|struct)")
NAME = re.compile(r"(VELT\w*|Velt\w|META_\w+|b[A-Z]\w+|n[A-Z]\w+|\w+)")


@dataclasses.dataclass
class Row:
    """A row of a table that declared something: its macro and its arguments."""

    macro: str
    arguments: list
    says: str = ""  # the comment above the row


@dataclasses.dataclass
class Declaration:
    name: str
    result: str
    parameters: list  # pairs of type and name; None for a global
    says: str = ""  # what its comment says
    row: Row = None
    says_of_row: str = ""  # what the comment on the row's macro says
    place: str = ""  # file and line

    @property
    def types(self):
        return [kind for kind, _ in self.parameters]

    @property
    def signature(self):
        return f"{self.name}({', '.join(self.types)})"

    @property
    def text(self):
        if self.parameters is None:
            return f"{self.result} {self.name}"
        parameters = ", ".join(f"{kind} {name}".strip() for kind, name in self.parameters)
        return f"{self.result} {self.name}({parameters})"


@dataclasses.dataclass
class Header:
    """One family: what a header says of itself, and its parts in their order: declarations and remarks (texts)."""

    path: pathlib.Path
    family: str
    says: str
    parts: list

    @property
    def declarations(self):
        return [part for part in self.parts if isinstance(part, Declaration)]


def split_arguments(text):
    """The arguments of a macro or a function: divided at commas that are in no bracket and no text."""
    parts, depth, quoted, current = [], 0, False, ""
    for character in text:
        if character == '"':
            quoted = not quoted
        if not quoted:
            depth += (character in "([{<") - (character in ")]}>")
            if character == "," and depth == 0:
                parts.append(current.strip())
                current = ""
                continue
        current += character
    return parts + [current.strip()] if current.strip() or parts else []


class _Reader:
    def __init__(self, path):
        self.path = path
        self.macros = {}  # name: (parameters, body, comment)
        self.table = None
        self.comment = []  # of the declarations that follow
        self.parts = []

    def read(self):
        lines = self.path.read_text().split("\n")
        at, first = 0, []
        while at < len(lines) and lines[at].startswith("//"):
            first.append(lines[at].lstrip("/").strip())
            at += 1
        self.lines(lines, at)
        relative = self.path.relative_to(HEADERS)
        return Header(self.path, relative.stem, _paragraphs(first), self.parts)

    def lines(self, lines, at):
        remark, was_comment = [], False
        while at < len(lines):
            line = lines[at]
            place = at + 1
            at += 1
            if remark and not line.startswith("// "):
                if not line.startswith("#define"):
                    self.parts.append(_paragraphs(remark))
                else:
                    self.comment = remark
                remark = []
            if line.startswith("///"):
                self.comment = (self.comment if was_comment else []) + [line[3:].strip()]
                was_comment = True
                continue
            was_comment = False
            if not line:
                self.comment = []
            elif line.startswith("// "):
                remark.append(line[3:])
                self.comment = []
            elif line.startswith("#"):
                while line.endswith("\\"):
                    line = line[:-1].rstrip() + " " + lines[at].strip()
                    at += 1
                self.directive(line)
            elif line.startswith("namespace ") and line.endswith("{"):
                while not lines[at].startswith("}"):
                    at += 1
                at += 1
            elif DECLARATION.match(line) or re.match(r"VELT_\w+\(", line):
                while not _complete(line):
                    line += " " + lines[at].strip()
                    at += 1
                if "{" in line:
                    body = line.count("{") - line.count("}")
                    while body:
                        body += lines[at].count("{") - lines[at].count("}")
                        at += 1
                self.statement(line, f"{self.path.name}:{place}", None, "")

    def directive(self, line):
        define = re.match(r"#define (\w+)(?:\(([^)]*)\))?\s*(.*)", line)
        include = re.match(r'#include "([^"]+)"', line)
        if define and define[1] == "VELT_WRAPPER_TABLE":
            self.table = define[3].strip('"')
        elif define and define[2] is not None:
            names = [name.strip() for name in define[2].split(",")]
            self.macros[define[1]] = (names, define[3], " ".join(self.comment))
            self.comment = []
        elif line.startswith("#undef "):
            self.macros.pop(line.split()[1], None)
        elif include and include[1] == DECLARATIONS_OF_ROWS:
            outer, self.macros = self.macros, {}
            for row in (RUNTIME / DECLARATIONS_OF_ROWS).read_text().replace("\\\n", " ").split("\n"):
                if row.startswith("#define"):
                    self.directive(re.sub(r"\s+", " ", row))
            self.rows(RUNTIME / self.table)
            self.macros = outer
        elif include and include[1].endswith(".def"):
            self.rows(RUNTIME / include[1])

    def rows(self, path):
        text = re.sub(r"^#.*$", "", path.read_text(), flags=re.M)
        for match in re.finditer(r"^(VELT_\w+)\(((?:[^()\"]|\"[^\"]*\"|\((?:[^()]|\([^()]*\))*\))*)\)", text, re.M):
            above = re.search(r"\n((?://.*\n)+)$", text[: match.start()])
            says = re.sub(r"\s*//", "", above[1]).strip() if above else ""
            row = Row(match[1], split_arguments(match[2]), "" if says.startswith("VELT_") else says)
            self.comment = []
            self.statement(match[0], f"{path.name}: {match[1]}({row.arguments[0]})", row, "")

    def statement(self, text, place, row, says_of_row):
        """A declaration, or a macro that stands for some."""
        text = text.strip()
        call = re.match(r"(VELT_\w+)\(", text)
        if call and call[1] in self.macros:
            names, body, comment = self.macros[call[1]]
            inner = text[len(call[0]) : text.rindex(")")]
            row = row or Row(call[1], split_arguments(inner))
            for piece in _statements(_expanded(body, names, split_arguments(inner), self.macros)):
                self.statement(piece, place, row, says_of_row or comment)
            return
        if not DECLARATION.match(text):
            return
        text = re.sub(r"\s*\{.*", "", DECLARATION.sub("", text)).rstrip(";").strip()
        says = _paragraphs(self.comment)
        if text.startswith("extern "):
            kind, name = re.match(r"extern (.*?)(\w+)$", text).groups()
            self.parts.append(Declaration(name, kind.strip(), None, says, row, says_of_row, place))
            return
        match = re.match(r"(.+?)\b(\w+) ?\((.*)\)$", text)
        if not match or not re.match(r"VELT|Velt", match[2]):
            return
        parameters = [_parameter(part) for part in split_arguments(match[3])]
        self.parts.append(Declaration(match[2], match[1].strip(), parameters, says, row, says_of_row, place))


def _complete(line):
    return line.count("(") == line.count(")") and (line.endswith((";", "{", "}", ")")))


def _statements(text):
    """The declarations and macro calls that a macro's body consists of."""
    pieces, depth, current = [], 0, ""
    for character in text:
        current += character
        depth += (character == "(") - (character == ")")
        following_call = character == ")" and depth == 0 and re.match(r"\s*VELT_\w+\(", current)
        if character == ";" or (following_call and not DECLARATION.match(current.strip())):
            pieces.append(current)
            current = ""
    return pieces


def _expanded(body, names, arguments, macros):
    for name, argument in zip(names, arguments):
        body = re.sub(rf"(?<![\w#])#{name}\b", lambda _, text=argument: f'"{text}"', body)
        body = re.sub(rf"\b{name}\b", lambda _, text=argument: text, body)
    return re.sub(r"\s*##\s*", "", body)


def _parameter(text):
    text = text.split(" = ")[0]
    match = re.match(r"(.*?[\s&*])(\w+)$", text)
    if not match or match[2] in ("char", "short", "long", "int"):
        return (text, "")
    kind = match[1].strip()
    return (kind, match[2])


def _paragraphs(lines):
    """Comment lines as paragraphs; what is further in than a line of text stays as it is."""
    return re.sub(r"(?<=\S)\n(?=\S)", " ", "\n".join(lines)).strip()


def families():
    """All headers that declare something for programs, in the order of their folders."""
    folders = ["values", "operators", "builtins", "process", "ui", "editor/view", "drawing"]
    found = []
    for folder in folders:
        for path in sorted((HEADERS / folder).rglob("*.h")):
            if path.name.startswith("accessor") or path.name == "frame_parts.h":
                continue
            header = _Reader(path).read()
            if header.declarations:
                found.append(header)
    return found


def listed(name):
    """The lines of a list in Tests/exports."""
    lines = (EXPORTS / name).read_text().split("\n")
    return [line for line in lines if line and not line.startswith("#")]
