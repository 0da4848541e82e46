// MFC's header for "extensions". Narrower than MFC: no tool bars, splitters or form views; it only brings what it
// includes in MFC too.
#pragma once

#include "afxwin.h"
