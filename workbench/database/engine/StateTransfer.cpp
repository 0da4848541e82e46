// Taking a state from one drawing to another.

#include "LayerStates.h"

#include "values/NameRules.h"

namespace engine {
namespace {

// Turns ids of one name table into ids of another, looking each up once.
class NameTranslation {
  public:
    NameTranslation(const zdr::NameTable& from, zdr::NameTable& to)
        : m_from(from), m_to(to), m_ids(from.size(), zdr::kNoName) {}

    zdr::NameId operator()(zdr::NameId name) {
        if (name == zdr::kNoName || name >= m_ids.size())
            return zdr::kNoName;
        if (m_ids[name] == zdr::kNoName)
            m_ids[name] = m_to.intern(m_from.text(name));
        return m_ids[name];
    }
    zdr::Column<zdr::NameId> operator()(const zdr::Column<zdr::NameId>& column) {
        std::vector<zdr::NameId> names;
        names.reserve(column.size());
        for (const zdr::NameId name : column.values())
            names.push_back((*this)(name));
        return zdr::Column<zdr::NameId>(std::move(names));
    }

  private:
    const zdr::NameTable& m_from;
    zdr::NameTable& m_to;
    std::vector<zdr::NameId> m_ids;
};

// Lets the state share the set of layers of the drawing, or of the state that came in before it, if that is the same.
// Others aren't compared: they are unlikely to be.
void shareLayerSet(zdr::LayerState& state, const zdr::Drawing& drawing) {
    if (state.layers->names == drawing.layerSet->names)
        state.layers = drawing.layerSet;
    else if (!drawing.states.empty() && drawing.states.back().layers->names == state.layers->names)
        state.layers = drawing.states.back().layers;
}

} // namespace

zdr::LayerState translateState(const zdr::LayerState& state, const zdr::ColumnTables& from, zdr::ColumnTables& to) {
    NameTranslation translate(from.names, to.names);
    auto set = std::make_shared<zdr::LayerSet>();
    set->names.reserve(state.layers->names.size());
    for (const zdr::NameId name : state.layers->names)
        set->names.push_back(translate(name));
    zdr::LayerState copy = state; // shares the columns that hold no names
    copy.layers = std::move(set);
    copy.columns.colors = to.namedColors.take(state.columns.colors, from.namedColors);
    copy.columns.linetypes = translate(state.columns.linetypes);
    copy.columns.plotStyles = translate(state.columns.plotStyles);
    copy.currentLayer = translate(state.currentLayer);
    return copy;
}

void enterState(DatabaseImp& database, zdr::LayerState state) {
    shareLayerSet(state, database.drawing());
    database.insertState(std::move(state));
}

void enterForeignState(DatabaseImp& database, const zdr::LayerState& state, const zdr::ColumnTables& from) {
    enterState(database, translateState(state, from, database.columnTables()));
}

Vorn::ErrorStatus importState(DatabaseImp& database, std::wstring_view name, const DatabaseImp& source) {
    const std::size_t index = source.findState(name);
    if (index == zdr::kNone)
        return Vorn::eKeyNotFound;
    const zdr::LayerState& state = source.drawing().states[index];
    if (state.reference != zdr::kNone)
        return Vorn::eDependentRecord;
    if (database.findState(name) != zdr::kNone)
        return Vorn::eDuplicateRecordName;
    enterForeignState(database, state, source.drawing());
    return Vorn::eOk;
}

} // namespace engine
