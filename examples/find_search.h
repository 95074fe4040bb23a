// From the options to the listing's search criteria.
#ifndef TESSIK_EXAMPLES_FIND_SEARCH_H
#define TESSIK_EXAMPLES_FIND_SEARCH_H

#include "find_options.h"

#include <tessik/tessik.h>

#include <string>

// A directory as the user wrote it as a full path of drive Z: ("/usr/" and "Z:/usr" give
// "Z:\usr"; a relative one is resolved against the current directory). Empty when a relative
// directory does not exist.
DName FullDirectory(DFileLoad& load, std::string const& written);

// Puts the full path of every directory of `options` (the current directory when there are
// none) into `spec`. False, with the name as written in `missing`, when one does not exist.
bool AddDirectories(FindOptions const& options, DFileLoad& load, DirectoryListingSpec& spec,
                    std::string& missing);

// Sets the name, size, attribute, date and content tests of `spec`.
void SetTests(FindOptions const& options, DirectoryListingSpec& spec);

#endif
