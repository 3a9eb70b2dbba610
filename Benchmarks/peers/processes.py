"""Child processes in Python: with subprocess, or with asyncio when the first argument says so."""
import asyncio
import subprocess
import sys
import time

launches, size = int(sys.argv[2]), int(sys.argv[3])


def report(name, begin, check):
    print(f"{name} {time.perf_counter() - begin:.6f} {check}", flush=True)


def with_subprocess():
    begin = time.perf_counter()
    for _ in range(launches):
        subprocess.run(["/bin/true"], capture_output=True, check=True)
    report("launches", begin, launches)
    begin = time.perf_counter()
    count = 0
    with subprocess.Popen(["/usr/bin/head", "-c", str(size), "/dev/zero"], stdout=subprocess.PIPE, bufsize=0) as child:
        while piece := child.stdout.read(1 << 16):
            count += len(piece)
    report("output", begin, count)


async def with_asyncio():
    pipe = asyncio.subprocess.PIPE
    begin = time.perf_counter()
    for _ in range(launches):
        child = await asyncio.create_subprocess_exec("/bin/true", stdout=pipe, stderr=pipe)
        await child.communicate()
    report("launches", begin, launches)
    begin = time.perf_counter()
    child = await asyncio.create_subprocess_exec("/usr/bin/head", "-c", str(size), "/dev/zero", stdout=pipe,
                                                 limit=1 << 20)
    count = 0
    while piece := await child.stdout.read(1 << 20):
        count += len(piece)
    await child.wait()
    report("output", begin, count)


if sys.argv[1] == "asyncio":
    asyncio.run(with_asyncio())
else:
    with_subprocess()
