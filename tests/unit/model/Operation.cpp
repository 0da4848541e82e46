#include "Operation.h"

#include "instruments/HostCalls.h"

#include <algorithm>
#include <istream>
#include <iterator>
#include <sstream>

namespace model {
namespace {

enum class Argument : std::uint8_t {
    StateName,
    LayerName,
    LayerList,
    MaskBits,
    OwnMask, ///< a mask or the state's own
    Flags,
    ViewportName,
    LookNumber,
    PropertyNumber,
    ApplicationName,
    Number, ///< below 4
    Truth,
};

struct KindInfo {
    Kind kind;
    const char* name;
    int weight; ///< how often it is chosen
    std::vector<Argument> arguments;
};

using enum Argument;

const std::vector<KindInfo>& kinds() {
    static const std::vector<KindInfo> table = {
        {Kind::Save, "save", 60, {StateName, MaskBits}},
        {Kind::SaveWithViewport, "saveWithViewport", 60, {StateName, MaskBits, ViewportName}},
        {Kind::Restore, "restore", 120, {StateName, ViewportName, Flags, OwnMask}},
        {Kind::RestoreQuietly, "restoreQuietly", 30, {StateName, ViewportName, Flags, OwnMask, Truth}},
        {Kind::Rename, "rename", 20, {StateName, StateName}},
        {Kind::Delete, "delete", 20, {StateName}},
        {Kind::SetMask, "setMask", 30, {StateName, MaskBits}},
        {Kind::Describe, "describe", 15, {StateName, Number}},
        {Kind::AddLayersToState, "addLayersToState", 30, {StateName, LayerList}},
        {Kind::RemoveLayersFromState, "removeLayersFromState", 25, {StateName, LayerList}},
        {Kind::UpdateStateLayer, "updateStateLayer", 40, {StateName, LayerName, LookNumber, Truth}},
        {Kind::AskLayers, "askLayers", 10, {StateName, Truth}},
        {Kind::Compare, "compare", 80, {StateName, ViewportName}},
        {Kind::SetLayer, "setLayer", 120, {LayerName, PropertyNumber, LookNumber}},
        {Kind::DescribeLayer, "describeLayer", 10, {LayerName, Number}},
        {Kind::AddLayer, "addLayer", 45, {LayerName, LookNumber}},
        {Kind::RenameLayer, "renameLayer", 25, {LayerName, LayerName}},
        {Kind::EraseLayer, "eraseLayer", 25, {LayerName}},
        {Kind::SetCurrent, "setCurrent", 45, {LayerName}},
        {Kind::SetLayout, "setLayout", 10, {Number}},
        {Kind::SetViewport, "setViewport", 15, {ViewportName}},
        {Kind::FreezeInViewport, "freezeInViewport", 25, {ViewportName, LayerName, Truth}},
        {Kind::Override, "override", 25, {ViewportName, LayerName, MaskBits, LookNumber}},
        {Kind::Attach, "attach", 4, {Number}},
        {Kind::Detach, "detach", 2, {}},
        {Kind::Begin, "begin", 45, {}},
        {Kind::End, "end", 65, {}},
        {Kind::Undo, "undo", 60, {}},
        {Kind::Redo, "redo", 55, {}},
        {Kind::Reload, "reload", 3, {}},
        {Kind::Shelve, "shelve", 3, {}},
        {Kind::ImportFromShelf, "importFromShelf", 10, {StateName}},
        {Kind::Export, "export", 4, {StateName, Number}},
        {Kind::Import, "import", 8, {Number}},
        {Kind::Clone, "clone", 10, {StateName}},
        {Kind::PutBack, "putBack", 10, {StateName}},
        {Kind::RegisterApplication, "registerApplication", 4, {ApplicationName}},
        {Kind::SetData, "setData", 10, {LayerName, ApplicationName, Number}},
        {Kind::Start, "start", 0, {Number}},
    };
    return table;
}

const KindInfo& infoOf(Kind kind) {
    return kinds()[static_cast<std::size_t>(kind)];
}

constexpr std::string_view kStates[] = {"Plan", "PLAN", "Cut", "Roof", "Detail", "site!Plan", "site!Summer", "a!b"};
constexpr std::string_view kLayers[] = {"Base",      "Walls",      "WALLS",     "Doors",  "Notes", "Roof",
                                        "site!Base", "site!Trees", "site!Pond", "dashed", "a*b",   "BASE"};
constexpr std::string_view kApplications[] = {"OLD", "NEW"};
constexpr std::uint32_t kColors[] = {7, 1, 0, 256, 0xC2102030};
constexpr std::uint32_t kNamedColor = 0xC2102030;
/// Color and book; the first stands for a color without names.
constexpr std::pair<const wchar_t*, const wchar_t*> kColorNames[] = {
    {L"", L""}, {L"Signal Blue", L"House Paints"}, {L"Slate", L""}};
constexpr std::string_view kLinetypes[] = {"Continuous", "Dashed", "Wavy", "site!Wavy"};
constexpr int kWeights[] = {-3, 0, 25, 211};
constexpr std::string_view kPlotStyles[] = {"Normal", "Fine", "Bold", "site!Bold"};
constexpr std::string_view kViewports[] = {"-", "v2", "v3", "off", "other"};

/// How many values an argument may have.
std::uint32_t rangeOf(Argument argument) {
    switch (argument) {
    case StateName:
        return std::size(kStates);
    case LayerName:
        return std::size(kLayers);
    case LayerList:
        return 1u << std::size(kLayers);
    case MaskBits:
    case OwnMask:
        return 2048;
    case Flags:
        return 8;
    case ViewportName:
        return std::size(kViewports);
    case LookNumber:
        return 32 * 5 * 4 * 4 * 4 * std::size(kColorNames);
    case PropertyNumber:
        return kPlotStyle + 1;
    case ApplicationName:
        return std::size(kApplications);
    case Number:
        return 4;
    case Truth:
        return 2;
    }
    return 1;
}

std::uint32_t below(std::mt19937& random, std::uint32_t range) {
    return static_cast<std::uint32_t>(random() % range);
}

std::uint32_t randomArgument(Argument argument, std::mt19937& random) {
    const std::uint32_t choice = below(random, 4);
    if (argument == MaskBits && choice > 1)
        return choice == 2 ? 1023 : 1u << below(random, 11);
    if (argument == OwnMask && choice > 0)
        return choice == 1 ? 1023 : kOwnMask;
    if (argument == LayerList)
        return below(random, rangeOf(LayerList)) & below(random, rangeOf(LayerList));
    if (argument == ViewportName && choice == 0)
        return 0;
    return below(random, rangeOf(argument));
}

std::string argumentText(Argument argument, std::uint32_t value) {
    switch (argument) {
    case StateName:
        return std::string(stateName(value));
    case LayerName:
        return std::string(layerName(value));
    case ViewportName:
        return std::string(kViewports[value]);
    case ApplicationName:
        return std::string(applicationName(value));
    case OwnMask:
        return value == kOwnMask ? "own" : std::to_string(value);
    default:
        return std::to_string(value);
    }
}

// What an argument stands for, in words, for whoever reads a printed sequence.
std::string remark(Argument argument, std::uint32_t value) {
    std::ostringstream out;
    if (argument == LayerList) {
        for (const std::string_view name : layerNames(value))
            out << ' ' << name;
    } else if (argument == LookNumber) {
        const model::Look look = lookOf(value);
        out << " flags " << look.flags << ", " << instruments::describe(look.color) << ", " << look.linetype
            << ", weight " << look.weight << ", " << look.plotStyle;
    } else if (argument == PropertyNumber) {
        constexpr const char* names[] = {"off",   "frozen",   "locked", "plot",      "frozen in new viewports",
                                         "color", "linetype", "weight", "plot style"};
        out << ' ' << names[value] << " of";
    }
    return out.str();
}

std::optional<std::uint32_t> argumentOf(Argument argument, const std::string& text) {
    if (argument == OwnMask && text == "own")
        return kOwnMask;
    for (std::uint32_t value = 0; value < rangeOf(argument); ++value)
        if (argumentText(argument, value) == text)
            return value;
    return std::nullopt;
}

} // namespace

std::string_view stateName(std::uint32_t argument) {
    return kStates[argument];
}

std::string_view layerName(std::uint32_t argument) {
    return kLayers[argument];
}

std::string_view applicationName(std::uint32_t argument) {
    return kApplications[argument];
}

std::vector<std::string_view> layerNames(std::uint32_t bits) {
    std::vector<std::string_view> names;
    for (std::size_t i = 0; i < std::size(kLayers); ++i)
        if (bits >> i & 1)
            names.push_back(kLayers[i]);
    return names;
}

Look lookOf(std::uint32_t argument) {
    const auto next = [&argument](std::size_t range) {
        const std::uint32_t value = argument % static_cast<std::uint32_t>(range);
        argument /= static_cast<std::uint32_t>(range);
        return value;
    };
    Look look;
    look.flags = next(32) ^ 9; // 0 stands for a layer that is on and plotted
    look.color = KelCmColor::fromPacked(kColors[next(std::size(kColors))]);
    look.linetype = kLinetypes[next(std::size(kLinetypes))];
    look.weight = kWeights[next(std::size(kWeights))];
    look.plotStyle = kPlotStyles[next(std::size(kPlotStyles))];
    if (const auto [name, book] = kColorNames[next(std::size(kColorNames))]; *name) {
        look.color = KelCmColor::fromPacked(kNamedColor);
        look.color.setNames(name, book);
    }
    return look;
}

std::size_t argumentCount(Kind kind) {
    return infoOf(kind).arguments.size();
}

Operation Generator::next() {
    static const int total = [] {
        int sum = 0;
        for (const KindInfo& info : kinds())
            sum += info.weight;
        return sum;
    }();
    auto place = static_cast<int>(below(m_random, static_cast<std::uint32_t>(total)));
    const auto chosen = std::ranges::find_if(kinds(), [&place](const KindInfo& info) {
        place -= info.weight;
        return place < 0;
    });
    Operation operation{chosen->kind, {}};
    for (std::size_t i = 0; i < chosen->arguments.size(); ++i) {
        const Argument argument = chosen->arguments[i];
        std::uint32_t& value = operation.arguments[i];
        value = randomArgument(argument, m_random);
        if (argument != StateName && argument != LayerName)
            continue;
        std::uint32_t& recent = argument == StateName ? m_state : m_layer;
        if (below(m_random, 5) < 2)
            value = recent;
        recent = value;
    }
    return operation;
}

std::string textOf(const Operation& operation) {
    const KindInfo& info = infoOf(operation.kind);
    std::string line = info.name;
    std::string remarks;
    for (std::size_t i = 0; i < info.arguments.size(); ++i) {
        line += ' ' + argumentText(info.arguments[i], operation.arguments[i]);
        remarks += remark(info.arguments[i], operation.arguments[i]);
    }
    return remarks.empty() ? line : line + " #" + remarks;
}

std::optional<Operation> operationOf(std::string_view line) {
    std::istringstream in{std::string(line.substr(0, line.find('#')))};
    std::string word;
    in >> word;
    const auto info = std::ranges::find_if(kinds(), [&word](const KindInfo& item) { return item.name == word; });
    if (info == kinds().end())
        return std::nullopt;
    Operation operation{info->kind, {}};
    for (std::size_t i = 0; i < info->arguments.size(); ++i) {
        if (!(in >> word))
            return std::nullopt;
        const auto argument = argumentOf(info->arguments[i], word);
        if (!argument)
            return std::nullopt;
        operation.arguments[i] = *argument;
    }
    return in >> word ? std::nullopt : std::optional(operation);
}

std::optional<std::vector<Operation>> readOperations(std::istream& in) {
    std::vector<Operation> operations;
    for (std::string line; std::getline(in, line);) {
        const std::size_t start = line.find_first_not_of(" \t\r");
        if (start == std::string::npos || line[start] == '#')
            continue;
        const auto operation = operationOf(line);
        if (!operation)
            return std::nullopt;
        operations.push_back(*operation);
    }
    return operations;
}

} // namespace model
