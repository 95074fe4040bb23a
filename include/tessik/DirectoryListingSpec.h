// DirectoryListingSpec: what a search looks for.
//
// Where (directories), under which names (patterns), and with which size, attributes, dates and
// content. All fields are public and set directly by the caller.
//
// Test bytes: 0 means no test; bit 0x01 lets equal pass, 0x02 less or earlier, 0x04 greater or
// later. sizeTest 6 exactly is the range size..sizeUpper. attributeTest bit 0x01 asks for any
// of `attributes` (clear: all of them), bit 0x04 inverts. containingMode: 0x01 the whole text is
// one term, 0x02 any word, 0x04 all words, 0x08 ignore case; 0 means no content search.
#ifndef TESSIK_DIRECTORYLISTINGSPEC_H
#define TESSIK_DIRECTORYLISTINGSPEC_H

#include <tessik/Container.h>
#include <tessik/DName.h>
#include <tessik/export.h>
#include <tessik/platform.h>

class FileOper;

class TESSIK_API DirectoryListingSpec {
public:
    Container<DName> namePatterns;
    Container<DName> directories;
    BYTE streamByte; // kept for the stored form only
    DName textToFind;
    DWORD readBlockSize; // bytes per read of the content search; 0 means 12800
    char sizeTest;
    char writtenTest;
    char createdTest;
    char accessedTest;
    char attributeTest;
    bool invertContaining;
    BYTE containingMode;
    DWORD sizeUpper;
    DWORD size;
    DWORD attributes;
    FILETIME dateCreated;
    FILETIME dateLastAccessed;
    FILETIME dateWritten;

    // Every constructor starts from empty criteria. An empty name, or a null or empty
    // text, adds no element to its list; a text is one whole pattern, never split.
    DirectoryListingSpec(DName const& namePattern = 0, DName const& directory = 0,
                         DWORD const& attributes = 0, DWORD const& size = 0, char attributeTest = 0,
                         char sizeTest = 0);
    DirectoryListingSpec(Container<DName> const& namePatterns, Container<DName> const& directories);
    DirectoryListingSpec(DName const& namePattern, Container<DName> const& directories);
    // The dates take effect only once the caller sets their test bytes.
    DirectoryListingSpec(DName const& namePattern, DName const& directory, DWORD const& attributes,
                         DWORD const& size, FILETIME const& created, FILETIME const& accessed,
                         FILETIME const& written);
    DirectoryListingSpec(int const& value); // empty criteria; `value` is not read
    DirectoryListingSpec(char const* namePattern);
    DirectoryListingSpec(char const* namePattern, DWORD const& attributes, char attributeTest);
    // A content search needs containingMode set as well.
    DirectoryListingSpec(DName const& namePattern, DName const& directory, DName const& textToFind,
                         bool invert);
    DirectoryListingSpec(DirectoryListingSpec const& other); // streamByte is 0 in the copy
    ~DirectoryListingSpec();

    void Copy(DirectoryListingSpec const& other); // every field but streamByte
    void operator=(DirectoryListingSpec const& other);
    void operator=(int const& value); // empties, then `attributes` takes `value`
    void Destroy();                   // empties all but streamByte; the object stays usable

    // True when no pattern, directory, text, size, attribute word or date is set.
    bool isEmpty() const;
    bool operator!() const;

    // The stored form: the magic 0x28018293, the lists, streamByte, the text to find in radix-16
    // form and a fixed block of 47 bytes. Read accepts the one magic only and stops at the first
    // field that cannot be read, keeping the fields read until then.
    bool Write(FileOper& file);
    bool Read(FileOper& file);

private:
    void Clear();
};

#endif
