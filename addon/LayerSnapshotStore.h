// Named snapshots of the properties of all layers, kept in the extended data of the layers of the working drawing.
// Names are told apart with their case. A snapshot isn't recorded as such: it is what the layers remember under its
// name, so a layer that was made later takes no part in it.
//
// All of these stop at the first layer that fails, and the layers before it are changed then. eInvalidInput is also the
// answer where a layer's data isn't of the form that SnapshotChain.h tells; eNoDatabase where there is no drawing.
#pragma once

#include "KelArray.h"
#include "KelString.h"
#include "VornStatus.h"

/// Fills `names` in the order of first sight: by layer, and then as they were taken.
[[nodiscard]] Vorn::ErrorStatus getSnapshotNames(KelArray<KelString>& names);
/// Takes a snapshot of all layers, in the place of one of that name. eInvalidInput for an empty name, eNameTooLong
/// beyond 255 characters.
[[nodiscard]] Vorn::ErrorStatus saveSnapshot(const wchar_t* name);
/// Puts a snapshot on its layers. The current layer stays thawed, and a linetype or plot style that is gone stays as
/// it is. eKeyNotFound when there is none of that name.
[[nodiscard]] Vorn::ErrorStatus restoreSnapshot(const wchar_t* name);
/// Takes a snapshot out of the layers. eKeyNotFound when there is none of that name.
[[nodiscard]] Vorn::ErrorStatus deleteSnapshot(const wchar_t* name);
