// Reading layer states files: bringing the bytes in, and making a state of what is checked.

#include "StateFile.h"

#include "KelCmColor.h"
#include "StateFileCheck.h"
#include "engine/LayerStates.h"
#include "files/WholeFile.h"
#include "values/NameRules.h"

#include <new>

namespace engine {
namespace {

using namespace statefile;

/// The numbers of names in a table. A layer's linetype is most often that of the layer before it, and its name the one
/// that was entered behind that of the layer before it; looking for those first is faster than the table's index.
class NameEntry {
  public:
    explicit NameEntry(zdr::NameTable& names) : m_names(names) {}
    zdr::NameId operator()(Bytes bytes) {
        if (bytes != m_last) {
            decode(bytes, m_text);
            const zdr::NameId next = m_id + 1;
            m_id = next < m_names.size() && m_names.text(next) == m_text ? next : m_names.intern(m_text);
            m_last = bytes;
        }
        return m_id;
    }

  private:
    zdr::NameTable& m_names;
    std::wstring m_text;
    Bytes m_last; ///< its number is m_id; at first the empty name
    zdr::NameId m_id = zdr::kNoName;
};

zdr::ColorId enterColor(const Row& row, zdr::NamedColors& colors) {
    if (row.colorName.empty() && row.colorBook.empty())
        return row.color;
    KelCmColor color = KelCmColor::fromPacked(row.color);
    if (color.setNames(decoded(row.colorName).c_str(), decoded(row.colorBook).c_str()) != Vorn::eOk)
        throw std::bad_alloc();
    return colors.intern(color);
}

/// Makes the state, and enters its names and named colours in the tables.
zdr::LayerState makeState(const CheckedState& checked, zdr::ColumnTables& tables) {
    zdr::LayerState state;
    decode(checked.name, state.name);
    decode(checked.description, state.description);
    state.mask = checked.mask;
    state.hasViewportData = checked.hasViewportData;
    auto set = std::make_shared<zdr::LayerSet>();
    std::vector<std::uint8_t> flags;
    std::vector<zdr::ColorId> colors;
    std::vector<zdr::NameId> linetypes, plotStyles;
    std::vector<std::int16_t> lineWeights;
    const auto makeRoom = [&](auto&... lists) { (lists.reserve(checked.rows.size()), ...); };
    makeRoom(set->names, flags, colors, linetypes, lineWeights, plotStyles);
    NameEntry name(tables.names), linetype(tables.names), plotStyle(tables.names);
    for (const Row& row : checked.rows) {
        set->names.push_back(name(row.name));
        flags.push_back(row.flags);
        colors.push_back(enterColor(row, tables.namedColors));
        linetypes.push_back(linetype(row.linetype));
        lineWeights.push_back(row.lineWeight);
        plotStyles.push_back(plotStyle(row.plotStyle));
    }
    state.columns = {zdr::Column(std::move(flags)), zdr::Column(std::move(colors)), zdr::Column(std::move(linetypes)),
                     zdr::Column(std::move(lineWeights)), zdr::Column(std::move(plotStyles))};
    if (checked.currentLayer)
        state.currentLayer = set->names[*checked.currentLayer];
    state.layers = std::move(set);
    return state;
}

std::string contentOf(const std::wstring& path) {
    constexpr std::uint64_t kLargest = std::uint64_t{1} << 28;
    zdr::InputFile file(path);
    const zdr::FileFacts facts = file.facts();
    if (facts.size > kLargest)
        throw zdr::Refusal{Vorn::eInvalidInput, L"is larger than a layer states file can be"};
    std::string content(static_cast<std::size_t>(facts.size), '\0');
    zdr::readWhole(file, facts, std::as_writable_bytes(std::span(content)), [](std::span<const std::byte>) {});
    return content;
}

/// Refuses a name that the drawing can't have, or has already.
void requireFreeName(const DatabaseImp& database, const std::wstring& name) {
    if (database.findState(name) != zdr::kNone)
        throw zdr::Refusal{Vorn::eDuplicateRecordName,
                           L"holds the layer state \"" + name + L"\", and the drawing has one of that name"};
    if (const Vorn::ErrorStatus valid = checkName(name); valid != Vorn::eOk)
        throw zdr::Refusal{valid, L"is damaged: the layer state has a \"name\" that isn't allowed: \"" + name + L"\""};
}

/// Reads a file and enters its state, or throws the Refusal.
void importFile(DatabaseImp& database, const std::wstring& path, std::wstring& name) {
    const std::string content = contentOf(path);
    const CheckedState checked = checkState(content);
    if (isFarLonger(checked.name, kMaxNameLength))
        throw zdr::Refusal{Vorn::eNameTooLong,
                           L"is damaged: the layer state has a \"name\" that isn't allowed: it has more than " +
                               std::to_wstring(kMaxNameLength) + L" characters"};
    decode(checked.name, name);
    requireFreeName(database, name);
    enterState(database, makeState(checked, database.columnTables()));
}

} // namespace

Vorn::ErrorStatus parseState(std::string_view text, zdr::ColumnTables& tables, zdr::LayerState& state,
                             std::wstring& cause) {
    try {
        state = makeState(checkState(text), tables);
        return Vorn::eOk;
    } catch (const zdr::Refusal& refusal) {
        cause = refusal.cause;
        return refusal.status;
    }
}

Vorn::ErrorStatus readStateFile(DatabaseImp& database, const std::wstring& path, std::wstring& name) {
    return zdr::fileAnswer(path, Vorn::eFileUnreadable, database.fileProblem,
                           [&] { importFile(database, path, name); });
}

} // namespace engine
