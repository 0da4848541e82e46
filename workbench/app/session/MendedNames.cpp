#include "MendedNames.h"

#include "CommandText.h"

#include "values/NameRules.h"

#include <algorithm>

namespace workbench {

namespace {

constexpr std::size_t kMostTold = 100;

bool isOwn(const zdr::MendedName& name) {
    return name.now.find(engine::kReferenceSeparator) == std::wstring::npos;
}

std::wstring word(zdr::Bearer bearer) {
    switch (bearer) {
    case zdr::Bearer::Layer:
        return L"layer";
    case zdr::Bearer::Linetype:
        return L"linetype";
    case zdr::Bearer::PlotStyle:
        return L"plot style";
    case zdr::Bearer::Reference:
        return L"reference";
    case zdr::Bearer::LayerState:
        break;
    }
    return L"layer state";
}

} // namespace

std::wstring mendedNamesText(const zdr::Drawing& drawing, std::wstring_view prefix) {
    std::wstring text;
    std::size_t count = 0;
    bool anyOwn = false;
    for (const zdr::MendedName& name : drawing.mendedNames) {
        if (!name.now.starts_with(prefix))
            continue;
        anyOwn = anyOwn || isOwn(name);
        if (count++ < kMostTold)
            text += L"The name of " + word(name.bearer) + L" " + quotation(name.was) +
                    L" can't be used: it is called " + quotation(name.now) + L" now.\n";
    }
    if (count > kMostTold)
        text += L"So it is with " + std::to_wstring(count - kMostTold) + L" more.\n";
    if (anyOwn)
        text += L"The file keeps the old names until the drawing is saved. To choose others, rename the states: " +
                std::wstring(kNameAdvice) + L".\n";
    return text;
}

} // namespace workbench
