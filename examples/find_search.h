// From the options to the listing's search criteria.
#ifndef TESSIK_EXAMPLES_FIND_SEARCH_H
#define TESSIK_EXAMPLES_FIND_SEARCH_H

#include "find_options.h"

#include <tessik/tessik.h>

// Puts every directory of `options` (the current directory when there are none) into `spec`
// as the full path of its target, in the library's form. A directory that is missing, is no
// directory or cannot be reached is told on stderr, as find does, and left out. False when one
// was left out.
bool AddDirectories(FindOptions const& options, DirectoryListingSpec& spec);

// Sets the name, size, attribute, date and content tests of `spec`.
void SetTests(FindOptions const& options, DirectoryListingSpec& spec);

#endif
