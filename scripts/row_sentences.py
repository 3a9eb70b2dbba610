"""Rows of tables in whole sentences: what such a function takes, sends, returns and raises."""

import re

NO_TEXT = "VLException for nil"
# Of each kind of value: what a getter gives, what it gives for nil, how a setter reads its value, what that raises.
KINDS = {
    "Boolean": ("a Boolean", "False", "VELT_CBOOL", "'Boolean' expected"),
    "Integer": ("an Integer", "0", "VELT_CBYTE", "'Integer' expected"),
    "Unsigned": ("an unsigned integer", "0", "VELT_CBYTE", "'Integer' expected"),
    "Double": ("a Double", "0.0", "VELT_CDOUBLE", "'Double' expected"),
    "Single": ("a Single", "0.0", "VELT_CSINGLE", "'Single' expected"),
    "Text": ("a new string that cannot be changed", "nil", "VELT_CSTRING", NO_TEXT),
    "MutableText": ("a new string that may be changed", "nil", "VELT_CSTRING", NO_TEXT),
    "RichText": ("an attributed string", "nil", "VELT_CATTRIBUTEDSTRING", "'AttributedString' expected"),
    "Point": ("a point", "the zero point", "VELT_CNSPOINT", "'Point' expected"),
    "Size": ("a size", "the zero size", "VELT_CNSSIZE", "'Size' expected"),
    "Rect": ("a rectangle", "the zero rectangle", "VELT_CNSRECT", "'Rect' expected"),
    "Object": ("an object", "nil", None, None),
}
WRAPPERS = {
    "VELT_PROPERTY", "VELT_OBJECT_PROPERTY", "VELT_ANY_PROPERTY", "VELT_GETTER", "VELT_SETTER", "VELT_OBJECT_SETTER",
    "VELT_COMMAND", "VELT_SELF_COMMAND", "VELT_NIL_COMMAND", "VELT_QUERY",
}  # fmt: skip


def _article(noun):
    return ("an " if noun[0].lower() in "aeiou" or re.match(r"NS|RT?F", noun) else "a ") + f"`{noun}`"


class RowSentences:
    def __init__(self, notes, casts):
        self.notes = notes  # PlatformNotes
        self.casts = casts  # suffix of a cast: the class that it tests

    def of(self, row):
        """The text of a row's functions; "" for a macro that its header explains."""
        if row.macro in WRAPPERS:
            return self._wrapper(row)
        if row.macro in ("VELT_CLASS_CAST", "VELT_CLASS_CHECK"):
            return self._class_test(row)
        if row.macro.startswith("VELT_MATH"):
            return self._math(row)
        if row.macro in ("VELT_BUTTON", "VELT_INDICATOR_BUTTON"):
            return self._button(row)
        return ""

    def _wrapper(self, row):
        function, kind = row.arguments[0], row.arguments[1]
        cls = self.notes.named_like(function.split("_")[0])
        receiver = _article(cls) if cls else "an object"
        selectors = [argument.strip('"') for argument in row.arguments if argument.startswith('"')]
        macro = row.macro.removeprefix("VELT_")
        comment = self.notes.says(cls, *selectors)
        lines = [comment] if comment else []
        if "OBJECT" in macro or "ANY" in macro:
            kind = "Object"
        if "PROPERTY" in macro or macro == "GETTER":
            given, zero, _, _ = KINDS[kind]
            lines.append(f"Sends `{selectors[0]}` to {receiver} and returns {given}; {zero} for nil.")
        if "PROPERTY" in macro or "SETTER" in macro:
            cast = row.arguments[1] if "OBJECT" in macro else None
            lines.append(self._setter(receiver, selectors[-1], kind, cast, "PROPERTY" in macro))
        if macro == "QUERY":
            _, _, reading, reason = KINDS[kind]
            how = f"Reads the value with `{reading}`{_raising(reason)}, sends" if reading else "Sends"
            lines.append(f"{how} `{selectors[0]}` with it to {receiver} and returns what comes back; nil for nil.")
        if "COMMAND" in macro:
            argument = {"SELF_COMMAND": " with the receiver itself as its argument", "NIL_COMMAND": " with nil"}
            sent = argument.get(macro, "")
            lines.append(f"Sends `{selectors[0]}`{sent} to {receiver} and returns nil; nothing happens for nil.")
        lines.append("Raises `NSInvalidArgumentException` when the receiver has no such message.")
        return " ".join(lines)

    def _setter(self, receiver, selector, kind, cast, after_getter):
        begin = "With a value, " if after_getter else ""
        reading, reason = KINDS[kind][2], KINDS[kind][3]
        if cast:
            reading = f"VELT_C{cast}"
            reason = f"'{self.casts[cast]}' expected" if cast in self.casts else None
        if not reading:
            sentence = f"{begin}sends `{selector}` with it as it is" + ("" if after_getter else f" to {receiver}")
        else:
            what = "reads it" if after_getter else "reads the value"
            sentence = f"{begin}{what} with `{reading}`{_raising(reason)}, sends `{selector}`"
            sentence += "" if after_getter else f" to {receiver}"
        return sentence[0].upper() + sentence[1:] + ", and returns nil."

    @staticmethod
    def _class_test(row):
        suffix, cls = row.arguments[0], row.arguments[1]
        use = "is stored in a variable of that class" if row.macro == "VELT_CLASS_CHECK" else "is used as one"
        rejected = len(row.arguments) > 2 and row.arguments[2] == "NilRejected"
        return (
            f"The value itself, when it is {_article(cls)} or of a subclass, before it {use}. Raises `VLCastException` "
            f"with \"'{cls}' expected\" for anything else{', nil too' if rejected else '; nil passes'}."
        )

    @staticmethod
    def _math(row):
        expression = row.arguments[1].replace("std::", "").replace("velt::", "")
        expression = {"truncated(rint(x))": "rint(x)", "logarithmOfGamma(x)": "log(|Γ(x)|)"}.get(expression, expression)
        kind = "an Integer" if row.macro == "VELT_MATHI" else "a Double"
        operands = "x and y go" if row.macro == "VELT_MATH2" else "x goes"
        return f"`{expression}` as {kind}; {operands} through `VELT_CDOUBLE` (\"'Double' expected\")."

    @staticmethod
    def _button(row):
        look = f"has the border `{row.arguments[2]}`" if len(row.arguments) > 2 else "has no border"
        return (
            f"A new button of no size that works as `{row.arguments[1]}` and {look}. Its action is the owner's method of "
            "that name, with the owner as its target, if the owner has it. Raises `NSInternalInconsistencyException` on "
            "another thread than the main one."
        )


def _raising(reason):
    if reason == NO_TEXT:
        return " (raises `VLException` for nil)"
    return f" (raises \"{reason}\")" if reason else ""
