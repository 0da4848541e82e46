// The import table of a loaded library: where the addresses stand of what it imports by name.
#pragma once

#include <windows.h>

#include <functional>

/// Calls `visit` with each name and the place of its address.
void forEachImport(HMODULE library, const std::function<void(const char* name, void** entry)>& visit);
/// Puts an address into such a place, which is write-protected.
void writeImport(void** entry, void* value);
