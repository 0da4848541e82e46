// The internal side of a database: the drawing, what is needed to find things in it, and the one way of changing it.
// Every change goes through the members below, so that it can be undone and is counted. A member that changes something
// does it whole or, when memory runs out and it throws, not at all; only what is written through an editor may be left
// half done.
#pragma once

#include "KelDbDatabase.h"
#include "Lookups.h"
#include "ObjectDirectory.h"
#include "UndoHistory.h"

namespace engine {

/// Whether the layer's reference, and the one nested in it that the layer comes from, are there; true for the drawing's
/// own layers.
bool isResolved(const zdr::Drawing& drawing, const zdr::Layer& layer);

class DatabaseImp : public KelDbImpDatabase {
  public:
    explicit DatabaseImp(KelDbDatabase& owner);
    ~DatabaseImp() override;

    KelDbImpLayerStateManager* getImpLayerStateManager() override;
    KelDbLayerStateManager& stateManager() { return m_stateManager; }
    KelDbDatabase& owner() const { return m_owner; }
    /// Replaces the drawing. The objects of the old one count as erased, and none of its changes can be undone.
    void adopt(zdr::Drawing drawing);
    /// Hands the drawing out; nothing may be asked of the database afterwards.
    zdr::Drawing release() { return std::move(m_drawing); }

    // Reading.
    const zdr::Drawing& drawing() const { return m_drawing; }
    const ObjectDirectory& objects() const { return m_objects; }
    /// Grows with every change.
    std::uint64_t changes() const { return m_lookups.changes(); }
    /// Expires when adopt() replaces the drawing.
    std::weak_ptr<const void> identity() const { return m_identity; }
    std::size_t findLayer(std::wstring_view name) const { return findLayer(m_drawing.names.find(name)); }
    std::size_t findLayer(zdr::NameId name) const { return m_lookups.layers().find(name); }
    std::size_t findState(std::wstring_view name) const { return m_lookups.states().find(name); }
    const NameIdIndex& linetypes() const { return m_lookups.linetypes(); }
    const NameIdIndex& plotStyles() const { return m_lookups.plotStyles(); }
    bool hasLinetype(zdr::NameId name) const { return linetypes().has(name); }
    bool hasPlotStyle(zdr::NameId name) const { return plotStyles().has(name); }
    std::size_t findLinetype(zdr::NameId name) const { return linetypes().find(name); }
    std::size_t findPlotStyle(zdr::NameId name) const { return plotStyles().find(name); }
    bool isLayerResolved(std::size_t index) const { return isResolved(m_drawing, m_drawing.layers[index]); }
    bool hasUnresolvedLayers() const;
    Lookups& lookups() const { return m_lookups; }
    /// The viewport of an id; null when the id isn't one of a viewport of this drawing.
    const zdr::Viewport* viewport(KelDbObjectId id) const;

    // Changing. Each may be undone.
    [[nodiscard]] Editor<zdr::LayerColumns> editColumns();
    /// The list of states must not change while the editor lives, which holds the state's address.
    [[nodiscard]] Editor<zdr::LayerState> editState(std::size_t index);
    [[nodiscard]] Editor<zdr::Viewport> editViewport(const zdr::Viewport& viewport);
    /// Record a part for undo ahead of its change: the next change of it can't fail then.
    void recordColumns() { m_history.beforeColumns(m_drawing); }
    void recordSettings() { m_history.beforeSettings(m_drawing); }
    /// Exchanges what a viewport shows of the layers, where it doesn't show the layers' own values.
    void setViewportLayers(const zdr::Viewport& viewport, std::vector<bool> frozen,
                           std::vector<zdr::ViewportOverride> overrides);
    void setCurrentLayer(std::size_t index);
    void setLastRestored(std::optional<std::wstring> name);
    void setLinetypeScale(double scale);
    /// Puts a state in after the drawing's own ones, gives it a handle, and answers its place.
    std::size_t insertState(zdr::LayerState&& state);
    /// Puts a state with a handle of its own in the place of another one, whose name it bears in whatever spelling.
    void replaceState(std::size_t index, zdr::LayerState&& state);
    void removeState(std::size_t index);
    void renameState(std::size_t index, std::wstring name);
    /// Appends a layer to the table and answers the handle that it got. The name must be valid and free; from then on
    /// it is spelled as it is here.
    zdr::Handle appendLayer(zdr::Layer layer, std::wstring_view name, const LayerValues& values);
    void removeLayer(std::size_t index);
    /// The name must be valid and no other layer's. The drawing's own states get the new name, too.
    void renameLayer(std::size_t index, std::wstring_view name);
    void setLayerDescription(std::size_t index, std::wstring description);
    void registerApplication(std::wstring name);
    void setExtendedData(zdr::Handle object, std::wstring application, zdr::ExtendedValues values);
    /// Not undone: names and named colours are only ever added.
    zdr::NameId intern(std::wstring_view name) { return m_drawing.names.intern(name); }
    zdr::ColorId intern(const KelCmColor& color) { return m_drawing.namedColors.intern(color); }
    /// The number here of another drawing's colour, or a column of such.
    template <class Colors> Colors take(const Colors& colors, const zdr::NamedColors& from) {
        return m_drawing.namedColors.take(colors, from);
    }
    /// For entering many names and colours.
    zdr::ColumnTables& columnTables() { return m_drawing; }
    zdr::Handle newHandle() { return m_drawing.nextHandle++; }
    /// Puts a new plot style into the list. Its name must be in the name table and no other style's.
    void insertPlotStyle(std::size_t index, zdr::PlotStyle style);
    void removePlotStyle(std::size_t index);
    /// Puts a new plot style of the same name in the place of one.
    void replacePlotStyle(std::size_t index);

