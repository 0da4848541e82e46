#include "ColumnTail.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace zdr {
namespace {

constexpr std::uint64_t kAlignment = 4; // of the number of values in front of each column

std::uint64_t aligned(std::uint64_t position) {
    return (position + kAlignment - 1) / kAlignment * kAlignment;
}

} // namespace

template <class T> std::uint64_t ColumnTail::place(const Column<T>& column, Values values) {
    const std::span<const std::byte> bytes = std::as_bytes(column.values());
    const auto [entry, isNew] = m_positions.try_emplace({bytes.data(), bytes.size(), values}, m_size);
    if (isNew) {
        m_pieces.push_back({bytes, static_cast<std::uint32_t>(column.size()), values});
        m_size = aligned(m_size + sizeof(std::uint32_t) + bytes.size());
    }
    return entry->second;
}

PlacedColumns ColumnTail::place(const LayerColumns& columns) {
    const Values styles = m_numbers.stylesStay() ? Values::Plain : Values::Styles;
    const Values colorValues = m_numbers.colorsStay() ? Values::Plain : Values::Colors;
    const auto& [flags, colors, linetypes, lineWeights, plotStyles] = columns; // a sixth doesn't compile
    return {place(flags, Values::Plain), place(colors, colorValues), place(linetypes, styles),
            place(lineWeights, Values::Plain), place(plotStyles, styles)};
}

void ColumnTail::write(SinkBuffer& out) const {
    constexpr std::array<std::byte, kAlignment> kPadding{};
    for (const Piece& piece : m_pieces) {
        out.add(std::as_bytes(std::span(&piece.count, 1)));
        if (piece.values == Values::Plain)
            out.add(piece.bytes);
        else
            writeNumbers(out, piece);
        const std::uint64_t end = sizeof(piece.count) + piece.bytes.size();
        out.add(std::span(kPadding).first(aligned(end) - end));
    }
}

// The numbers of styles and colours in the file instead of the drawing's own.
void ColumnTail::writeNumbers(SinkBuffer& out, const Piece& piece) const {
    std::array<std::uint32_t, 1024> block;
    std::span<const std::byte> bytes = piece.bytes;
    while (!bytes.empty()) {
        const std::size_t size = std::min(bytes.size(), sizeof(block));
        std::memcpy(block.data(), bytes.data(), size);
        for (std::uint32_t& value : std::span(block).first(size / sizeof(std::uint32_t)))
            value = piece.values == Values::Styles ? m_numbers.style(value) : m_numbers.color(value);
        out.add(std::as_bytes(std::span(block)).first(size));
        bytes = bytes.subspan(size);
    }
}

} // namespace zdr
