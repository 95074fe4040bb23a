// The "size seconds path" lines that tessik_walk and tessik_floor print, as find's
// -printf '%s %T@ %p\n' does, so that the three do the same work per entry.
#pragma once

#include <cstdint>
#include <cstdio>

// Writes `value` in decimal at `out`, at least `digits` digits; gives the end.
inline char* Decimal(char* out, std::uint64_t value, int digits = 1) {
    char reversed[24];
    int n = 0;
    do {
        reversed[n++] = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value != 0 || n < digits);
    while (n > 0)
        *out++ = reversed[--n];
    return out;
}

// One line: the size, the date in seconds since 1970 with seven decimals (`ticks` counts 100 ns
// since then) and the path.
inline void PrintLine(std::uint64_t size, std::uint64_t ticks, char const* path,
                      std::size_t pathSize) {
    char line[64];
    char* end = Decimal(line, size);
    *end++ = ' ';
    end = Decimal(end, ticks / 10000000);
    *end++ = '.';
    end = Decimal(end, ticks % 10000000, 7);
    *end++ = ' ';
    std::fwrite(line, 1, static_cast<std::size_t>(end - line), stdout);
    std::fwrite(path, 1, pathSize, stdout);
    std::putchar('\n');
}

// Output in blocks of 64 KiB.
inline void BufferOutput() {
    static char buffer[1 << 16];
    std::setvbuf(stdout, buffer, _IOFBF, sizeof buffer);
}