    /// What is looked at: no change of the drawing.
    void setActiveSpace(std::optional<std::size_t> layout, std::optional<zdr::Handle> viewport);

    // What attaching a reference changes; not undone.
    /// Append to a table, or to all states; each layer, style or state gets a handle.
    void appendLinetypes(std::vector<zdr::Linetype> linetypes);
    void appendPlotStyles(std::vector<zdr::PlotStyle> styles);
    void appendLayers(std::vector<WholeLayer> layers);
    void appendStates(std::vector<zdr::LayerState> states);
    /// Takes out the layers at all marked places. Nothing may be drawn on them, and none may be current.
    void removeLayers(const std::vector<bool>& gone);
    void removeStates(const std::vector<bool>& gone);
    void followLinetype(std::size_t index, zdr::Linetype theirs);
    void followLayer(std::size_t index, std::wstring description, bool unresolvedInside);
    void appendMendedName(zdr::MendedName name) { m_drawing.mendedNames.push_back(std::move(name)); }
    template <class Goes> void dropMendedNames(Goes goes) { std::erase_if(m_drawing.mendedNames, goes); }
    void setReferenceDrawing(std::size_t reference, std::shared_ptr<const zdr::Drawing> drawing);
    UndoHistory& history() { return m_history; }
    const UndoHistory& history() const { return m_history; }
    void beginUndoGroup(std::wstring name);
    void endUndoGroup();
    bool undo();
    bool redo();
    const ContentNumber& content() const { return m_content; }

    /// Whether the dictionary of states has been asked for or isn't empty.
    bool hasStateDictionary() const;
    void makeStateDictionary() { m_stateDictionaryMade = true; }

    std::wstring fileProblem; ///< why the last reading or writing of a file failed

  private:
    template <class Side> void perform(Side&& change, const Parts& parts) {
        const Writing writing(m_lookups, parts);
        m_history.perform(std::forward<Side>(change), m_drawing, m_objects);
    }
    bool carry(const std::optional<Parts>& parts, std::uint64_t (UndoHistory::*way)(zdr::Drawing&, ObjectDirectory&));
    template <class Object>
    void appendAll(std::vector<Object>& list, std::vector<Object> more, ObjectKind kind, const Parts& parts);
    std::shared_ptr<zdr::LayerSet> layerSet() const;
    /// Leaves the index of states as it is.
    void putInState(std::size_t index, zdr::LayerState&& state);

    KelDbDatabase& m_owner;
    KelDbLayerStateManager m_stateManager;
    KelDbImpLayerStateManager m_impStateManager;
    zdr::Drawing m_drawing;
    ObjectDirectory m_objects;
    mutable Lookups m_lookups{m_drawing};
    ContentNumber m_content{m_lookups};
    UndoHistory m_history{m_content};
    std::shared_ptr<const void> m_identity;
    bool m_stateDictionaryMade = false;
};

/// The internal side of a database, without a trace.
DatabaseImp& impOf(const KelDbDatabase& database);
inline DatabaseImp& impOf(KelDbImpDatabase& database) {
    return static_cast<DatabaseImp&>(database);
}

} // namespace engine
