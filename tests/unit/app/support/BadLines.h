// Lines that have to be refused in one sentence, for the commands themselves and for the window that they are typed
// into.
#pragma once

#include "CommandTable.h"

#include <string>
#include <vector>

namespace bad {

inline std::wstring words(int count) {
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += L" word";
    return text;
}

inline std::span<const workbench::Option> optionsOf(const workbench::Command& command) {
    return command.options ? command.options() : std::span<const workbench::Option>();
}

inline std::wstring nameOf(const workbench::Command& command, const workbench::Option& option) {
    return std::wstring(command.name) + L' ' + option.name;
}

/// Every command and option that needs words, with one too few of them.
inline std::vector<std::wstring> linesWithTooFew() {
    std::vector<std::wstring> lines;
    for (const workbench::Command& command : workbench::commandTable()) {
        if (command.options || command.count.least > 0)
            lines.emplace_back(command.name);
        for (const workbench::Option& option : optionsOf(command))
            if (option.count.least > 0)
                lines.push_back(nameOf(command, option) + words(option.count.least - 1));
    }
    return lines;
}

/// Every command and option that limits the number of its words, with one word too many.
inline std::vector<std::wstring> linesWithTooMany() {
    std::vector<std::wstring> lines;
    for (const workbench::Command& command : workbench::commandTable()) {
        if (!command.options && command.count.most < workbench::kMany)
            lines.push_back(command.name + words(command.count.most + 1));
        for (const workbench::Option& option : optionsOf(command))
            if (option.count.most < workbench::kMany)
                lines.push_back(nameOf(command, option) + words(option.count.most + 1));
    }
    return lines;
}

/// Every command and option that takes words, with one word of `length` letters. Left out are those that refuse it in a
/// message box.
inline std::vector<std::wstring> enormousLines(std::size_t length = 32000) {
    const std::wstring enormous(length, L'x');
    std::vector<std::wstring> lines;
    for (const workbench::Command& command : workbench::commandTable()) {
        const bool tellsInBox = command.name == std::wstring(L"OPEN") || command.name == std::wstring(L"SAVEAS");
        if (!tellsInBox)
            lines.push_back(std::wstring(command.name) + L' ' + enormous);
        for (const workbench::Option& option : optionsOf(command)) {
            // Any text describes a layer, so the layer must be one that isn't there.
            const int behind = option.name == std::wstring(L"DESCRIPTION") ? 1 : option.count.least - 1;
            lines.push_back(nameOf(command, option) + L' ' + enormous + words(behind));
        }
    }
    return lines;
}

/// Lines with values that aren't valid, in a new drawing with the layer Walls.
inline constexpr const wchar_t* kWrongLines[] = {
    L"LAYOUT nowhere",
    L"VPORT two",
    L"VPORT -1",
    L"VPORT 99999",
    L"LAYER nonsense",
    L"LAYER SET nowhere",
    L"LAYER SET \"\"",
    L"LAYER ON nowhere,Walls",
    L"LAYER ON ,",
    L"LAYER OFF nowhere",
    L"LAYER THAW nowhere",
    L"LAYER LOCK nowhere",
    L"LAYER UNLOCK nowhere",
    L"LAYER COLOUR 256",
    L"LAYER COLOUR 1,2",
    L"LAYER COLOUR 1,2,256",
    L"LAYER LINETYPE dotted",
    L"LAYER LINEWEIGHT 0.26",
    L"LAYER PLOTSTYLE nowhere",
    L"LAYER PLOT perhaps Walls",
    L"LAYER NEWVIEWPORTS perhaps Walls",
    L"LAYER DESCRIPTION text nowhere",
    L"LAYER LIST nowhere",
    L"LAYER NEW a:b",
    L"LAYER NEW ,",
    L"LAYER NEW \" \"",
    L"LAYER MAKE \"  \"",
    L"LAYER RENAME Walls \" \"",
    L"LAYER NEW Walls",
    L"LAYER MAKE a|b",
    L"LAYER MAKE \"\"",
    L"LAYER RENAME Walls Base",
    L"LAYER RENAME Base Other",
    L"LAYER DELETE Base",
    L"LAYER FREEZE Base",
    L"VPLAYER nonsense",
    L"VPLAYER FREEZE Walls",
    L"VPLAYER COLOUR red Walls",
    L"UNDO two",
    L"REDO 0",
    L"ZOOM 0",
    L"ZOOM -2x",
    L"ZOOM 1",
    L"ZOOM nan",
    L"ZOOM 1e300",
    L"ZOOM 2 3",
    L"ZOOM 2xx",
    L"ZOOM PREVIOUS",
    L"ZOOM WINDOW 0,0",
    L"ZOOM WINDOW 0,0 0,0",
    L"ZOOM WINDOW 0,0 0,10",
    L"ZOOM WINDOW 0,0 10,0",
    L"ZOOM WINDOW nan,0 1,1",
    L"ZOOM WINDOW 0,0 1e300,1e300",
    L"ZOOM WINDOW 0,0 1e-9,1e-9",
    L"ZOOM WINDOW 0,0 two",
    L"ZOOM LAYER nowhere",
    L"ZOOM LAYER Walls",
    L"PAN 0,0",
    L"PAN 5,5 5,5",
    L"PAN 5",
    L"PAN inf,0",
    L"PAN 0,0 1e300,0",
    L"DETACH *",
    L"RELOAD *",
    L"UNLOAD *",
    L"SETVAR nowhere",
    L"SETVAR \"\"",
    L"SETVAR LTSCALE much",
    L"SETVAR LTSCALE 0",
    L"SETVAR LTSCALE -1",
    L"SETVAR LTSCALE 1e-300",
    L"SETVAR LTSCALE 1e300",
    L"SETVAR LAYERCOUNT 7",
    L"SETVAR TILEMODE 2",
    L"SETVAR CVPORT x",
    L"SETVAR CVPORT 2",
    L"SETVAR CTAB nowhere",
    L"SETVAR CLAYER nowhere",
    L"SCRIPT nowhere.txt",
    L"ATTACH nowhere.zdr",
    L"HELP nonsense",
    L"nonsense",
};

} // namespace bad
