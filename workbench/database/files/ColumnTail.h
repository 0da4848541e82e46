// The columns of a drawing and its states in its file. They come after all tables and go from the drawing to the file
// without being gathered in memory. Holders that share a column in the drawing share it in the file.
#pragma once

#include "ByteSink.h"
#include "FileNumbers.h"

#include <map>
#include <tuple>

namespace zdr {

/// Where the columns of one holder stand, in bytes from the end of the tables.
struct PlacedColumns {
    std::uint64_t flags, colors, linetypes, lineWeights, plotStyles;
};

class ColumnTail {
  public:
    /// `numbers` must outlive the tail.
    explicit ColumnTail(const FileNumbers& numbers) : m_numbers(numbers) {}

    /// Gives the columns their places. Their values must stay as they are until write().
    PlacedColumns place(const LayerColumns& columns);
    /// Bytes of all columns so far.
    std::uint64_t size() const { return m_size; }
    void write(SinkBuffer& out) const;

  private:
    enum class Values { Plain, Styles, Colors };
    /// One column: the number of its values, then the values.
    struct Piece {
        std::span<const std::byte> bytes;
        std::uint32_t count;
        Values values;
    };

    template <class T> std::uint64_t place(const Column<T>& column, Values values);
    void writeNumbers(SinkBuffer& out, const Piece& piece) const;

    const FileNumbers& m_numbers;
    std::vector<Piece> m_pieces;
    std::map<std::tuple<const void*, std::size_t, Values>, std::uint64_t> m_positions;
    std::uint64_t m_size = 0;
};

} // namespace zdr
