// Another drawing's file, read beside the current drawing.
#pragma once

#include "KelDbDatabase.h"

#include <memory>

/// What a file gave: the drawing, or why there is none.
struct SideDrawing {
    std::unique_ptr<KelDbDatabase> database; ///< null after a failure; deleting it forgets the drawing
    Vorn::ErrorStatus status;
};

/// Reads the file into a database of its own. Others may read and write the file meanwhile.
SideDrawing readSideDrawing(const wchar_t* path);
