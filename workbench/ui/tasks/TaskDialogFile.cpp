// The head of TaskDialogs.xaml describes the format.

#include "TaskDialogFile.h"

#include "base/ComponentFile.h"
#include "base/XmlFile.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace framework {
namespace {

constexpr std::pair<std::wstring_view, TaskIcon> kIcons[] = {
    {L"", TaskIcon::none},       {L"Information", TaskIcon::information}, {L"Warning", TaskIcon::warning},
    {L"Error", TaskIcon::error}, {L"Shield", TaskIcon::shield},
};

constexpr std::pair<std::wstring_view, unsigned int> kCommonButtons[] = {
    {L"OK", TDCBF_OK_BUTTON},         {L"Yes", TDCBF_YES_BUTTON},     {L"No", TDCBF_NO_BUTTON},
    {L"Cancel", TDCBF_CANCEL_BUTTON}, {L"Retry", TDCBF_RETRY_BUTTON}, {L"Close", TDCBF_CLOSE_BUTTON},
};

template <class Value, std::size_t Count>
std::optional<Value> lookUp(const std::pair<std::wstring_view, Value> (&table)[Count], std::wstring_view word) {
    for (const auto& [name, value] : table)
        if (name == word)
            return value;
    return std::nullopt;
}

/// A list of names, separated by spaces.
std::optional<unsigned int> parseCommonButtons(std::wstring_view names) {
    unsigned int bits = 0;
    while (!names.empty()) {
        const std::wstring_view word = names.substr(0, names.find(L' '));
        names.remove_prefix(std::min(word.size() + 1, names.size()));
        if (word.empty())
            continue;
        const auto bit = lookUp(kCommonButtons, word);
        if (!bit)
            return std::nullopt;
        bits |= *bit;
    }
    return bits;
}

const XmlElement* findDialog(const XmlElement& root, std::wstring_view key) {
    for (const XmlElement& dialog : root.children)
        if (dialog.name == L"TaskDialog" && dialog.attribute(L"Key") == key)
            return &dialog;
    return nullptr;
}

std::wstring textOf(const XmlElement& parent, std::wstring_view name, const TaskPairs& pairs) {
    const XmlElement* child = parent.child(name);
    return child ? substituted(child->text, pairs) : std::wstring();
}

std::vector<std::wstring> commandsOf(const XmlElement& dialog, const TaskPairs& pairs) {
    std::vector<std::wstring> commands;
    for (const XmlElement& child : dialog.children) {
        if (child.name != L"Command")
            continue;
        std::wstring text = substituted(child.attribute(L"Text"), pairs);
        if (!child.text.empty())
            text += L'\n' + substituted(child.text, pairs);
        commands.push_back(std::move(text));
    }
    return commands;
}

} // namespace

std::optional<TaskDescription> readTaskDialog(const std::wstring& file, std::wstring_view key, const TaskPairs& pairs) {
    const auto root = readXmlFile(componentFile(file));
    const XmlElement* dialog = root ? findDialog(*root, key) : nullptr;
    if (!dialog)
        return std::nullopt;
    const auto icon = lookUp(kIcons, dialog->attribute(L"Icon"));
    const auto buttons = parseCommonButtons(dialog->attribute(L"Buttons"));
    TaskDescription description;
    description.title = textOf(*dialog, L"Title", pairs);
    description.instruction = textOf(*dialog, L"Instruction", pairs);
    description.content = textOf(*dialog, L"Content", pairs);
    description.commands = commandsOf(*dialog, pairs);
    if (!icon || !buttons || description.instruction.empty())
        return std::nullopt;
    description.icon = *icon;
    description.commonButtons = *buttons;
    return description;
}

std::wstring substituted(std::wstring_view text, const TaskPairs& pairs) {
    std::wstring out;
    while (!text.empty()) {
        const std::size_t open = text.find(L'{');
        out += text.substr(0, open);
        if (open == std::wstring_view::npos)
            break;
        text.remove_prefix(open);
        const std::size_t close = text.find(L'}');
        const bool named = close != std::wstring_view::npos;
        const auto pair = named ? pairs.find(std::wstring(text.substr(1, close - 1))) : pairs.end();
        if (pair != pairs.end()) {
            out += pair->second;
            text.remove_prefix(close + 1);
        } else {
            out += L'{';
            text.remove_prefix(1);
        }
    }
    return out;
}

} // namespace framework
