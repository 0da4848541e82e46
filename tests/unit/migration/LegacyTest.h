// A drawing whose layers carry states of the older layer tool.
#pragma once

#include "CQSETList.h"
#include "DomainTest.h"
#include "PlainReading.h"

#include <string>
#include <vector>

using LegacyNode = plain::Node;
using LegacyNodes = plain::Nodes;

inline LegacyNode text(const std::wstring& value) {
    return {kExtendedString, value};
}
inline LegacyNode int16(int value) {
    return {kExtendedInt16, std::int32_t{value}};
}
inline LegacyNode int32(int value) {
    return {kExtendedInt32, std::int32_t{value}};
}
inline LegacyNode handle(const std::wstring& value) {
    return {kExtendedHandle, value};
}

/// What a block says of its layer; the rest of it follows from these.
struct LegacyBlock {
    int flags = 0;
    int color = 7;
    std::wstring linetype = L"Continuous";
    bool current = false;
    std::wstring frozenInViewport = L""; ///< the layer's name, when it has the mark
    int lineWeight = 25;
    int plottable = 1;
    std::wstring plotStyle = L"0";
};
/// The nodes of a block as the older tool wrote it.
LegacyNodes nodesOf(const std::wstring& state, const LegacyBlock& block = {});
LegacyNodes operator+(LegacyNodes first, const LegacyNodes& second);

class LegacyTest : public DomainTest {
  protected:
    /// A drawing with Base (current), Walls, Doors, over the linetypes Continuous, Dashed, Dotted and the plot styles
    /// Normal and Fine.
    LegacyTest();
    ~LegacyTest() override;

    /// The "ZVH" data of a layer; setting none takes it away.
    void setData(const wchar_t* layerName, const LegacyNodes& nodes);
    /// As lines such as `1000 {PLAN` or `1070 -5`.
    std::vector<std::string> data(const wchar_t* layerName);
    /// The same of any nodes.
    static std::vector<std::string> lines(const LegacyNodes& nodes);
    /// The handle of a plot style, as a block has it.
    std::wstring styleHandle(const wchar_t* name);

    /// Releases the chains that a walk has left, and answers how many there were. A walk keeps the one of the last
    /// layer alone.
    static std::size_t releaseKeptChains();
};
