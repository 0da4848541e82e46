#include "CommandTable.h"

#include "CommandFunctions.h"

#include <algorithm>

namespace workbench {

namespace {

constexpr Count kNone{0, 0};
constexpr Count kOne{1, 1};
constexpr Count kText{0, kMany};
constexpr Count kSomeText{1, kMany};

// clang-format off
constexpr Command kCommands[] = {
    {L"NEW", nullptr, L"", L"Starts a new drawing.", kNone, Offer::Nothing, commands::newDrawing, nullptr},
    {L"OPEN", nullptr, L"[path]", L"Opens a drawing; without a path, asks for one.", kText, Offer::Drawings, commands::open, nullptr},
    {L"SAVE", L"QSAVE", L"", L"Saves the drawing.", kNone, Offer::Nothing, commands::save, nullptr},
    {L"SAVEAS", nullptr, L"[path]", L"Saves the drawing under another name; without a path, asks for one.", kText, Offer::DrawingsToWrite, commands::saveAs, nullptr},
    {L"UNDO", L"U", L"[number]", L"Takes back the last change, or as many as the number says.", {0, 1}, Offer::Nothing, commands::undo, nullptr},
    {L"REDO", nullptr, L"[number]", L"Makes the change again that was taken back last, or as many as the number says.", {0, 1}, Offer::Nothing, commands::redo, nullptr},
    {L"LAYER", L"LA", L"option ...", L"Makes layers and changes them.", kText, Offer::Nothing, nullptr, commands::layerOptions},
    {L"VPLAYER", nullptr, L"option ... [IN number|ALL]", L"Changes how layers look in one viewport.", kText, Offer::Nothing, nullptr, commands::viewportLayerOptions},
    {L"MODEL", nullptr, L"", L"Shows model space.", kNone, Offer::Nothing, commands::model, nullptr},
    {L"LAYOUT", nullptr, L"name", L"Shows a layout.", kSomeText, Offer::Layouts, commands::layout, nullptr},
    {L"VPORT", nullptr, L"number|NONE", L"Makes a viewport of the layout the current one, or none of them.", kOne, Offer::Viewports, commands::viewport, nullptr},
    {L"ZOOM", L"Z", L"option ...|factor", L"Shows all of the drawing or a part of it; 2 or 2x shows it twice as large, 0.5 half as large.", kText, Offer::Nothing, commands::zoom, commands::zoomOptions},
    {L"PAN", L"P", L"[x,y [x,y]]", L"Moves what is shown by so much, or from the first point to the second; without points, asks for two clicks.", {0, 2}, Offer::Nothing, commands::pan, nullptr},
    {L"REGEN", L"RE", L"", L"Draws everything anew.", kNone, Offer::Nothing, commands::regenerate, nullptr},
    {L"UNITS", nullptr, L"", L"Tells what lengths and angles count in, and how they are written.", kNone, Offer::Nothing, commands::units, nullptr},
    {L"ATTACH", nullptr, L"[path [name [x y [scale [angle]]]]]", L"Shows another drawing in this one; the angle is in degrees. Without a path, asks for one.", {0, 6}, Offer::Drawings, commands::attach, nullptr},
    {L"RELOAD", nullptr, L"name|*", L"Reads attached drawings again.", kOne, Offer::References, commands::reload, nullptr},
    {L"UNLOAD", nullptr, L"name|*", L"Leaves attached drawings out until they are reloaded.", kOne, Offer::References, commands::unload, nullptr},
    {L"DETACH", nullptr, L"name|*", L"Takes attached drawings out, with their layers.", kOne, Offer::References, commands::detach, nullptr},
    {L"OUTSIDE", nullptr, L"option ...", L"Tells into which folders outside this computer attached drawings may lead.", kText, Offer::Nothing, nullptr, commands::outsideOptions},
    {L"REFERENCES", nullptr, L"", L"Lists the attached drawings with their paths, and whether they are loaded, unloaded or missing.", kNone, Offer::Nothing, commands::references, nullptr},
    {L"MODULE", nullptr, L"option ...", L"Loads modules and unloads them.", kText, Offer::Nothing, nullptr, commands::moduleOptions},
    {L"SETVAR", nullptr, L"[name [value]]", L"Shows a system variable or sets it; without a name, lists them all.", {0, 2}, Offer::Variables, commands::setVariable, nullptr},
    {L"SCRIPT", nullptr, L"[--keep-going] [path]", L"Runs the lines of a text file up to the first that can't be done, or all of them; without a path, asks for one.", kText, Offer::Scripts, commands::script, nullptr},
    {L"HELP", L"?", L"[command]", L"Lists the commands, or explains one.", {0, 1}, Offer::Commands, commands::help, nullptr},
    {L"ABOUT", nullptr, L"", L"Tells the version of the Workbench, and the licenses of what it is built with.", kNone, Offer::Nothing, commands::about, nullptr},
    {L"QUIT", L"EXIT", L"", L"Ends the Workbench.", kNone, Offer::Nothing, commands::quit, nullptr},
};
// clang-format on

bool bears(const wchar_t* name, const wchar_t* alias, std::wstring_view word) {
    return sameName(word, name) || (alias && sameName(word, alias));
}

} // namespace

std::span<const Command> commandTable() {
    return kCommands;
}

const Command* findCommand(std::wstring_view name) {
    const auto* found = std::ranges::find_if(
        kCommands, [name](const Command& command) { return bears(command.name, command.alias, name); });
    return found == std::end(kCommands) ? nullptr : found;
}

const Option* findOption(const Command& command, std::wstring_view word) {
    if (!command.options)
        return nullptr;
    const std::span<const Option> options = command.options();
    const auto found =
        std::ranges::find_if(options, [word](const Option& option) { return bears(option.name, option.alias, word); });
    return found == options.end() ? nullptr : &*found;
}

std::wstring usageOf(const Command& command) {
    return *command.usage ? std::wstring(command.name) + L' ' + command.usage : command.name;
}

std::wstring usageOf(const Command& command, const Option& option) {
    std::wstring text = std::wstring(command.name) + L' ' + option.name;
    return *option.usage ? text + L' ' + option.usage : text;
}

} // namespace workbench
