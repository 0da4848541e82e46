// Result-buffer chains: the form of extended data and of system variable values.
#pragma once

#include "KelExport.h"

#include <cstdint>

/// Codes of a node, which tell the live member of its value.
enum ResultType : std::int16_t {
    kExtendedString = 1000,  ///< string
    kExtendedAppName = 1001, ///< string; always first in a chain of extended data
    kExtendedHandle = 1005,  ///< string of hexadecimal digits
    kExtendedInt16 = 1070,
    kExtendedInt32 = 1071,
    kVariableReal = 5001,
    kVariableInt16 = 5003,
    kVariableAngle = 5004,  ///< real, in radians
    kVariableString = 5005, ///< string; the receiver frees it with vorn_free
    kVariableInt32 = 5010,
};

/// Success of the editor functions that answer an int.
inline constexpr int kResultNormal = 5100;
inline constexpr int kResultError = -5001;
inline constexpr int kResultCancel = -5002;

/// One node. A chain owns its strings; they live on the runtime library's heap, so that a caller may replace one with
/// the runtime's string duplication and free.
struct ResultBuffer {
    ResultBuffer* next;
    std::int16_t type;
    union {
        std::int16_t int16;
        std::int32_t int32;
        double real;
        wchar_t* string;
    } value;
};

/// A new node with `next` null, the type set and the value zero; null when memory runs out. Freed with kelutRelRb.
KELDB_API ResultBuffer* kelutNewRb(int type);
/// Frees all nodes of a chain from the one given, with their strings. Null is allowed.
KELDB_API void kelutRelRb(ResultBuffer* chain);

/// Frees a description of a layer state. Null is allowed.
KELDB_API void keldbFree(wchar_t* text);
/// Frees a name copy, a layer's description or a picker's text, and sets the pointer to null.
KELDB_API void kelutDelBuffer(wchar_t*& text);
/// Frees the string of a system variable. Null is allowed.
KELDB_API void vorn_free(wchar_t* text);
/// Prints to the host's command line; the format follows the Microsoft runtime's meaning. kResultError when the text
/// can't be printed, also for lack of memory, and kResultNormal otherwise.
KELDB_API int kelutPrintf(const wchar_t* format, ...);
