// The works in the form that compiled programs have: exported operators on values, the position before each statement.
#include <VELTRuntime/VELTRuntime.h>

#include "work_timer.h"

namespace {

id integerLoop(id n) {
    VELTS("works.bas", "IntegerLoop", "1", "");
    id s = VELT_ID(0L);
    VELTS("works.bas", "IntegerLoop", "2", "");
    id i = VELT_ID(0L);
    while (VELTS("works.bas", "IntegerLoop", "3", ""), VELT_CBOOL(VELT_SMALLER(i, n))) {
        VELTS("works.bas", "IntegerLoop", "4", "");
        s = VELT_ADD(s, i);
        VELTS("works.bas", "IntegerLoop", "5", "");
        i = VELT_ADD(i, VELT_ID(1L));
    }
    return VELT__INTEGER(s);
}

id mandelbrot(id size, id limit) {
    VELTS("works.bas", "Mandelbrot", "1", "");
    id count = VELT_ID(0L), y = VELT_ID(0L);
    while (VELTS("works.bas", "Mandelbrot", "2", ""), VELT_CBOOL(VELT_SMALLER(y, size))) {
        VELTS("works.bas", "Mandelbrot", "3", "");
        id x = VELT_ID(0L);
        while (VELTS("works.bas", "Mandelbrot", "4", ""), VELT_CBOOL(VELT_SMALLER(x, size))) {
            VELTS("works.bas", "Mandelbrot", "5", "");
            id cr = VELT_SUB(VELT_DIV(VELT_MUL(VELT_ID(3.0), x), size), VELT_ID(2.0));
            VELTS("works.bas", "Mandelbrot", "6", "");
            id ci = VELT_SUB(VELT_DIV(VELT_MUL(VELT_ID(2.0), y), size), VELT_ID(1.0));
            VELTS("works.bas", "Mandelbrot", "7", "");
            id zr = VELT_ID(0.0), zi = VELT_ID(0.0), n = VELT_ID(0L);
            while (VELTS("works.bas", "Mandelbrot", "8", ""),
                   VELT_CBOOL(
                       VELT_ANDALSO(VELT_SMALLER(n, limit),
                                    VELT_SMALLEREQUAL(VELT_ADD(VELT_MUL(zr, zr), VELT_MUL(zi, zi)), VELT_ID(4.0))))) {
                VELTS("works.bas", "Mandelbrot", "9", "");
                id t = VELT_ADD(VELT_SUB(VELT_MUL(zr, zr), VELT_MUL(zi, zi)), cr);
                VELTS("works.bas", "Mandelbrot", "10", "");
                zi = VELT_ADD(VELT_MUL(VELT_MUL(VELT_ID(2.0), zr), zi), ci);
                VELTS("works.bas", "Mandelbrot", "11", "");
                zr = t;
                VELTS("works.bas", "Mandelbrot", "12", "");
                n = VELT_ADD(n, VELT_ID(1L));
            }
            VELTS("works.bas", "Mandelbrot", "14", "");
            count = VELT_ADD(count, n);
            VELTS("works.bas", "Mandelbrot", "15", "");
            x = VELT_ADD(x, VELT_ID(1L));
        }
        VELTS("works.bas", "Mandelbrot", "17", "");
        y = VELT_ADD(y, VELT_ID(1L));
    }
    return VELT__INTEGER(count);
}

id fibonacci(const id& n) {
    VELTS("works.bas", "Fibonacci", "1", "");
    if (VELT_CBOOL(VELT_SMALLER(n, VELT_ID(2L)))) {
        VELTS("works.bas", "Fibonacci", "2", "");
        return n;
    }
    VELTS("works.bas", "Fibonacci", "4", "");
    return VELT_ADD(fibonacci(VELT_SUB(n, VELT_ID(1L))), fibonacci(VELT_SUB(n, VELT_ID(2L))));
}

id sieve(id n) {
    VELTS("works.bas", "Sieve", "1", "");
    id flags = velt::make<NSMutableArray>(), i = VELT_ID(0L);
    while (VELTS("works.bas", "Sieve", "2", ""), VELT_CBOOL(VELT_SMALLEREQUAL(i, n))) {
        VELTS("works.bas", "Sieve", "3", "");
        VELT_NSMUTABLEARRAY_APPEND(flags, VELT_ID(static_cast<BOOL>(1)));
        VELTS("works.bas", "Sieve", "4", "");
        i = VELT_ADD(i, VELT_ID(1L));
    }
    VELTS("works.bas", "Sieve", "6", "");
    id count = VELT_ID(0L);
    i = VELT_ID(2L);
    while (VELTS("works.bas", "Sieve", "7", ""), VELT_CBOOL(VELT_SMALLEREQUAL(i, n))) {
        VELTS("works.bas", "Sieve", "8", "");
        if (VELT_CBOOL(VELT_NSMUTABLEARRAY_OBJECT(flags, i))) {
            VELTS("works.bas", "Sieve", "9", "");
            count = VELT_ADD(count, VELT_ID(1L));
            VELTS("works.bas", "Sieve", "10", "");
            id j = VELT_MUL(i, i);
            while (VELTS("works.bas", "Sieve", "11", ""), VELT_CBOOL(VELT_SMALLEREQUAL(j, n))) {
                VELTS("works.bas", "Sieve", "12", "");
                VELT_NSMUTABLEARRAY_REPLACE(flags, VELT_ID(static_cast<BOOL>(0)), j);
                VELTS("works.bas", "Sieve", "13", "");
                j = VELT_ADD(j, i);
            }
        }
        VELTS("works.bas", "Sieve", "16", "");
        i = VELT_ADD(i, VELT_ID(1L));
    }
    return VELT__INTEGER(count);
}

id concatenation(id n) {
    VELTS("works.bas", "Concatenation", "1", "");
    id s = VELT_STRING(""_v, nil), i = VELT_ID(0L);
    while (VELTS("works.bas", "Concatenation", "2", ""), VELT_CBOOL(VELT_SMALLER(i, n))) {
        VELTS("works.bas", "Concatenation", "3", "");
        s = VELT_CONCAT(s, "x"_v);
        VELTS("works.bas", "Concatenation", "4", "");
        i = VELT_ADD(i, VELT_ID(1L));
    }
    return VELT_LEN(s);
}

template <class Call> id shortStrings(id n, Call call) {
    VELTS("works.bas", "ShortStrings", "1", "");
    id total = VELT_ID(0L), i = VELT_ID(0L);
    while (VELTS("works.bas", "ShortStrings", "2", ""), VELT_CBOOL(VELT_SMALLER(i, n))) {
        VELTS("works.bas", "ShortStrings", "3", "");
        total = VELT_ADD(total, call(i));
        VELTS("works.bas", "ShortStrings", "4", "");
        i = VELT_ADD(i, VELT_ID(1L));
    }
    return VELT__INTEGER(total);
}

/// How often the most frequent word comes, and how many different ones there are.
id wordCount(id words) {
    VELTS("works.bas", "WordCount", "1", "");
    id counts = velt::make<NSMutableDictionary>(), most = VELT_ID(0L);
    VELTS("works.bas", "WordCount", "2", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(words), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("works.bas", "WordCount", "3", "");
        id word = VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(words, i));
        VELTS("works.bas", "WordCount", "4", "");
        id count = VELT_NSMUTABLEDICTIONARY_VALUE(counts, word);
        VELTS("works.bas", "WordCount", "5", "");
        if (VELT_CBOOL(VELT_EQUAL(count, nil))) {
            VELTS("works.bas", "WordCount", "6", "");
            count = VELT_ID(0L);
        }
        VELTS("works.bas", "WordCount", "8", "");
        count = VELT_ADD(count, VELT_ID(1L));
        VELTS("works.bas", "WordCount", "9", "");
        VELT_NSMUTABLEDICTIONARY_INSERT(counts, word, count);
        VELTS("works.bas", "WordCount", "10", "");
        if (VELT_CBOOL(VELT_GREATER(count, most))) {
            VELTS("works.bas", "WordCount", "11", "");
            most = VELT__INTEGER(count);
        }
    }
    VELTS("works.bas", "WordCount", "14", "");
    return VELT_ADD(most, VELT_NSMUTABLEDICTIONARY_COUNT(counts));
}

