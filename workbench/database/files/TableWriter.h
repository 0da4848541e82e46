// The tables of a drawing's file, all but the values of the columns.
#pragma once

#include "FileFormat.h"
#include "FileNumbers.h"

#include <map>
#include <memory>

namespace zdr {

/// The states that are kept in the drawing's own file: those that don't come from a reference.
std::vector<const LayerState*> ownStates(const Drawing& drawing);

class TableWriter {
  public:
    /// Writes to `builder`; all three must outlive the writer.
    TableWriter(const Drawing& drawing, const FileNumbers& numbers, flatbuffers::FlatBufferBuilder& builder);
    /// Writes all tables. Until the file is laid out, columns lead to an empty vector and the length isn't the file's.
    void write();

  private:
    std::uint32_t version() const;
    template <class T> using Vector = flatbuffers::Offset<flatbuffers::Vector<flatbuffers::Offset<T>>>;
    using Text = flatbuffers::Offset<flatbuffers::String>;

    Text text(std::wstring_view text);
    Text optionalText(std::wstring_view text);
    Vector<flatbuffers::String> names(const std::vector<NameId>& names);
    Vector<file::Linetype> linetypes();
    Vector<file::PlotStyle> plotStyles();
    Vector<file::NamedColor> namedColors();
    Vector<file::Layer> layers();
    Vector<file::LayerSet> layerSets();
    Vector<file::LayerState> states();
    flatbuffers::Offset<file::LayerState> state(const LayerState& state);
    Vector<file::Layout> layouts();
    Vector<file::Reference> references();
    Vector<flatbuffers::String> applications();
    Vector<file::ExtendedData> extendedData();
    flatbuffers::Offset<file::LayerColumns> columns();

    const Drawing& m_drawing;
    const FileNumbers& m_numbers;
    flatbuffers::FlatBufferBuilder& m_builder;
    std::uint32_t m_emptyVector;
    std::map<const LayerSet*, std::uint32_t> m_setNumbers;
};

} // namespace zdr
