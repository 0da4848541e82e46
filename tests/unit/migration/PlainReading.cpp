#include "PlainReading.h"

#include "ResultBuffer.h"

#include <afx.h>

#include <algorithm>

namespace plain {

namespace {

const std::wstring* textOf(const Node& node) {
    return node.code == kExtendedString ? &std::get<std::wstring>(node.value) : nullptr;
}

bool isText(const Node& node, const std::wstring& text) {
    const std::wstring* found = textOf(node);
    return found && same(*found, text);
}

std::optional<int> number(const Nodes& nodes, std::size_t index, int code) {
    if (index >= nodes.size() || nodes[index].code != code)
        return std::nullopt;
    return std::get<std::int32_t>(nodes[index].value);
}

std::optional<std::wstring> text(const Nodes& nodes, std::size_t index, int code) {
    if (index >= nodes.size() || nodes[index].code != code)
        return std::nullopt;
    return std::get<std::wstring>(nodes[index].value);
}

} // namespace

Nodes nodesOf(const zdr::ExtendedValues& values) {
    Nodes nodes;
    for (const zdr::ExtendedValue& value : values) {
        if (const auto* text = std::get_if<std::wstring_view>(&value.value))
            nodes.push_back({value.code, std::wstring(*text)});
        else
            nodes.push_back({value.code, std::get<std::int32_t>(value.value)});
    }
    return nodes;
}

zdr::ExtendedValues valuesOf(const Nodes& nodes) {
    zdr::ExtendedValues values;
    for (const Node& node : nodes)
        std::visit([&](const auto& value) { values.add({node.code, value}); }, node.value);
    return values;
}

bool same(const std::wstring& a, const std::wstring& b) {
    return CString(a.c_str()).CompareNoCase(b.c_str()) == 0;
}

std::optional<Block> block(const Nodes& nodes, const std::wstring& name) {
    const auto opening =
        std::find_if(nodes.begin(), nodes.end(), [&](const auto& node) { return isText(node, L"{" + name); });
    if (opening == nodes.end())
        return std::nullopt;
    const auto closing =
        std::find_if(opening + 1, nodes.end(), [&](const auto& node) { return isText(node, name + L"}"); });
    const Nodes inside(opening + 1, closing);
    Block read;
    read.flags = number(inside, 0, kExtendedInt16);
    read.color = number(inside, 1, kExtendedInt16);
    read.linetype = text(inside, 2, kExtendedString);
    for (std::size_t index = 3; index < inside.size(); ++index) {
        if (inside[index].code == kExtendedInt32) {
            read.lineWeight = number(inside, index, kExtendedInt32);
            read.plottable = number(inside, index + 1, kExtendedInt32);
            read.plotStyle = text(inside, index + 2, kExtendedHandle);
            break;
        }
        read.hasCurrentMark = read.hasCurrentMark || number(inside, index, kExtendedInt16) == 1;
    }
    return read;
}

std::vector<std::wstring> names(const Nodes& nodes) {
    std::vector<std::wstring> found;
    for (const Node& node : nodes) {
        const std::wstring* marker = textOf(node);
        if (!marker || !marker->starts_with(L'{'))
            continue;
        const std::wstring name = marker->substr(1);
        if (std::none_of(found.begin(), found.end(), [&](const std::wstring& each) { return same(each, name); }))
            found.push_back(name);
    }
    return found;
}

Nodes without(const Nodes& nodes, const std::wstring& name) {
    Nodes left;
    for (auto node = nodes.begin(); node != nodes.end(); ++node) {
        if (isText(*node, L"{" + name)) {
            const std::wstring end = textOf(*node)->substr(1) + L"}";
            const auto closing =
                std::find_if(node + 1, nodes.end(), [&](const auto& each) { return isText(each, end); });
            if (closing != nodes.end()) {
                node = closing;
                continue;
            }
        }
        left.push_back(*node);
    }
    return left;
}

} // namespace plain
