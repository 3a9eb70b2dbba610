"""The property lists of another implementation.

peer.py write FORM FILE   writes a property list of every kind of value
peer.py check FORM FILE   ends with status 0 if the file holds the same
peer.py copy FORM FROM TO reads a file in any form and writes what it holds
"""
import datetime
import plistlib
import sys

FORMS = {"xml": plistlib.FMT_XML, "binary": plistlib.FMT_BINARY}


def sample(form):
    values = {
        "text": "plain & <marked>",
        "été": "\u03b1\u03b2 \U0001f600",
        "": "an empty key",
        "empty": "",
        "long": "x" * 100000,
        "integers": [0, 1, -1, 255, 256, 65536, 2**32, 2**63 - 1, -(2**63), 2**63, 2**64 - 1],
        "reals": [0.0, 0.5, -1.25, 0.1, 1e300, 5e-324],
        "truths": [True, False],
        "date": datetime.datetime(2026, 11, 21, 7, 31, 51),
        "old": datetime.datetime(1969, 7, 20, 20, 17, 40),
        "data": bytes(range(256)),
        "no data": b"",
        "nested": {"list": [[], {}, [1, [2, {"deep": "er"}]]]},
    }
    if form == "binary":
        values["uid"] = plistlib.UID(70000)
    return values


def same(a, b):
    if type(a) is not type(b):
        return False
    if isinstance(a, dict):
        return a.keys() == b.keys() and all(same(a[key], b[key]) for key in a)
    if isinstance(a, list):
        return len(a) == len(b) and all(same(x, y) for x, y in zip(a, b))
    return a == b


command, form, path = sys.argv[1:4]
if command == "write":
    with open(path, "wb") as file:
        plistlib.dump(sample(form), file, fmt=FORMS[form])
else:
    with open(path, "rb") as file:
        content = plistlib.load(file)
    if command == "check":
        sys.exit(0 if same(content, sample(form)) else 1)
    with open(sys.argv[4], "wb") as file:
        plistlib.dump(content, file, fmt=FORMS[form])
