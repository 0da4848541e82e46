// From a drawing to the bytes of its file: the tables, which are small and built in memory, and after them the columns
// of the layer states, which are nearly all of a file and go straight from the drawing into it.
#pragma once

#include "ColumnTail.h"
#include "FileFormat.h"

namespace zdr {

class DrawingWriter {
  public:
    /// Builds the tables. The drawing must stay as it is until the last write(). Throws a Refusal when the drawing's
    /// parts contradict each other, or its file would be too large.
    explicit DrawingWriter(const Drawing& drawing);

    /// Size of the file in bytes.
    std::uint64_t size() const { return m_builder.GetSize() + m_tail.size(); }
    /// Hands all bytes to `sink`, in large pieces.
    void write(ByteSink& sink) const;

  private:
    void layOut();

    const Drawing& m_drawing;
    FileNumbers m_numbers;
    ColumnTail m_tail;
    flatbuffers::FlatBufferBuilder m_builder;
};

} // namespace zdr
