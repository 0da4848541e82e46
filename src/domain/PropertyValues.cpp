#include "PropertyValues.h"

#include "KelEditor.h"
#include "WorkingDatabase.h"

#if !defined(_WIN32)
#include <algorithm>
#include <cwchar>
#endif

wchar_t g_sysvarText[kSysvarTextLength];

namespace {

struct WidthText {
    int width; // hundredths of a millimetre
    const wchar_t* text;
};

// Fixed texts, the same in every locale.
constexpr WidthText kWidthTexts[] = {
    {0, L"0.00 mm"},   {5, L"0.05 mm"},   {9, L"0.09 mm"},   {13, L"0.13 mm"},  {15, L"0.15 mm"},  {18, L"0.18 mm"},
    {20, L"0.20 mm"},  {25, L"0.25 mm"},  {30, L"0.30 mm"},  {35, L"0.35 mm"},  {40, L"0.40 mm"},  {50, L"0.50 mm"},
    {53, L"0.53 mm"},  {60, L"0.60 mm"},  {70, L"0.70 mm"},  {80, L"0.80 mm"},  {90, L"0.90 mm"},  {100, L"1.00 mm"},
    {106, L"1.06 mm"}, {120, L"1.20 mm"}, {140, L"1.40 mm"}, {158, L"1.58 mm"}, {200, L"2.00 mm"}, {211, L"2.11 mm"},
};

struct WeightWord {
    int weight;
    int reservedWord; // number for keldbGetReservedString
};

constexpr WeightWord kWeightWords[] = {{-1, 0}, {-2, 1}, {-3, 7}};

constexpr int kUnreadableLineWeight = -1;

#if defined(_WIN32)
template <class Value> void formatSysvar(const wchar_t* format, Value value) {
    wsprintfW(g_sysvarText, format, value);
}
#else
// As wsprintfW does it: what is longer than the buffer is cut off.
template <class Value> void formatSysvar(const wchar_t* format, Value value) {
    CString text;
    text.Format(format, value);
    text.Truncate(std::min(text.GetLength(), kSysvarTextLength - 1));
    std::wcscpy(g_sysvarText, text);
}
#endif

// The whole numbers that an int holds; the conversion of anything else would be undefined.
bool fitsInt(double value) {
    return value > -2147483649.0 && value < 2147483648.0;
}

} // namespace

const wchar_t* lineWeightText(int lineWeight, CString& text) {
    for (const WidthText& row : kWidthTexts)
        if (row.width == lineWeight)
            return text = row.text;
    for (const WeightWord& row : kWeightWords)
        if (row.weight == lineWeight)
            return text = keldbGetReservedString(row.reservedWord, true);
    return text = L"*Unknown*";
}

int lineWeightOf(const ResultBuffer& value) {
    switch (value.type) {
    case kVariableReal:
        return fitsInt(value.value.real) ? static_cast<int>(value.value.real) : kUnreadableLineWeight;
    case kVariableInt16:
        return value.value.int16;
    case kVariableInt32:
        return value.value.int32;
    default:
        return kUnreadableLineWeight;
    }
}

int defaultLineWeight() {
    ResultBuffer value{};
    return keledGetVar(L"LWDEFAULT", &value) == kResultNormal ? lineWeightOf(value) : kUnreadableLineWeight;
}

const wchar_t* sysvarValueText(const ResultBuffer& value) {
    constexpr int kAsTheHostHasIt = -1;
    switch (value.type) {
    case kVariableReal:
        keldbRToS(value.value.real, kAsTheHostHasIt, kAsTheHostHasIt, g_sysvarText);
        break;
    case kVariableInt16:
        formatSysvar(L"%d", static_cast<int>(value.value.int16));
        break;
    case kVariableAngle:
        keldbAngToS(value.value.real, kAsTheHostHasIt, kAsTheHostHasIt, g_sysvarText);
        break;
    case kVariableString:
        formatSysvar(L"%s", static_cast<const wchar_t*>(value.value.string));
        vorn_free(value.value.string);
        break;
    case kVariableInt32:
        formatSysvar(L"%ld", static_cast<long>(value.value.int32));
        break;
    default:
        formatSysvar(L"%s", L"Sysvar error");
    }
    return g_sysvarText;
}

Vorn::ErrorStatus lookupPlotStyleId(const wchar_t* name, KelDbObjectId& id) {
    KelDbDatabase* database = workingDatabase();
    if (!database)
        return Vorn::eNoWorkingDatabase;
    // Where plot styles depend on colours there are no names to look up.
    if (database->plotStyleMode())
        return Vorn::eNotNamedPlotStyles;
    KelDbDictionaryWithDefault* dictionary = nullptr;
    Vorn::ErrorStatus status = database->getPlotStyleNameDictionary(dictionary, KelDb::kForRead);
    if (status != Vorn::eOk)
        return status;
    status = dictionary->getAt(name, id);
    dictionary->close();
    if (status != Vorn::eOk)
        return status;
    return id.isNull() ? Vorn::eNullObjectId : Vorn::eOk;
}
