// DName: the text as a Windows path.
//
// A root is an optional drive ("C:") and the separators right after it; path edits never cut
// into it, so "C:\" and "\" stay what they are.
#include <tessik/DName.h>

#include <climits>
#include <memory>

namespace {

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char Separator(bool forward) {
    return forward ? '/' : '\\';
}

bool HasDrive(char const* text, unsigned int size) {
    return size >= 2 && IsLetter(text[0]) && text[1] == ':';
}

unsigned int RootLength(char const* text, unsigned int size) {
    unsigned int root = HasDrive(text, size) ? 2 : 0;
    while (root < size && IsSeparator(text[root]))
        ++root;
    return root;
}

// `end` moved back over the separators before it, never into the root.
unsigned int TrimSeparators(char const* text, unsigned int root, unsigned int end) {
    while (end > root && IsSeparator(text[end - 1]))
        --end;
    return end;
}

// The start of the component that ends at `end`.
unsigned int ComponentStart(char const* text, unsigned int root, unsigned int end) {
    while (end > root && !IsSeparator(text[end - 1]))
        --end;
    return end;
}

// Whether a name joined behind `first` needs a separator between them.
bool NeedsSeparator(DName const& first) {
    unsigned int n = first.Size();
    return n != 0 && !IsSeparator(first[n - 1]);
}

} // namespace

void DName::LastComponent(char const* bytes, unsigned int length, unsigned int& start,
                          unsigned int& end) {
    unsigned int const root = RootLength(bytes, length);
    end = TrimSeparators(bytes, root, length);
    start = ComponentStart(bytes, root, end);
}

bool DName::RemDir() {
    unsigned int start, end;
    LastComponent(text, size, start, end);
    Keep(start, end);
    return size != 0;
}

bool DName::RemDir(DName& out) {
    unsigned int start, end;
    LastComponent(text, size, start, end);
    return size != 0 && Split(start, end, 0, end, out);
}

bool DName::RemFilename() {
    DName component;
    return RemFilename(component);
}

bool DName::RemFilename(DName& out) {
    unsigned int root = RootLength(text, size);
    unsigned int start = ComponentStart(text, root, size);
    unsigned int cut = TrimSeparators(text, root, start);
    return cut != size && Split(start, size, 0, cut, out); // a bare root has nothing to remove
}

bool DName::RemDrive(DName& out) {
    return HasDrive(text, size) && Split(0, 2, 2, size, out);
}

bool DName::RemIndexDir(DName& out) {
    unsigned int start = 0;
    while (start < size && IsSeparator(text[start]))
        ++start;
    unsigned int end = start;
    while (end < size && !IsSeparator(text[end]))
        ++end;
    return end != start && Split(start, end, end < size ? end + 1 : end, size, out);
}

bool DName::Split(unsigned int start, unsigned int end, unsigned int keepFrom, unsigned int keepTo,
                  DName& out) {
    DName part;
    if (!part.Namen(text + start, end - start))
        return false;
    Keep(keepFrom, keepTo);
    out.Take(part); // last, so out may be this name itself
    return true;
}

bool DName::AddHome(DName const& home, bool const& forward) {
    if (home.isEmpty())
        return true;
    if (std::addressof(home) == this)
        return AddHome(DName(home), forward);
    char const separator = Separator(forward);
    unsigned int const gap = NeedsSeparator(home) ? 1 : 0;
    // Room for the whole result first, so the two inserts below cannot fail halfway.
    if (home.size > UINT_MAX - 1 - size - gap || !Reserve(size + home.size + gap))
        return false;
    return Splice(0, 0, &separator, gap) && Splice(0, 0, home.text, home.size);
}

bool DName::AddFile(DName const& name, bool const& forward) {
    return AddFile(name.text, name.size, forward);
}

bool DName::AddFile(char const* name, unsigned int const& length, bool const& forward) {
    unsigned int const n = length; // `length` may be this name's own size, which grows below
    if (n && Holds(name)) {        // the room made below may move these bytes
        DName copy;
        return copy.Namen(name, n) && AddFile(copy.text, n, forward);
    }
    char const separator = Separator(forward);
    unsigned int const gap = NeedsSeparator(*this) ? 1 : 0;
    if (n > UINT_MAX - 1 - size - gap || !Reserve(size + n + gap))
        return false;
    return Splice(size, 0, &separator, gap) && Splice(size, 0, name, n);
}

bool DName::AttachSlash(bool const& forward) {
    return (size && IsSeparator(text[size - 1])) || InsertRight(Separator(forward), 1);
}

bool DName::ChopPath(bool const& all) {
    unsigned int root = RootLength(text, size);
    unsigned int end = size;
    if (end > root && IsSeparator(text[end - 1]))
        end = all ? TrimSeparators(text, root, size) : end - 1;
    if (end == size)
        return false;
    Keep(0, end);
    return true;
}

bool DName::isFileSpec(DName const& pattern) const {
    return PathMatchSpecA(&*this, &pattern) != FALSE;
}
