// The text report of a listing: one header line of column titles, then each record's block.
#include <tessik/DFileLoad.h>
#include <tessik/FileOper.h>

#include <cstdio>

bool DFileLoad::TextWrite(FileOper& file) {
    // Right-aligned titles; "Attributes" is longer than its field of 6 and stands whole, which
    // makes the line 73 characters long.
    char header[80];
    std::snprintf(header, sizeof header, "%15s %15s %15s %14s %6s", "Creation", "Last Access",
                  "Write Date", "Size", "Attributes");
    file.TWrite(header); // a failed header alone does not stop the report
    for (DFile const* record = files.head; record; record = record->next)
        if (!record->TextWrite(file))
            return false;
    return true;
}
