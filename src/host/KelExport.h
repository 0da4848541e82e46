// Where a host symbol comes from: keldb.dll (drawing interface and runtime) or kelui.dll (dialog framework) on Windows,
// a static library in a native build.
#pragma once

#if defined(_WIN32)
#if defined(KELDB_BUILD)
#define KELDB_API __declspec(dllexport)
#else
#define KELDB_API __declspec(dllimport)
#endif
#if defined(KELUI_BUILD)
#define KELUI_API __declspec(dllexport)
#else
#define KELUI_API __declspec(dllimport)
#endif
#else
#define KELDB_API
#define KELUI_API
#endif
