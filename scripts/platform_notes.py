"""What the headers of the platform's classes say of the messages that their objects answer."""

import re

from declarations import HEADERS, EXPORTS

FOLDERS = ("platform", "editor/view", "process", "drawing", "values")


class PlatformNotes:
    def __init__(self):
        self.superclasses = dict(
            re.findall(
                r"^VELT_KNOWN_CLASS\((\w+), (\w+)\)",
                (HEADERS / "platform/object/known_classes.def").read_text(),
                re.M,
            )
        )
        self.members = {}  # (class, member): comment
        self.classes = {}  # class: comment
        self.selectors = {}  # (class, selector): member
        paths = list(HEADERS.parent.glob("*.*"))  # what programs include by its bare name
        for folder in FOLDERS:
            paths += (HEADERS / folder).rglob("*")
        for path in sorted(path for path in paths if path.suffix in (".h", ".cpp")):
            if path.suffix == ".h":
                self._read_header(path.read_text())
            self._read_descriptions(path.read_text())

    def _read_header(self, text):
        for name, superclass in re.findall(r"VELT_OBJECT\((\w+), (\w+)\)", text):
            self.superclasses.setdefault(name, superclass)
        cls, comment = None, []
        for line in text.split("\n"):
            opened = re.match(r"class VELT_EXPORT (\w+)", line)
            if opened:
                cls = opened[1]
                if comment:
                    self.classes[cls] = " ".join(comment)
            stripped = line.strip()
            if stripped.startswith("///"):
                comment.append(stripped[3:].strip())
                continue
            member = re.match(r"\s+(?:static |virtual |explicit )*[\w:<>*&, ]+?[ *&](\w+)\(", line)
            if cls and member and comment:
                self.members.setdefault((cls, member[1]), " ".join(comment))
            comment = []

    def _read_descriptions(self, text):
        row = r"\.(property|flag|method)\("
        for kind, name, members in re.findall(rf"{row}\s*\"([\w:]+)\",((?:(?!\.(?:property|flag|method)\()[^;\"])*)", text):
            found = re.findall(r"&(\w+)::(\w+)", members)
            if not found:
                continue
            cls, first = found[0]
            selectors = [name] if kind != "flag" else ["is" + name[0].upper() + name[1:]]
            for selector in selectors:
                self.selectors[(cls, selector)] = first
            if kind != "method":
                setter = "set" + name[0].upper() + name[1:] + ":"
                self.selectors[(cls, setter)] = found[1][1] if len(found) > 1 else first

    def named_like(self, prefix):
        """The class whose name in capitals begins a function's name; None for an unknown one."""
        return {name.upper(): name for name in self.superclasses}.get(prefix)

    def says(self, cls, *selectors):
        """What the class, or one of its superclasses, says of the first of the messages that it says something of."""
        while cls:
            for selector in selectors:
                member = self.selectors.get((cls, selector))
                comment = self.members.get((cls, member)) if member else None
                # What leans on the line above it means nothing alone.
                if comment and not re.match(r"(The same|Likewise|And |As above|They |Both )", comment):
                    return comment
            cls = self.superclasses.get(cls)
        return ""


def library_classes():
    """The classes of Tests/exports/classes.txt with their messages, under the list's own headings."""
    parts = []
    for line in (EXPORTS / "classes.txt").read_text().split("\n")[3:]:
        words = line.split()
        if line.startswith("# "):
            parts.append((line[2:], {}))
        elif words:
            parts[-1][1].setdefault(words[0], []).extend(words[1:])
    return parts
