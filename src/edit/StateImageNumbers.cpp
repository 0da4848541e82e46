#include "StateImageNumbers.h"

#include "GridColumns.h"

namespace {

struct KindImages {
    int kind;
    int images[3];
};

constexpr KindImages kImages[] = {
    {onKind, {9, 2, 18}},     {freezeKind, {6, 0, 22}},        {lockKind, {8, 5, 19}},
    {plotKind, {36, 35, 37}}, {newVpFreezeKind, {13, 12, 20}},
};

} // namespace

int stateImageNumber(int kind, int value) {
    if (value < 0 || value > 2)
        return kFallbackImage;
    for (const KindImages& row : kImages)
        if (row.kind == kind)
            return row.images[value];
    return kFallbackImage;
}
