// The changes of a drawing that can be undone. Each holds the other side of the change, the one that isn't in the
// drawing at the moment; exchanging the two undoes it, and exchanging them again does it anew. Columns are shared and
// the rest is moved, so that no change copies the drawing. An exchange asks for all the memory it needs before it
// writes anything: it is done whole or, when it throws, not at all.
#pragma once

#include "KelExport.h"
#include "model/Drawing.h"

#include <variant>

namespace engine {

class ObjectDirectory;

struct ColumnsChange {
    zdr::LayerColumns columns;
    void exchange(zdr::Drawing& drawing, ObjectDirectory& objects);
};

/// A state was changed, put in or taken out.
struct StateChange {
    zdr::Handle handle = 0;
    std::size_t position = 0;
    std::optional<zdr::LayerState> state; ///< none: the other side lacks it
    void exchange(zdr::Drawing& drawing, ObjectDirectory& objects);
};

/// A plot style was put in or taken out.
struct PlotStyleChange {
    zdr::Handle handle = 0;
    std::size_t position = 0;
    std::optional<zdr::PlotStyle> style; ///< none: the other side lacks it
    void exchange(zdr::Drawing& drawing, ObjectDirectory& objects);
};

/// The settings of a drawing, all together.
struct SettingsChange {
    std::size_t currentLayer = 0;
    std::optional<std::wstring> lastRestored;
    double linetypeScale = 1;
    void exchange(zdr::Drawing& drawing, ObjectDirectory& objects);
};

struct ViewportChange {
    zdr::Handle handle = 0;
    std::vector<bool> frozen;
    std::vector<zdr::ViewportOverride> overrides;
    zdr::Point viewCenter;
    double scale = 1;
    void exchange(zdr::Drawing& drawing, ObjectDirectory& objects);
};

/// A layer got another name, another spelling of it or another description.
struct LayerChange {
    zdr::Handle handle = 0;
    zdr::Layer layer;
    std::wstring spelling;
    std::shared_ptr<const zdr::LayerSet> layerSet;
    void exchange(zdr::Drawing& drawing, ObjectDirectory& objects);
};

/// One layer's row of the columns.
struct LayerValues {
    std::uint8_t flags = 0;
    zdr::ColorId color = 7;
    zdr::NameId linetype = zdr::kNoName;
    std::int16_t lineWeight = -3;
    zdr::NameId plotStyle = zdr::kNoName;
    friend bool operator==(const LayerValues&, const LayerValues&) = default;
};
/// A layer with everything that a drawing keeps for it, except its entities.
struct WholeLayer {
    zdr::Layer layer;
    LayerValues values;
    std::vector<zdr::Handle> frozenIn; ///< handles of viewports
    std::vector<std::pair<zdr::Handle, zdr::ViewportOverride>> overrides;
    std::wstring spelling = {}; ///< of its name, which may get another one while the layer is gone; empty: leave it
    bool isCurrent = false;     ///< it was current when it was taken out, as in undoing a step that made it so
};

/// A layer was put in or taken out.
struct LayerListChange {
    std::size_t index = 0;
    std::optional<WholeLayer> layer; ///< none: the other side lacks it
    std::shared_ptr<const zdr::LayerSet> layerSet;
    void exchange(zdr::Drawing& drawing, ObjectDirectory& objects);
};

/// The extended data of one object for one application; empty: none.
struct ExtendedDataChange {
    zdr::Handle object = 0;
    std::wstring application;
    zdr::ExtendedValues values;
    void exchange(zdr::Drawing& drawing, ObjectDirectory& objects);
};

struct ApplicationsChange {
    std::vector<std::wstring> applications;
    void exchange(zdr::Drawing& drawing, ObjectDirectory& objects);
};

using Change = std::variant<ColumnsChange, StateChange, SettingsChange, ViewportChange, LayerChange, LayerListChange,
                            ExtendedDataChange, ApplicationsChange, PlotStyleChange>;

/// Whether the drawing is as it was before these changes, which were made to it one after the other. Only what layers,
/// states and viewports look like and the settings are compared; any other change counts, also when it was taken back.
bool areUndone(const std::vector<Change>& changes, const zdr::Drawing& drawing, const ObjectDirectory& objects);

/// The viewport of a handle; null when there is none.
zdr::Viewport* findViewport(zdr::Drawing& drawing, zdr::Handle handle);
KELDB_API const zdr::Viewport* findViewport(const zdr::Drawing& drawing, zdr::Handle handle);
KELDB_API LayerValues valuesAt(const zdr::LayerColumns& columns, std::size_t index);
KELDB_API void setValuesAt(zdr::LayerColumns& columns, std::size_t index, const LayerValues& values);
/// Makes room for `more` rows; putting them in and taking rows out then can't fail.
void makeRoomForValues(zdr::LayerColumns& columns, std::size_t more);
KELDB_API void appendValues(zdr::LayerColumns& columns, const LayerValues& values);
/// Takes the values at an index out of the columns.
void eraseValues(zdr::LayerColumns& columns, std::size_t index);
void insertValues(zdr::LayerColumns& columns, std::size_t index, const LayerValues& values);

} // namespace engine