/// A text of at least that many characters.
id longText(std::size_t length) {
    std::string text;
    for (long i = 0; text.size() < length; ++i)
        text += "The quick brown Fox " + std::to_string(i) + " jumps over the lazy dog, ";
    return velt::string(text);
}

long long number(const id& value) { return VELT_CLONG(value); }

}  // namespace

int main() {
    timeWork("integer_loop", [] { return number(integerLoop(VELT_ID(100000000L))); });
    timeWork("mandelbrot", [] { return number(mandelbrot(VELT_ID(400L), VELT_ID(100L))); });
    timeWork("fibonacci", [] { return number(fibonacci(VELT_ID(32L))); });
    timeWork("sieve", [] { return number(sieve(VELT_ID(2000000L))); });
    timeWork("concatenation", [] { return number(concatenation(VELT_ID(20000L))); });
    const id word = velt::string("international"), t = VELT_ID(static_cast<BOOL>(1)), f = VELT_ID(static_cast<BOOL>(0));
    timeWork("left", [&] {
        return number(shortStrings(VELT_ID(1000000L),
                                   [&](const id& i) { return VELT_LEN(VELT_LEFT(word, VELT_MOD(i, VELT_ID(8L)))); }));
    });
    timeWork("mid", [&] {
        return number(shortStrings(VELT_ID(1000000L), [&](const id& i) {
            return VELT_LEN(VELT_MID(word, VELT_MOD(i, VELT_ID(8L)), VELT_ID(5L)));
        }));
    });
    timeWork("instr", [&] {
        return number(shortStrings(
            VELT_ID(1000000L), [&](const id& i) { return VELT_INSTR(word, "nal"_v, VELT_MOD(i, VELT_ID(8L)), t); }));
    });
    const id text = longText(10'000'000);
    timeWork("count", [&] { return number(VELT_COUNT(text, "lazy"_v, t)); });
    timeWork("count_ignoring_case", [&] { return number(VELT_COUNT(text, "fOX"_v, f)); });
    timeWork("replace", [&] { return number(VELT_LEN(VELT_REPLACE(text, "lazy"_v, "eager"_v, t))); });
    timeWork("replace_ignoring_case", [&] { return number(VELT_LEN(VELT_REPLACE(text, "fOX"_v, "wolf"_v, f))); });
    timeWork("search_missing", [&] { return number(VELT_INSTR(text, "lazy cat"_v, VELT_ID(0L), t)); });
    const id half = VELT_LEFT(text, VELT_ID(5000000L));
    id pieces;
    timeWork("split", [&] { return number(VELT_NSARRAY_COUNT(pieces = VELT_SPLIT(half, " "_v))); });
    timeWork("word_count", [&] { return number(wordCount(pieces)); });
    timeWork("join", [&] { return number(VELT_LEN(VELT_JOIN(pieces, " "_v))); });
}
