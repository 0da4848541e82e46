#include "DrawingWriter.h"

#include "DrawingCheck.h"
#include "TableWriter.h"

namespace zdr {
namespace {

/// Nothing is written that couldn't be read again.
const Drawing& checked(const Drawing& drawing) {
    try {
        checkDrawing(drawing);
        ColumnCheck check(drawing.names.size(), drawing.namedColors.size());
        check.check(drawing.columns, drawing.layers.size(), ColumnsOf::Drawing, {L"the table of layers"});
        for (std::size_t i = 0; i < drawing.states.size(); ++i) {
            const LayerState& state = drawing.states[i];
            if (state.reference == kNone)
                check.check(state.columns, state.layers->names.size(), ColumnsOf::State,
                            {L"layer state", i, state.name});
        }
    } catch (Refusal& refusal) {
        refusal.status = Vorn::eInvalidInput;
        refusal.cause = L"can't be written, because the drawing " + refusal.cause;
        throw;
    }
    return drawing;
}

/// A table whose fields are set after it was built.
class BuiltTable {
  public:
    explicit BuiltTable(const void* table)
        : m_table(const_cast<flatbuffers::Table*>(static_cast<const flatbuffers::Table*>(table))) {}

    void setNumber(flatbuffers::voffset_t field, std::uint32_t value) {
        flatbuffers::WriteScalar(m_table->GetAddressOf(field), value);
    }
    /// Makes the offset in a field lead to `target`, which counts in bytes from `start`, the first byte of the file.
    void connect(flatbuffers::voffset_t field, const std::uint8_t* start, std::uint64_t target) {
        const auto from = static_cast<std::uint64_t>(m_table->GetAddressOf(field) - start);
        setNumber(field, static_cast<std::uint32_t>(target - from));
    }

  private:
    flatbuffers::Table* m_table;
};

} // namespace

DrawingWriter::DrawingWriter(const Drawing& drawing)
    : m_drawing(checked(drawing)), m_numbers(drawing), m_tail(m_numbers) {
    TableWriter(m_drawing, m_numbers, m_builder).write();
    layOut();
}

void DrawingWriter::layOut() {
    const std::uint8_t* start = m_builder.GetBufferPointer();
    const file::Drawing& root = *file::GetDrawing(start);
    const std::uint64_t tablesSize = m_builder.GetSize();
    const auto connect = [&](const file::LayerColumns& columns, const PlacedColumns& placed) {
        BuiltTable table(&columns);
        table.connect(file::LayerColumns::VT_FLAGS, start, tablesSize + placed.flags);
        table.connect(file::LayerColumns::VT_COLORS, start, tablesSize + placed.colors);
        table.connect(file::LayerColumns::VT_LINETYPES, start, tablesSize + placed.linetypes);
        table.connect(file::LayerColumns::VT_LINE_WEIGHTS, start, tablesSize + placed.lineWeights);
        table.connect(file::LayerColumns::VT_PLOT_STYLES, start, tablesSize + placed.plotStyles);
    };
    connect(*root.columns(), m_tail.place(m_drawing.columns));
    flatbuffers::uoffset_t index = 0;
    for (const LayerState* state : ownStates(m_drawing))
        connect(*root.states()->Get(index++)->columns(), m_tail.place(state->columns));
    checkSize(size());
    BuiltTable(&root).setNumber(file::Drawing::VT_LENGTH, static_cast<std::uint32_t>(size()));
}

void DrawingWriter::write(ByteSink& sink) const {
    SinkBuffer out(sink);
    out.add(std::as_bytes(std::span(m_builder.GetBufferPointer(), m_builder.GetSize())));
    m_tail.write(out);
    out.flush();
}

} // namespace zdr
