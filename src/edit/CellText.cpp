#include "CellText.h"

#include "GridColumns.h"
#include "PropertyValues.h"

#include <cwchar>

CString colorStyleText(const CLayerRcd& record, const wchar_t* styleFormat) {
    CString text;
    text.Format(styleFormat, static_cast<int>(record.m_color.colorIndex()));
    return text;
}

CString cellText(const CLayerRcd& record, int column, const wchar_t* styleFormat) {
    CString text;
    switch (column) {
    case nameGridColumn:
        return record.m_name;
    case colorGridColumn:
        return record.m_color.colorNameForDisplay();
    case linetypeGridColumn:
        return record.m_linetypeName;
    case lineWeightGridColumn:
        return lineWeightText(record.m_lineWeight, text);
    case plotStyleGridColumn:
        return colorStyleText(record, styleFormat);
    default:
        return text;
    }
}

void copyTipText(const CString& text, wchar_t* buffer, int room) {
    buffer[0] = L'\0';
    if (text.GetLength() < room)
        std::wcscpy(buffer, text);
}
