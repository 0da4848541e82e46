// Fuzzer of the drawing reader: no bytes may make it crash, hang or take memory without measure, and whatever it
// accepts can be saved and read again with nothing lost.
#include "FuzzRules.h"
#include "files/DrawingFile.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    zdr::Drawing drawing;
    std::wstring reason;
    const auto bytes = std::as_bytes(std::span(data, size));
    if (zdr::readDrawingBytes(bytes, L"input", drawing, reason) == Vorn::eOk)
        savedAndRead(drawing);
    else
        stopUnless(!reason.empty(), "a refusal without a reason");
    return 0;
}
