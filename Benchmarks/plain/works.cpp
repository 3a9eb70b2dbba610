// The numeric works on C++'s own types.
#include "work_timer.h"

#include <vector>

namespace {

/// Keeps the compiler from computing a loop at once.
template <class T> void keep(T& value) { asm volatile("" : "+r"(value)); }

long fibonacci(long n) {
    keep(n);
    return n < 2 ? n : fibonacci(n - 1) + fibonacci(n - 2);
}

}  // namespace

int main() {
    timeWork("integer_loop", [] {
        long s = 0, n = 100000000;
        for (long i = 0; i < n; ++i) {
            s += i;
            keep(s);
        }
        return s;
    });
    timeWork("mandelbrot", [] {
        long count = 0;
        for (int y = 0; y < 400; ++y) {
            for (int x = 0; x < 400; ++x) {
                const double cr = 3.0 * x / 400 - 2.0, ci = 2.0 * y / 400 - 1.0;
                double zr = 0, zi = 0;
                int n = 0;
                for (; n < 100 && zr * zr + zi * zi <= 4.0; ++n) {
                    const double t = zr * zr - zi * zi + cr;
                    zi = 2.0 * zr * zi + ci;
                    zr = t;
                }
                count += n;
            }
        }
        return count;
    });
    timeWork("fibonacci", [] { return fibonacci(32); });
    timeWork("sieve", [] {
        const long n = 2000000;
        std::vector<char> flags(n + 1, 1);
        long count = 0;
        for (long i = 2; i <= n; ++i) {
            if (!flags[static_cast<std::size_t>(i)]) continue;
            ++count;
            for (long j = i * i; j <= n; j += i) flags[static_cast<std::size_t>(j)] = 0;
        }
        return count;
    });
}
