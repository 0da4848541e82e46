#include "SideDrawing.h"

#include "NewOrNull.h"

SideDrawing readSideDrawing(const wchar_t* path) {
    constexpr int kShareAll = 64;
    SideDrawing drawing{newOrNull<KelDbDatabase>(false, true), Vorn::eOutOfMemory};
    if (!drawing.database)
        return drawing;
    drawing.status = drawing.database->readZdrFile(path, kShareAll, false, nullptr);
    if (drawing.status != Vorn::eOk)
        drawing.database.reset();
    return drawing;
}
