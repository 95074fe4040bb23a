#include <tessik/ShortName.h>

ShortName::ShortName(char const* text) : hash(2166136261u), length(0) {
    for (; text && *text; ++text, ++length)
        hash = (hash ^ static_cast<unsigned char>(*text)) * 16777619u;
}

ShortName::ShortName(ShortName const& other) : hash(other.hash), length(other.length) {}

ShortName& ShortName::operator=(ShortName const& other) {
    hash = other.hash;
    length = other.length;
    return *this;
}

bool ShortName::operator==(ShortName const& other) const {
    return hash == other.hash && length == other.length;
}
