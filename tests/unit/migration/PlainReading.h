// The older tool's format read a second time, straight from its table, to compare the module's reading with.
#pragma once

#include "model/Drawing.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace plain {

/// A node of a chain without the one that names the application.
struct Node {
    std::int16_t code = 0;
    std::variant<std::int32_t, std::wstring> value;
    friend bool operator==(const Node&, const Node&) = default;
};
using Nodes = std::vector<Node>;

/// The nodes of the values that a drawing has, and the other way.
Nodes nodesOf(const zdr::ExtendedValues& values);
zdr::ExtendedValues valuesOf(const Nodes& nodes);

/// What the first block of a name says of its layer; none for what it doesn't hold, or holds in another kind of node.
struct Block {
    std::optional<int> flags;
    std::optional<int> color;
    std::optional<std::wstring> linetype;
    bool hasCurrentMark = false;
    std::optional<int> lineWeight;
    std::optional<int> plottable;
    std::optional<std::wstring> plotStyle;
};

/// None when there is no block of that name.
std::optional<Block> block(const Nodes& nodes, const std::wstring& name);
/// The names of all blocks, in the order of first sight.
std::vector<std::wstring> names(const Nodes& nodes);
/// What is left of the nodes without the closed blocks of that name.
Nodes without(const Nodes& nodes, const std::wstring& name);

/// As names of states are compared.
bool same(const std::wstring& a, const std::wstring& b);

} // namespace plain
