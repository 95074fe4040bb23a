#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

namespace fs = std::filesystem;

namespace {

// Gives the owner every right on each entry below `path` (links not followed), so that what a
// test left unreadable or read-only can be removed.
void OpenUp(fs::path const& path) {
    std::error_code ignored;
    fs::file_type const type = fs::symlink_status(path, ignored).type();
    if (type == fs::file_type::symlink)
        return;
    fs::permissions(path, fs::perms::owner_all, fs::perm_options::add, ignored);
    if (type == fs::file_type::directory)
        for (auto const& entry : fs::directory_iterator(path, ignored))
            OpenUp(entry.path());
}

} // namespace

TempTree::TempTree() {
    KeepZone();
    std::error_code error;
    startDir = fs::current_path(error).string();
    char const* tmp = std::getenv("TMPDIR");
    std::string const base = std::string(tmp && *tmp ? tmp : "/tmp") + "/tessik-test-";
    std::mt19937_64 random(std::random_device{}());
    for (int attempt = 0; attempt < 100 && root.empty(); ++attempt) {
        std::string const candidate = base + std::to_string(random() % 1000000000);
        if (fs::create_directory(candidate, error))
            root = candidate;
    }
    if (root.empty())
        ADD_FAILURE() << "cannot make a temporary directory";
}

TempTree::~TempTree() {
    std::error_code error;
    if (!startDir.empty())
        fs::current_path(startDir, error);
    if (error)
        ADD_FAILURE() << "cannot return to " << startDir;
    if (!root.empty()) {
        OpenUp(root);
        fs::remove_all(root, error);
    }
    RestoreZone();
}

std::string TempTree::Path(std::string const& relative) const {
    return relative.empty() ? root : root + "/" + relative;
}

std::string TempTree::WinPath(std::string const& relative) const {
    std::string path = "Z:" + Path(relative);
    for (char& c : path)
        if (c == '/')
            c = '\\';
    return path;
}

void TempTree::MakeDir(std::string const& relative) const {
    std::error_code error;
    ASSERT_TRUE(fs::create_directory(Path(relative), error)) << relative;
}

void TempTree::MakeFile(std::string const& relative, std::string const& content) const {
    std::ofstream file(Path(relative), std::ios::binary | std::ios::trunc);
    ASSERT_TRUE(file << content) << relative;
}

void TempTree::MakeFiles(std::string const& dir, int count, std::string const& ext) const {
    MakeDir(dir);
    for (int i = 0; i < count; ++i)
        MakeFile(dir + "/f" + std::to_string(i) + ext);
}

void TempTree::MakeSparseFile(std::string const& relative, std::uint64_t size) const {
    MakeFile(relative);
    std::error_code error;
    fs::resize_file(Path(relative), size, error);
    ASSERT_FALSE(error) << relative;
}

// On Windows only the owner's write bit has a form: the read-only attribute.
void TempTree::SetMode(std::string const& relative, unsigned mode) const {
    std::error_code error;
    fs::permissions(Path(relative), static_cast<fs::perms>(mode), error);
    ASSERT_FALSE(error) << relative;
}
