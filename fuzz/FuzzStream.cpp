#include "FuzzStream.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

std::string FuzzPath(int slot) {
    std::filesystem::path const shm = "/dev/shm";
    std::error_code error;
    std::filesystem::path const dir =
        std::filesystem::is_directory(shm, error) ? shm : std::filesystem::temp_directory_path();
    return (dir / ("tessik-fuzz-" + std::to_string(getpid()) + "-" + std::to_string(slot)))
        .string();
}

namespace {

constexpr int slots = 2;

void RemoveFiles() {
    for (int slot = 0; slot < slots; ++slot)
        std::remove(FuzzPath(slot).c_str());
}

} // namespace

std::string FuzzFile(std::uint8_t const* data, std::size_t size, int slot) {
    static int const registered = std::atexit(RemoveFiles);
    (void)registered;
    std::string const path = FuzzPath(slot);
    std::ofstream(path, std::ios::binary | std::ios::trunc)
        .write(reinterpret_cast<char const*>(data), static_cast<std::streamsize>(size));
    return path;
}

std::string FuzzBytes(std::string const& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void FuzzCheck(bool condition, char const* what) {
    if (condition)
        return;
    std::fprintf(stderr, "fuzz check failed: %s\n", what);
    std::abort();
}
