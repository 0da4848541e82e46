// Reading the description of a layer state.
#pragma once

#include "HostOwners.h"
#include "KelDbLayerStateManager.h"

#include <afx.h>

#include <optional>

/// The state's description; nothing when the host can't give it.
inline std::optional<CString> stateDescription(KelDbLayerStateManager& states, const wchar_t* name) {
    wchar_t* text = nullptr;
    if (states.getLayerStateDescription(name, text) != Vorn::eOk)
        return std::nullopt;
    return CString(HostDescription(text).get());
}
