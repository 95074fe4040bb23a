// tessik: find, hold, order, show, store and compare collections of file records.
// Hosts include this one header and link tessik::tessik.
#ifndef TESSIK_TESSIK_H
#define TESSIK_TESSIK_H

#include <tessik/platform.h>

#include <tessik/Container.h>
#include <tessik/Link.h>

#include <tessik/DName.h>
#include <tessik/DRect.h>
#include <tessik/FileOper.h>
#include <tessik/ShortName.h>

#include <tessik/Controls.h>

#include <tessik/DFile.h>
#include <tessik/DFileLoad.h>
#include <tessik/DirectoryListingSpec.h>

#endif
