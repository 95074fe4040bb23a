// ShortName: two words that stand for a text, to tell texts apart quickly.
//
// The first word is the 32-bit FNV-1a hash of the bytes, the second the number of bytes (its
// low 32 bits). Equal texts give equal words; a null text is the empty text.
#ifndef TESSIK_SHORTNAME_H
#define TESSIK_SHORTNAME_H

#include <tessik/export.h>
#include <tessik/platform.h>

class TESSIK_API ShortName {
public:
    ShortName(char const* text = nullptr);
    ShortName(ShortName const& other);
    ShortName& operator=(ShortName const& other);

    DWORD const& Hash() const { return hash; }
    DWORD const& Length() const { return length; }
    bool operator==(ShortName const& other) const;

private:
    DWORD hash;
    DWORD length;
};

#endif
