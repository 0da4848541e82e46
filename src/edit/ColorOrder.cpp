#include "ColorOrder.h"

#include <afx.h>

int compareColors(const KelCmColor& a, const KelCmColor& b) {
    if (a == b)
        return 0;
    if (a.packed() != b.packed())
        return static_cast<std::int32_t>(a.packed()) < static_cast<std::int32_t>(b.packed()) ? -1 : 1;
    if (a.hasColorName() && b.hasColorName())
        return CString(a.colorName()).CompareNoCase(b.colorName());
    if (a.hasBookName() && b.hasBookName())
        return CString(a.bookName()).CompareNoCase(b.bookName());
    if (a.hasColorName() || b.hasColorName())
        return a.hasColorName() ? 1 : -1;
    return a.hasBookName() ? 1 : -1;
}
