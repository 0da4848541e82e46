#include "ReferenceStates.h"

#include "values/NameRules.h"

#include <algorithm>

namespace workbench {

namespace {

ReferenceState stateOf(const zdr::Reference& reference) {
    if (reference.drawing)
        return ReferenceState::Loaded;
    return reference.unloaded ? ReferenceState::Unloaded : ReferenceState::Missing;
}

// Opening a drawing bounds how deep they nest and how many there are.
void add(std::vector<ReferenceRow>& rows, const zdr::Drawing& drawing, const std::wstring& prefix) {
    for (const zdr::Reference& reference : drawing.references) {
        const std::wstring name = prefix + reference.name;
        rows.push_back({name, reference.path, stateOf(reference)});
        if (reference.drawing)
            add(rows, *reference.drawing, name + engine::kReferenceSeparator);
    }
}

auto missingOf(const std::vector<ReferenceRow>& references) {
    return std::ranges::count(references, ReferenceState::Missing, &ReferenceRow::state);
}

} // namespace

std::vector<ReferenceRow> referencesOf(const zdr::Drawing& drawing) {
    std::vector<ReferenceRow> rows;
    add(rows, drawing, {});
    return rows;
}

std::wstring countText(const std::vector<ReferenceRow>& references) {
    if (references.empty())
        return {};
    const std::wstring count =
        references.size() == 1 ? L"1 reference" : std::to_wstring(references.size()) + L" references";
    const auto missing = missingOf(references);
    return missing == 0 ? count : count + L", " + std::to_wstring(missing) + L" missing";
}

bool isAnyMissing(const std::vector<ReferenceRow>& references) {
    return missingOf(references) > 0;
}

const wchar_t* stateText(ReferenceState state) {
    switch (state) {
    case ReferenceState::Loaded:
        return L"loaded";
    case ReferenceState::Unloaded:
        return L"unloaded";
    case ReferenceState::Missing:
        break;
    }
    return L"missing";
}

} // namespace workbench
