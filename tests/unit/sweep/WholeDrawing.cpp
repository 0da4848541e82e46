#include "WholeDrawing.h"

#include "DrawingDifference.h"
#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <algorithm>
#include <set>

namespace {

class Examination {
  public:
    explicit Examination(const KelDbDatabase& database)
        : m_database(const_cast<KelDbDatabase&>(database)), m_drawing(engine::drawingOf(database)) {}

    std::vector<std::string> run() {
        examineLayers();
        examineStates();
        examineHandles();
        if (m_problems.empty())
            examineFile();
        return std::move(m_problems);
    }

  private:
    void require(bool holds, const std::string& rule, std::wstring_view name = {}) {
        if (!holds)
            m_problems.push_back(rule + (name.empty() ? "" : " (" + zdr::toUtf8(name) + ")"));
    }

    void examineColumns(const zdr::LayerColumns& columns, std::size_t count, std::wstring_view owner) {
        const auto examine = [&](const auto& column) {
            require(column.size() == count, "columns are as long as their layers are many", owner);
        };
        zdr::forEachColumn(examine, columns);
    }

    void examineLayers() {
        std::vector<zdr::NameId> names;
        for (std::size_t i = 0; i < m_drawing.layers.size(); ++i) {
            const std::wstring& name = m_drawing.names.text(m_drawing.layers[i].name);
            names.push_back(m_drawing.layers[i].name);
            require(engine::layerIndex(m_database, name) == i, "a layer is found under its name", name);
            require(engine::layerIndex(m_database, engine::layerId(m_database, i)) == i,
                    "a layer is found under its id", name);
        }
        require(m_drawing.layerSet->names == names, "the set of layers names the layers");
        examineColumns(m_drawing.columns, names.size(), L"the drawing");
        require(m_drawing.currentLayer < names.size(), "there is a current layer");
    }

    void examineStates() {
        bool dependent = false;
        for (const zdr::LayerState& state : m_drawing.states) {
            const bool isDependent = state.reference != zdr::kNone;
            require(isDependent || !dependent, "a drawing's own states stand before those of references", state.name);
            dependent = isDependent;
            std::vector<zdr::NameId> sorted = state.layers->names;
            std::ranges::sort(sorted);
            require(std::ranges::adjacent_find(sorted) == sorted.end(), "a state holds a layer once", state.name);
            examineColumns(state.columns, sorted.size(), state.name);
            LayerStateMask mask = 0;
            const bool found = manager().getLayerStateMask(state.name.c_str(), mask) == Vorn::eOk;
            require(found && mask == state.mask, "a state is found under its name", state.name);
        }
        examineLastRestored();
    }

    void examineLastRestored() {
        KelString name;
        KelDbObjectId id;
        if (manager().getLastRestoredLayerState(name, id) == Vorn::eOk)
            require(!id.isErased(), "the record of the state that was restored last is there", name.kwszPtr());
    }

    void examineHandles() {
        std::set<zdr::Handle> handles;
        const auto examine = [&](const auto& objects, const std::string& kind) {
            for (const auto& object : objects) {
                require(handles.insert(object.handle).second, kind + " has a handle of its own");
                require(object.handle < m_drawing.nextHandle, kind + " has a handle that was given");
                const KelDbObjectId id = engine::objectId(m_database, object.handle);
                require(!id.isNull() && !id.isErased(), kind + " is found under its handle");
            }
        };
        examine(m_drawing.layers, "a layer"), examine(m_drawing.states, "a state");
        examine(m_drawing.linetypes, "a linetype"), examine(m_drawing.plotStyles, "a plot style");
        for (const zdr::Layout& layout : m_drawing.layouts)
            examine(layout.viewports, "a viewport");
        // The last handles that were given, and some that the engine may have got ready.
        constexpr zdr::Handle kBefore = 1000, kBehind = 8;
        for (zdr::Handle handle = m_drawing.nextHandle - std::min(m_drawing.nextHandle - 1, kBefore);
             handle < m_drawing.nextHandle + kBehind; ++handle)
            require(handles.contains(handle) || engine::objectId(m_database, handle).isNull(),
                    "nothing is found under a handle that nothing has");
    }

    // What comes from references isn't in the file, and which sets of layers are shared is the reader's own affair.
    void examineFile() {
        std::vector<std::byte> bytes;
        std::wstring reason;
        zdr::Drawing read;
        if (zdr::drawingBytes(m_drawing, bytes, reason) != Vorn::eOk ||
            zdr::readDrawingBytes(bytes, L"saved", read, reason) != Vorn::eOk) {
            m_problems.push_back("the drawing can be saved and read: " + zdr::toUtf8(reason));
            return;
        }
        zdr::Drawing own = m_drawing;
        std::erase_if(own.states, [](const zdr::LayerState& state) { return state.reference != zdr::kNone; });
        for (zdr::Reference& reference : own.references)
            reference.drawing = nullptr;
        KelDbDatabase before(false, false), after(false, false);
        engine::replaceDrawing(before, std::move(own));
        engine::replaceDrawing(after, std::move(read));
        const std::string differing = difference(engine::drawingOf(before), engine::drawingOf(after));
        require(differing.empty(), "the drawing comes back from a file as it was: " + differing);
    }

    KelDbLayerStateManager& manager() { return *m_database.getLayerStateManager(); }

    KelDbDatabase& m_database;
    const zdr::Drawing& m_drawing;
    std::vector<std::string> m_problems;
};

} // namespace

std::vector<std::string> wholenessProblems(const KelDbDatabase& database) {
    return Examination(database).run();
}
