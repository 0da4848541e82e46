#include "CommandFixture.h"

#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <fstream>

CommandFixture::CommandFixture() : session(window) {}

std::wstring CommandFixture::run(const std::wstring& line) {
    window.printed.clear();
    done = workbench::runLine(session, line);
    const std::wstring echo = L"Command: " + line.substr(0, 1000);
    return window.printed.starts_with(echo) ? window.printed.substr(window.printed.find(L'\n') + 1) : window.printed;
}

std::wstring CommandFixture::path(const char* name) const {
    return zdr::widePath(folder / name);
}

void CommandFixture::writeBytes(const char* name, const std::string& bytes) const {
    std::ofstream(folder / name, std::ios::binary) << bytes;
}

void CommandFixture::writeDrawing(const char* name, const zdr::Drawing& written) const {
    std::wstring reason;
    zdr::FileStamp stamp;
    EXPECT_EQ(zdr::writeDrawingFile(path(name), written, reason, stamp), Vorn::eOk);
}

std::size_t CommandFixture::layer(const std::wstring& name) const {
    const std::size_t index = engine::layerIndex(session.database(), name);
    EXPECT_NE(index, zdr::kNone) << "there is no such layer";
    return index == zdr::kNone ? 0 : index;
}

unsigned CommandFixture::flags(const std::wstring& name) const {
    return drawing().columns.flags[layer(name)];
}
