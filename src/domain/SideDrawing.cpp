#include "SideDrawing.h"

#include <afx.h>

#include <new>

namespace {

std::unique_ptr<KelDbDatabase> newDatabase() {
    try {
        return std::make_unique<KelDbDatabase>(false, true);
    } catch (CMemoryException* exception) {
        exception->Delete();
    } catch (const std::bad_alloc&) {
        // The framework and the language each have their own exception for lack of memory.
    }
    return nullptr;
}

} // namespace

SideDrawing readSideDrawing(const wchar_t* path) {
    constexpr int kShareAll = 64;
    SideDrawing drawing{newDatabase(), Vorn::eOutOfMemory};
    if (!drawing.database)
        return drawing;
    drawing.status = drawing.database->readZdrFile(path, kShareAll, false, nullptr);
    if (drawing.status != Vorn::eOk)
        drawing.database.reset();
    return drawing;
}
