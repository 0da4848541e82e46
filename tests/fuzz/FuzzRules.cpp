#include "FuzzRules.h"

#include "DrawingDifference.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <cstdio>
#include <cstdlib>

void stopUnless(bool holds, const char* rule, const std::string& details) {
    if (holds)
        return;
    std::fprintf(stderr, "%s: %s\n", rule, details.c_str());
    std::abort();
}

zdr::Drawing savedAndRead(const zdr::Drawing& drawing) {
    std::vector<std::byte> written;
    std::wstring reason;
    stopUnless(zdr::drawingBytes(drawing, written, reason) == Vorn::eOk, "it can't be saved", zdr::toUtf8(reason));
    zdr::Drawing again;
    stopUnless(zdr::readDrawingBytes(written, L"saved", again, reason) == Vorn::eOk, "what was saved can't be read",
               zdr::toUtf8(reason));
    stopUnless(again.mendedNames.empty(), "what was saved has names to be mended");
    const std::string lost = difference(drawing, again);
    stopUnless(lost.empty(), "saving loses something", lost);
    return again;
}
