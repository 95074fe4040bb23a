// The input of a fuzz target as a stream: the bytes go to a file of this process (in memory
// where the system has such a file system, so that rewriting it costs no disk), which a FileOper
// then reads.
#ifndef TESSIK_FUZZ_FUZZSTREAM_H
#define TESSIK_FUZZ_FUZZSTREAM_H

#include <tessik/FileOper.h>

#include <cstddef>
#include <cstdint>
#include <string>

// A path of this process's own, numbered by `slot` (0 or 1); both go when the process ends.
std::string FuzzPath(int slot);

// Writes the bytes to the file at FuzzPath(slot) and returns its path.
std::string FuzzFile(std::uint8_t const* data, std::size_t size, int slot = 0);

// The whole content of a file.
std::string FuzzBytes(std::string const& path);

// Aborts, so that the fuzzer keeps the input, when `condition` is false.
void FuzzCheck(bool condition, char const* what);

// The least a stored record takes: flag byte, two name lengths and the nine words.
constexpr std::size_t smallestRecord = 1 + 4 + 4 + 36;

#endif
