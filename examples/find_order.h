// The order tessik-find lists in.
#ifndef TESSIK_EXAMPLES_FIND_ORDER_H
#define TESSIK_EXAMPLES_FIND_ORDER_H

#include "find_values.h"

#include <tessik/tessik.h>

// By path with directories first (the listing's Sort), or by one column (the listing's
// SortAlpha). The date columns are ordered by tessik-find itself on the true dates, since the
// listing sees all dates before 1985 as one; ties go by path, and descending is the mirror
// of ascending, as in SortAlpha.
void Order(DFileLoad& load, SortOrder const& sort);

#endif
