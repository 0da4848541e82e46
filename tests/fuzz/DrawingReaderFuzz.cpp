// Fuzzer of the drawing reader: no bytes may make it crash, hang or take memory without measure, and whatever it
// accepts can be saved and read again with nothing lost.
#include "DrawingDifference.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <cstdio>
#include <cstdlib>

namespace {

void stopUnless(bool holds, const char* rule, const std::string& details) {
    if (holds)
        return;
    std::fprintf(stderr, "%s: %s\n", rule, details.c_str());
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    zdr::Drawing drawing;
    std::wstring reason;
    const auto bytes = std::as_bytes(std::span(data, size));
    if (zdr::readDrawingBytes(bytes, L"input", drawing, reason) != Vorn::eOk) {
        stopUnless(!reason.empty(), "a refusal without a reason", "");
        return 0;
    }
    std::vector<std::byte> written;
    stopUnless(zdr::drawingBytes(drawing, written, reason) == Vorn::eOk, "what was read can't be saved",
               zdr::toUtf8(reason));
    zdr::Drawing again;
    stopUnless(zdr::readDrawingBytes(written, L"saved", again, reason) == Vorn::eOk, "what was saved can't be read",
               zdr::toUtf8(reason));
    const std::string lost = difference(drawing, again);
    stopUnless(lost.empty(), "saving loses something", lost);
    return 0;
}
