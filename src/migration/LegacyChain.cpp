#include "LegacyChain.h"

#include "KelRuntime.h"

void closeOrAbort(KelDbObject& object) {
    // The name and the line that the host's log of broken invariants has known this check by ever since.
    constexpr const wchar_t* kSource = L"Utility";
    constexpr int kLine = 66;
    const Vorn::ErrorStatus status = object.close();
    if (status != Vorn::eOk)
        kelrt_abort(L"!%s@%d: %s", kSource, kLine, vornErrorStatusText(status));
}
