#include "Completion.h"

#include "CommandTable.h"
#include "ModuleNames.h"
#include "PropertyText.h"
#include "Session.h"
#include "StartOptions.h"
#include "SystemRegistry.h"
#include "SystemVariables.h"

#include "files/TextCoding.h"

#include <algorithm>

namespace workbench {

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::wstring>;

// A longer list of paths would help nobody.
constexpr std::size_t kMostPaths = 200;
// Stands between the layers and the viewport, as in VPLAYER FREEZE Walls IN 2.
constexpr const wchar_t* kPlaceWord = L"IN";

Names commandNames() {
    Names names;
    for (const Command& command : commandTable())
        names.emplace_back(command.name);
    const KelEdCommandStack& stack = runtime::commandStack();
    for (int i = 0; i < stack.count(); ++i)
        names.emplace_back(stack.at(i)->globalName());
    return names;
}

Names optionNames(const Command& command) {
    Names names;
    for (const Option& option : command.options())
        names.emplace_back(option.name);
    return names;
}

/// The names of things whose names are kept in the drawing's table of names.
template <class Thing> Names namesOf(const zdr::Drawing& drawing, const std::vector<Thing>& things) {
    Names names;
    for (const Thing& thing : things)
        names.push_back(drawing.names.text(thing.name));
    return names;
}

template <class Thing> Names ownNamesOf(const std::vector<Thing>& things) {
    Names names;
    for (const Thing& thing : things)
        names.push_back(thing.name);
    return names;
}

/// The numbers of the viewports on view, and the word that stands for none or all of them.
Names viewportNames(const zdr::Drawing& drawing, const wchar_t* word) {
    Names names{word};
    if (drawing.activeLayout)
        for (const zdr::Viewport& viewport : drawing.layouts[*drawing.activeLayout].viewports)
            if (viewport.number > 0)
                names.push_back(std::to_wstring(viewport.number));
    return names;
}

/// The entries of the folder that a path begins with, spelled as the path spells it. A path that isn't whole counts as
/// placesOf() says; what is to be written goes to the first of these places.
Names paths(const std::wstring& typed, const std::wstring& drawing, Offer offer) {
    const bool drawingsOnly = offer == Offer::Drawings || offer == Offer::DrawingsToWrite;
    const std::size_t separator = typed.find_last_of(L"\\/");
    const std::wstring folder = separator == std::wstring::npos ? std::wstring() : typed.substr(0, separator + 1);
    const wchar_t slash = separator == std::wstring::npos ? L'\\' : typed[separator];
    std::vector<std::wstring> places = placesOf(folder.empty() ? L"." : folder, drawing);
    if (offer == Offer::DrawingsToWrite)
        places.resize(1);
    Names names;
    for (const std::wstring& place : places) {
        std::error_code error;
        fs::directory_iterator entry(zdr::systemPath(place), error);
        for (; !error && entry != fs::directory_iterator() && names.size() < kMostPaths; entry.increment(error)) {
            const std::wstring name = zdr::widePath(entry->path().filename());
            std::error_code unknown;
            if (entry->is_directory(unknown))
                names.push_back(folder + name + slash);
            else if (!drawingsOnly || sameName(zdr::widePath(entry->path().extension()), kDrawingEnding))
                names.push_back(folder + name);
        }
    }
    return names;
}

Names scripts(const std::wstring& typed, const std::wstring& drawing) {
    Names names = paths(typed, drawing, Offer::Scripts);
    names.emplace_back(kKeepGoing);
    return names;
}

Names offered(const Session& session, Offer offer, const std::wstring& typed) {
    const zdr::Drawing& drawing = session.drawing();
    switch (offer) {
    case Offer::Nothing:
        return {};
    case Offer::Commands:
        return commandNames();
    case Offer::Drawings:
    case Offer::DrawingsToWrite:
        return paths(typed, session.path(), offer);
    case Offer::Scripts:
        return scripts(typed, session.path());
    case Offer::Files:
        return paths(typed, {}, offer);
    case Offer::Modules:
        return moduleNames(session.window().loadedModules());
    case Offer::Layouts:
        return ownNamesOf(drawing.layouts);
    case Offer::Viewports:
        return viewportNames(drawing, L"none");
    case Offer::Variables:
        return runtime::systemVariableNames();
    case Offer::References:
        return ownNamesOf(drawing.references);
    case Offer::Layers:
        return namesOf(drawing, drawing.layers);
    case Offer::LayersOrPlace: {
        Names names = namesOf(drawing, drawing.layers);
        names.emplace_back(kPlaceWord);
        return names;
    }
    case Offer::Colors:
        return colorNames();
    case Offer::Linetypes:
        return namesOf(drawing, drawing.linetypes);
    case Offer::LineWeights:
        return lineWeightNames();
    case Offer::PlotStyles:
        return namesOf(drawing, drawing.plotStyles);
    case Offer::YesNo:
        return {L"yes", L"no"};
    }
    return {};
}

/// What the last word may be, after the words `before`. `typed` is what there is of it so far.
Names candidatesFor(const Session& session, const Words& before, const std::wstring& typed) {
    if (before.empty())
        return commandNames();
    const Command* command = findCommand(before[0]);
    if (!command)
        return {};
    if (!command->options) {
        if (command->first == Offer::Scripts && before.size() == 2 && sameName(before[1], kKeepGoing))
            return paths(typed, session.path(), Offer::Scripts);
        return before.size() == 1 ? offered(session, command->first, typed) : Names();
    }
    if (before.size() == 1)
        return optionNames(*command);
    const Option* option = findOption(*command, before[1]);
    if (!option)
        return {};
    if (before.size() > 2 && option->rest == Offer::LayersOrPlace && sameName(before.back(), kPlaceWord))
        return viewportNames(session.drawing(), L"ALL");
    return offered(session, before.size() == 2 ? option->first : option->rest, typed);
}

bool beginsWith(const std::wstring& name, const std::wstring& beginning) {
    return name.size() >= beginning.size() && sameName(name.substr(0, beginning.size()), beginning);
}

/// The longest beginning that all names share, in the first one's spelling.
std::wstring commonBeginning(const Names& names) {
    std::wstring common = names.front();
    for (const std::wstring& name : names)
        while (!beginsWith(name, common))
            common.pop_back();
    return common;
}

bool endsInSeparator(const std::wstring& name) {
    return !name.empty() && (name.back() == L'\\' || name.back() == L'/');
}

/// The name as it has to be typed, in quotes where it needs them. Unless it is the `whole` name the closing quote is
/// left out, so that typing can go on.
std::wstring typedForm(const std::wstring& name, bool whole) {
    const std::wstring quoted = quotedWhereNeeded(name);
    const bool open = quoted != name && !whole;
    return open ? quoted.substr(0, quoted.size() - 1) : quoted;
}

} // namespace

Completion complete(const Session& session, const std::wstring& line) {
    const std::size_t wordStart = lastWordStart(line);
    // In a list only the part after the last comma is completed.
    const std::wstring word = line.substr(wordStart);
    const std::size_t comma = word.find_last_of(L',');
    const bool inList = comma != std::wstring::npos && std::ranges::count(word.substr(0, comma), L'"') % 2 == 0;
    const std::size_t start = inList ? wordStart + comma + 1 : wordStart;
    const std::wstring typed = unquoted(line.substr(start));
    Names names = candidatesFor(session, splitWords(line.substr(0, wordStart)), typed);
    std::erase_if(names, [&typed](const std::wstring& name) { return !beginsWith(name, typed); });
    if (names.empty())
        return {line, {}};
    std::ranges::sort(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    if (names.size() == 1) {
        const bool whole = !endsInSeparator(names[0]);
        return {line.substr(0, start) + typedForm(names[0], whole) + (whole ? L" " : L""), {}};
    }
    const std::wstring common = commonBeginning(names);
    // Nothing to add: what was typed stays as it was typed.
    return {common.size() > typed.size() ? line.substr(0, start) + typedForm(common, false) : line, names};
}

} // namespace workbench
