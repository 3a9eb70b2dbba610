"""The work of programs/keyed_archives.cpp in Python, on plistlib."""
import plistlib
import resource
import sys
import time
from plistlib import UID


def records():
    return [{"name": f"Record number {i}", "number": i, "weight": i / 8, "active": i % 2 == 1, "street": f"Street {i % 100}"}
            for i in range(50000)]


def archive(root):
    objects, scalars, classes = ["$null"], {}, {}

    def kind(*names):
        if names not in classes:
            objects.append({"$classname": names[0], "$classes": list(names)})
            classes[names] = UID(len(objects) - 1)
        return classes[names]

    def encode(value):
        if isinstance(value, (list, dict)):
            objects.append(None)
            place = len(objects) - 1
            if isinstance(value, list):
                objects[place] = {"$class": kind("NSMutableArray", "NSArray", "NSObject"),
                                  "NS.objects": [encode(item) for item in value]}
            else:
                objects[place] = {"$class": kind("NSMutableDictionary", "NSDictionary", "NSObject"),
                                  "NS.keys": [encode(key) for key in value],
                                  "NS.objects": [encode(item) for item in value.values()]}
            return UID(place)
        key = (type(value), value)
        if key not in scalars:
            objects.append(value)
            scalars[key] = UID(len(objects) - 1)
        return scalars[key]

    top = {"root": encode(root)}
    return plistlib.dumps({"$archiver": "NSKeyedArchiver", "$version": 100000, "$top": top, "$objects": objects},
                          fmt=plistlib.FMT_BINARY, sort_keys=False)


def unarchive(content):
    loaded = plistlib.loads(content)
    objects = loaded["$objects"]
    made = [None] * len(objects)

    def decode(uid):
        place = uid.data
        if place == 0:
            return None
        if made[place] is not None:
            return made[place]
        value = objects[place]
        if isinstance(value, dict):
            if objects[value["$class"].data]["$classname"].endswith("Array"):
                made[place] = result = []
                result.extend(decode(item) for item in value["NS.objects"])
                return result
            made[place] = result = {}
            for key, item in zip(value["NS.keys"], value["NS.objects"]):
                result[decode(key)] = decode(item)
            return result
        made[place] = value
        return value

    return decode(loaded["$top"]["root"])


direction, path = sys.argv[1:]
if direction == "write":
    values = records()
    begin = time.perf_counter()
    content = archive(values)
    seconds = time.perf_counter() - begin
    with open(path, "wb") as file:
        file.write(content)
else:
    with open(path, "rb") as file:
        content = file.read()
    begin = time.perf_counter()
    values = unarchive(content)
    seconds = time.perf_counter() - begin
print(f"archive_{direction} {seconds:.6f} {len(values)}")
print(f"peak_kilobytes {resource.getrusage(resource.RUSAGE_SELF).ru_maxrss}")
