// Shows how far the engine is when it reads or writes a large file.

#include "base/OutOfMemory.h"
#include "files/FileProgress.h"
#include "progress/LongWork.h"

namespace framework {
namespace {

constexpr zdr::ProgressShower kShower = {
    [](zdr::FileWork kind, const std::wstring& path) {
        return answerOr<void*>(nullptr, [&] {
            const bool isReading = kind == zdr::FileWork::Reading;
            return new LongWork(isReading ? L"Reading File" : L"Writing File", path,
                                isReading ? L"Waiting for the file..." : L"Preparing what is written...");
        });
    },
    [](void* work, std::uint64_t done, std::uint64_t total) {
        return static_cast<LongWork*>(work)->advance(done, total);
    },
    [](void* work) { delete static_cast<LongWork*>(work); },
};

/// Offers itself to the engine for as long as this library is loaded.
const struct Offer {
    Offer() { zdr::setProgressShower(&kShower); }
    ~Offer() { zdr::setProgressShower(nullptr); }
} offer;

} // namespace
} // namespace framework
