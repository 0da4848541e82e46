// The two handles that the whole module shares. Each is written once, on the main thread, and only read from then on
// until the unload.
#pragma once

#include <afxwin.h>

/// The module itself, from the system's attach notification.
extern HINSTANCE g_moduleInstance;
/// The module that holds the texts and templates; null until it has been loaded.
extern HINSTANCE g_resourceModule;

/// Loads the resource module from where the system's search order finds its name. Null when it isn't found; nothing is
/// stored.
HINSTANCE loadResourceModule();
