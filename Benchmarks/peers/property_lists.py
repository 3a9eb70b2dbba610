"""The work of programs/property_lists.cpp in Python."""
import plistlib
import resource
import sys
import time


def records():
    return [{"name": f"Record number {i}", "number": i, "weight": i / 8, "active": i % 2 == 1, "street": f"Street {i % 100}"}
            for i in range(50000)]


direction, form, path = sys.argv[1:]
fmt = plistlib.FMT_XML if form == "xml" else plistlib.FMT_BINARY
if direction == "write":
    values = records()
    begin = time.perf_counter()
    content = plistlib.dumps(values, fmt=fmt)
    seconds = time.perf_counter() - begin
    with open(path, "wb") as file:
        file.write(content)
else:
    with open(path, "rb") as file:
        content = file.read()
    begin = time.perf_counter()
    values = plistlib.loads(content)
    seconds = time.perf_counter() - begin
print(f"plist_{direction}_{form} {seconds:.6f} {len(values)}")
print(f"peak_kilobytes {resource.getrusage(resource.RUSAGE_SELF).ru_maxrss}")
