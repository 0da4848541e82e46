#include "SystemVariables.h"

#include "Documents.h"
#include "RuntimeParts.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"
#include "model/Drawing.h"
#include "values/RuntimeStrings.h"

#include <algorithm>
#include <iterator>
#include <variant>

using instruments::HostCall;

namespace runtime {

namespace {

using VariableValue = std::variant<std::int16_t, std::int32_t, double, std::wstring>;

constexpr const wchar_t* kDefaultProfile = L"Default";

/// What the variables of the open drawing are read from.
struct Facts {
    const zdr::Drawing& drawing;
    const std::wstring& path; ///< empty for a drawing that was never saved
};

const zdr::Layout* activeLayout(const zdr::Drawing& drawing) {
    return drawing.activeLayout ? &drawing.layouts[*drawing.activeLayout] : nullptr;
}

VariableValue currentLayer(const Facts& facts) {
    return facts.drawing.names.text(facts.drawing.layers[facts.drawing.currentLayer].name);
}

VariableValue currentTab(const Facts& facts) {
    const zdr::Layout* layout = activeLayout(facts.drawing);
    return layout ? layout->name : std::wstring(keldbGetReservedString(10, true));
}

VariableValue currentViewport(const Facts& facts) {
    std::int16_t number = 0;
    if (const zdr::Layout* layout = activeLayout(facts.drawing))
        for (const zdr::Viewport& viewport : layout->viewports)
            if (facts.drawing.currentViewport == viewport.handle)
                number = viewport.number;
    return number;
}

VariableValue fileName(const Facts& facts) {
    return facts.path.substr(facts.path.find_last_of(L"\\/") + 1);
}

VariableValue filePrefix(const Facts& facts) {
    return facts.path.substr(0, facts.path.find_last_of(L"\\/") + 1);
}

struct Variable {
    const wchar_t* name;
    ResultType type;
    VariableValue (*read)(const Facts&); ///< null: the profile, which the application keeps
};

// In alphabetical order. Reading one of the drawing's fails while no drawing is open.
const Variable kVariables[] = {
    {L"CLAYER", kVariableString, currentLayer},
    {L"CPROFILE", kVariableString, nullptr},
    {L"CTAB", kVariableString, currentTab},
    {L"CVPORT", kVariableInt16, currentViewport},
    {L"LAYERCOUNT", kVariableInt32,
     [](const Facts& facts) -> VariableValue { return static_cast<std::int32_t>(facts.drawing.layers.size()); }},
    {L"LTSCALE", kVariableReal, [](const Facts& facts) -> VariableValue { return facts.drawing.linetypeScale; }},
    {L"LWDEFAULT", kVariableInt16, [](const Facts& facts) -> VariableValue { return facts.drawing.defaultLineWeight; }},
    {L"PLOTSTYLEMODE", kVariableInt16,
     [](const Facts& facts) -> VariableValue { return std::int16_t{facts.drawing.colorDependentPlotStyles}; }},
    {L"TILEMODE", kVariableInt16,
     [](const Facts& facts) -> VariableValue { return std::int16_t{!facts.drawing.activeLayout}; }},
    {L"VIEWTWIST", kVariableAngle, [](const Facts&) -> VariableValue { return 0.0; }}, // no view is turned
    {L"ZDRNAME", kVariableString, fileName},
    {L"ZDRPREFIX", kVariableString, filePrefix},
};

std::wstring& profile() {
    static std::wstring name(kDefaultProfile);
    return name;
}

const Variable* findVariable(const wchar_t* name) {
    if (!name)
        return nullptr;
    const std::wstring folded = zdr::foldCase(name);
    const auto* found = std::find_if(std::begin(kVariables), std::end(kVariables),
                                     [&folded](const Variable& variable) { return folded == variable.name; });
    return found == std::end(kVariables) ? nullptr : found;
}

struct Filler {
    ResultBuffer& result;
    bool operator()(std::int16_t value) const { return result.value.int16 = value, true; }
    bool operator()(std::int32_t value) const { return result.value.int32 = value, true; }
    bool operator()(double value) const { return result.value.real = value, true; }
    bool operator()(const std::wstring& value) const {
        wchar_t* const copy = engine::handOutText(value, "string of a system variable");
        return copy && (result.value.string = copy, true);
    }
};

bool fill(ResultBuffer& result, const Variable& variable) {
    if (!variable.read)
        return Filler{result}(profile());
    const Document* document = currentDocument();
    return document &&
           std::visit(Filler{result}, variable.read({engine::drawingOf(document->data()), document->path()}));
}

} // namespace

void setProfile(std::wstring name) {
    profile() = std::move(name);
}

std::vector<std::wstring> systemVariableNames() {
    std::vector<std::wstring> names;
    for (const Variable& variable : kVariables)
        names.emplace_back(variable.name);
    return names;
}

void resetSystemVariables() {
    profile() = kDefaultProfile;
}

} // namespace runtime

int keledGetVar(const wchar_t* name, ResultBuffer* result) {
    HostCall call("keledGetVar", name);
    return call.valueOr(kResultError, [&] {
        const runtime::Variable* variable = runtime::findVariable(name);
        if (!result || !variable || !runtime::fill(*result, *variable))
            return kResultError;
        result->type = variable->type;
        return kResultNormal;
    });
}
