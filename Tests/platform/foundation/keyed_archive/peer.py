"""A second implementation of keyed archives, for a few classes, on plistlib.

peer.py read FILE         prints the root object of an archive as JSON, objects of classes as {"class": ..., ...}
peer.py write FILE FORM   writes an archive of a fixed graph, FORM xml or binary
peer.py names FILE        writes an archive with the class names and keys of other writers
"""
import datetime
import json
import plistlib
import sys
from plistlib import UID


def read(path):
    with open(path, "rb") as file:
        archive = plistlib.load(file)
    assert archive["$archiver"] == "NSKeyedArchiver" and archive["$version"] == 100000
    objects = archive["$objects"]
    assert objects[0] == "$null"

    def resolve(value):
        if isinstance(value, UID):
            value = None if value.data == 0 else objects[value.data]
        if isinstance(value, bytes):
            return {"bytes": value.hex()}
        if not isinstance(value, dict):
            return value
        description = objects[value["$class"].data]
        name = description["$classname"]
        assert description["$classes"][0] == name and description["$classes"][-1] == "NSObject"
        if name in ("NSArray", "NSMutableArray"):
            return [resolve(item) for item in value["NS.objects"]]
        if name in ("NSDictionary", "NSMutableDictionary"):
            keys, values = value["NS.keys"], value["NS.objects"]
            return {str(resolve(key)): resolve(item) for key, item in zip(keys, values, strict=True)}
        if name == "NSMutableString":
            return value["NS.string"]
        return {"class": name} | {key: resolve(item) for key, item in value.items() if key != "$class"}

    print(json.dumps(resolve(archive["$top"]["root"]), ensure_ascii=True, sort_keys=True))


class Archiver:
    def __init__(self):
        self.objects, self.classes = ["$null"], {}

    def add(self, value):
        self.objects.append(value)
        return UID(len(self.objects) - 1)

    def kind(self, *names):
        if names not in self.classes:
            self.classes[names] = self.add({"$classname": names[0], "$classes": list(names)})
        return self.classes[names]

    def encode(self, value):
        if value is None:
            return UID(0)
        if isinstance(value, (list, tuple)):
            place = self.add(None)
            names = ("NSMutableArray", "NSArray") if isinstance(value, list) else ("NSArray",)
            self.objects[place.data] = {
                "$class": self.kind(*names, "NSObject"), "NS.objects": [self.encode(item) for item in value]}
            return place
        if isinstance(value, dict) and "$class" not in value:
            place = self.add(None)
            self.objects[place.data] = {
                "$class": self.kind("NSMutableDictionary", "NSDictionary", "NSObject"),
                "NS.keys": [self.encode(key) for key in value],
                "NS.objects": [self.encode(item) for item in value.values()]}
            return place
        return self.add(value)

    def write(self, path, root, form):
        archive = {"$archiver": "NSKeyedArchiver", "$version": 100000, "$top": {"root": root}, "$objects": self.objects}
        if form == plistlib.FMT_XML:
            archive = in_xml(archive)
        with open(path, "wb") as file:
            plistlib.dump(archive, file, fmt=form, sort_keys=False)


def in_xml(value):
    """The XML form writes a reference as a dictionary."""
    if isinstance(value, UID):
        return {"CF$UID": value.data}
    if isinstance(value, dict):
        return {key: in_xml(item) for key, item in value.items()}
    return [in_xml(item) for item in value] if isinstance(value, list) else value


def write(path, form):
    archiver = Archiver()
    root = archiver.encode({
        "text": "gr\u00fc\u00dfe \U0001F600", "whole": 42, "negative": -7, "large": 2 ** 63 - 1, "beyond": 2 ** 64 - 1,
        "real": 0.1, "yes": True, "no": False, "bytes": b"\x00\xff", "list": [1, "two", [3.5]], "tuple": (None,)[:0],
        "nested": {"a": {"b": "c"}}, 5: "five"})
    archiver.write(path, root, form)


def names(path):
    archiver = Archiver()
    root = archiver.encode([])
    items = [
        {"$class": archiver.kind("__NSCFString", "NSMutableString", "NSString", "NSObject"), "NS.string": "cf"},
        {"$class": archiver.add({"$classname": "__NSCFString"}), "NS.bytes": "b\u00fctes".encode()},
        {"$class": archiver.kind("NSConcreteData", "NSData", "NSObject"), "NS.data": b"d"},
        {"$class": archiver.add({"$classname": "__NSArrayI"}), "NS.object.0": archiver.add("first"),
         "NS.object.1": archiver.add("second")},
        {"$class": archiver.add({"$classname": "__NSDictionaryM"}), "NS.key.0": archiver.add("k"),
         "NS.object.0": archiver.add("v")},
        {"$class": archiver.kind("NSSet", "NSObject"), "NS.objects": [archiver.add("member")]},
        {"$class": archiver.kind("NSMutableOrderedSet", "NSOrderedSet", "NSObject"), "NS.object.0": archiver.add("o")},
        {"$class": archiver.kind("NSNumber", "NSValue", "NSObject"), "NS.intval": 12},
        {"$class": archiver.kind("__NSCFBoolean", "NSNumber", "NSValue", "NSObject"), "NS.boolval": True},
        {"$class": archiver.kind("NSNumber", "NSValue", "NSObject"), "NS.dblval": 1.5},
        {"$class": archiver.kind("__NSTaggedDate", "NSDate", "NSObject"), "NS.time": 60.0},
        datetime.datetime(2001, 1, 1, 0, 2),
        {"$class": archiver.kind("NSConcreteValue", "NSValue", "NSObject"), "NS.special": 3,
         "NS.rectval": archiver.add("{{1,2},{3,4.5}}")},
        {"$class": archiver.kind("NSValue", "NSObject"), "NS.special": 4, "NS.rangeval.location": archiver.add(1),
         "NS.rangeval.length": archiver.add(2)},
        {"$class": archiver.kind("NSURL", "NSObject"), "NS.relative": archiver.add("../c?d"),
         "NS.base": archiver.add({"$class": archiver.kind("NSURL", "NSObject"), "NS.base": UID(0),
                                  "NS.relative": archiver.add("http://example.org/a/b")})},
        {"$class": archiver.kind("NSNull", "NSObject")},
        {"$class": archiver.kind("NSConcreteAttributedString", "NSAttributedString", "NSObject"),
         "NSString": archiver.add("attributed"), "NSAttributes": archiver.encode({"k": "v"})},
        {"$class": archiver.kind("OurOwnList", "NSMutableArray", "NSArray", "NSObject"), "NS.objects": [], "extra": 1},
    ]
    archiver.objects[root.data]["NS.objects"] = [archiver.add(item) for item in items]
    # No version, no archiver, another key at the top.
    with open(path, "wb") as file:
        plistlib.dump({"$top": {"object": root}, "$objects": archiver.objects}, file, fmt=plistlib.FMT_BINARY)


if __name__ == "__main__":
    command, path = sys.argv[1:3]
    if command == "read":
        read(path)
    elif command == "names":
        names(path)
    else:
        write(path, plistlib.FMT_XML if sys.argv[3] == "xml" else plistlib.FMT_BINARY)
