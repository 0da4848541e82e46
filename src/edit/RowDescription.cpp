#include "RowDescription.h"

#include "CellText.h"
#include "GridColumns.h"

namespace {

struct FlagWords {
    int kind;
    unsigned int set;
    unsigned int clear;
};

constexpr FlagWords kFlagWords[] = {
    {onKind, IDS_LSTATE_WORD_OFF, IDS_LSTATE_WORD_ON},
    {freezeKind, IDS_LSTATE_WORD_FROZEN, IDS_LSTATE_WORD_THAWED},
    {lockKind, IDS_LSTATE_WORD_LOCKED, IDS_LSTATE_WORD_UNLOCKED},
    {plotKind, IDS_LSTATE_WORD_PLOTTED, IDS_LSTATE_WORD_NOT_PLOTTED},
    {newVpFreezeKind, IDS_LSTATE_WORD_FROZEN, IDS_LSTATE_WORD_THAWED},
};

} // namespace

CString rowDescription(const CLayerRcd& record, const std::function<CString(unsigned int)>& text) {
    const auto value = [&](int column) {
        for (const FlagWords& words : kFlagWords)
            if (words.kind == columnKind[column])
                return text(record.*flagOfKind(words.kind) ? words.set : words.clear);
        // Without a style of its own a layer follows its colour.
        if (column == plotStyleGridColumn && !record.m_plotStyleName.IsEmpty())
            return record.m_plotStyleName;
        return cellText(record, column, text(IDS_LSTATE_COLOR_STYLE));
    };
    CString description = record.m_isCurrent ? text(IDS_LSTATE_WORD_CURRENT_LAYER) : CString();
    for (int column = nameGridColumn + 1; column < gridColumnCount; ++column) {
        if (!description.IsEmpty())
            description += L"; ";
        description += text(kGridColumns[column].headingId) + L": " + value(column);
    }
    return description;
}
