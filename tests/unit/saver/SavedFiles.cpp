#include "SavedFiles.h"

#include "DrawingGenerator.h"
#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

std::wstring nameOf(SavedKind kind) {
    return kind == SavedKind::Drawing ? L"drawing" : L"state";
}

zdr::Drawing savedDrawing(bool large) {
    zdr::GeneratorOptions options;
    options.layers = large ? 400 : 10;
    options.states = large ? 30 : 1;
    return zdr::generateDrawing(options);
}

namespace {

KelDbDatabase& savedDatabase(bool large) {
    static KelDbDatabase databases[2] = {KelDbDatabase(false, false), KelDbDatabase(false, false)};
    KelDbDatabase& database = databases[large];
    KelDbLayerStateManager& states = *database.getLayerStateManager();
    if (!states.hasLayerState(kSavedState)) {
        engine::replaceDrawing(database, savedDrawing(large));
        states.saveLayerState(kSavedState, MaskAllProperties);
    }
    return database;
}

} // namespace

std::string save(SavedKind kind, bool large, const std::wstring& path) {
    KelDbDatabase& database = savedDatabase(large);
    Vorn::ErrorStatus status = Vorn::eOk;
    std::wstring reason;
    if (kind == SavedKind::State) {
        status = database.getLayerStateManager()->exportLayerState(kSavedState, path.c_str());
        reason = engine::lastFileProblem(database);
    } else {
        zdr::FileStamp stamp;
        status = zdr::writeDrawingFile(path, engine::drawingOf(database), reason, stamp, zdr::Overwrite::Always);
    }
    return status == Vorn::eOk ? "" : "status " + std::to_string(status) + ": " + zdr::toUtf8(reason);
}
