// The paths of a TempTree, the same on every system: under Wine the root is on drive Z: too.
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
