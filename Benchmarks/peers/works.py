"""The works in Python."""
import re
import sys
import time

sys.setrecursionlimit(10000)


def time_work(name, work):
    begin = time.perf_counter()
    check = work()
    print(f"{name} {time.perf_counter() - begin:.6f} {check}", flush=True)


def integer_loop():
    # A tenth of the others' turns; the comparison scales it.
    n, s, i = 10000000, 0, 0
    while i < n:
        s = s + i
        i = i + 1
    return s


def mandelbrot():
    size, limit, count, y = 400, 100, 0, 0
    while y < size:
        x = 0
        while x < size:
            cr, ci = 3.0 * x / size - 2.0, 2.0 * y / size - 1.0
            zr, zi, n = 0.0, 0.0, 0
            while n < limit and zr * zr + zi * zi <= 4.0:
                t = zr * zr - zi * zi + cr
                zi = 2.0 * zr * zi + ci
                zr = t
                n = n + 1
            count = count + n
            x = x + 1
        y = y + 1
    return count


def fibonacci(n):
    return n if n < 2 else fibonacci(n - 1) + fibonacci(n - 2)


def sieve():
    n, count = 2000000, 0
    flags = [True] * (n + 1)
    i = 2
    while i <= n:
        if flags[i]:
            count = count + 1
            j = i * i
            while j <= n:
                flags[j] = False
                j = j + i
        i = i + 1
    return count


def concatenation():
    s, i = "", 0
    while i < 20000:
        s = s + "x"
        i = i + 1
    return len(s)


def short_strings(call):
    total, i = 0, 0
    while i < 1000000:
        total = total + call(i)
        i = i + 1
    return total


time_work("integer_loop", integer_loop)
time_work("mandelbrot", mandelbrot)
time_work("fibonacci", lambda: fibonacci(32))
time_work("sieve", sieve)
time_work("concatenation", concatenation)
word = "international"
time_work("left", lambda: short_strings(lambda i: len(word[:i % 8])))
time_work("mid", lambda: short_strings(lambda i: len(word[i % 8:i % 8 + 5])))
time_work("instr", lambda: short_strings(lambda i: word.find("nal", i % 8)))

parts, length, i = [], 0, 0
while length < 10000000:
    parts.append(f"The quick brown Fox {i} jumps over the lazy dog, ")
    length += len(parts[-1])
    i += 1
text = "".join(parts)
time_work("count", lambda: text.count("lazy"))
time_work("count_ignoring_case", lambda: text.lower().count("fox"))
time_work("replace", lambda: len(text.replace("lazy", "eager")))
fox = re.compile("fOX", re.IGNORECASE)
time_work("replace_ignoring_case", lambda: len(fox.sub("wolf", text)))
time_work("search_missing", lambda: text.find("lazy cat"))
half = text[:5000000]
pieces = []


def split():
    global pieces
    pieces = half.split(" ")
    return len(pieces)


time_work("split", split)
def word_count():
    counts, most = {}, 0
    for word in pieces:
        count = counts.get(word)
        if count is None:
            count = 0
        count = count + 1
        counts[word] = count
        if count > most:
            most = count
    return most + len(counts)


time_work("word_count", word_count)
time_work("join", lambda: len(" ".join(pieces)))
