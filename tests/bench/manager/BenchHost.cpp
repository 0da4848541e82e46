#include "BenchHost.h"

#include "Documents.h"
#include "SystemRegistry.h"
#include "files/DrawingFile.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace bench {

namespace {

std::wstring modulePath() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return (std::filesystem::path(path).parent_path() / L"KelLayerApps.xmod").wstring();
}

} // namespace

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

void fail(const char* what) {
    std::fprintf(stderr, "%s\n", what);
    std::exit(1);
}

void openDrawing(const zdr::Drawing& drawing) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() / L"manager_bench.zdr";
    std::wstring reason;
    zdr::FileStamp stamp;
    if (zdr::writeDrawingFile(path.wstring(), drawing, reason, stamp, zdr::Overwrite::Always) != Vorn::eOk)
        fail("the drawing can't be written");
    auto database = std::make_unique<KelDbDatabase>(false, true);
    constexpr int kDenyNothing = 64;
    if (database->readZdrFile(path.c_str(), kDenyNothing, false, nullptr) != Vorn::eOk)
        fail("the drawing can't be read back");
    std::filesystem::remove(path);
    runtime::openDocument(std::move(database), L"");
}

const KelEdCommand& loadLayerStateCommand(runtime::ModuleLoader& modules) {
    if (!modules.load(modulePath()).empty())
        fail("the module doesn't load");
    const KelEdCommand* command = runtime::commandStack().lookup(L"LAYERSTATE");
    if (!command)
        fail("the command isn't there");
    return *command;
}

} // namespace bench
