// What a TempTree does the same on every system; under Wine the root is on drive Z: too.
#include "support/TempTree.h"

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

void TempTree::MakeFiles(std::string const& dir, int count, std::string const& ext) const {
    MakeDir(dir);
    for (int i = 0; i < count; ++i)
        MakeFile(dir + "/f" + std::to_string(i) + ext);
}

void TempTree::SetTimes(std::string const& relative, std::int64_t seconds) const {
    SetTimes(relative, seconds, 0);
}
