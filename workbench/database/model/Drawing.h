// A drawing in memory as plain values: what the engine works on, files are read into and written from, and the view
// draws. It knows nothing of opening, ids or the host's interface.
#pragma once

#include "ExtendedValues.h"
#include "LayerColumns.h"
#include "NameTable.h"
#include "NamedColors.h"

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zdr {

/// A number that names an object of the drawing for good, also in its file; 0 is none.
using Handle = std::uint64_t;
inline constexpr std::size_t kNone = static_cast<std::size_t>(-1);

struct Point {
    double x = 0; ///< drawing units (millimetres)
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Linetype {
    NameId name = kNoName;
    Handle handle = 0;
    std::wstring description;
    std::vector<double> pattern; ///< dashes positive, gaps negative, dots 0, in millimetres on paper; empty: continuous
};

struct PlotStyle {
    NameId name = kNoName;
    Handle handle = 0;
};

/// What a layer has beside its properties; the properties stand in the columns at the same index.
struct Layer {
    NameId name = kNoName;
    Handle handle = 0;
    std::wstring description;
    std::size_t reference = kNone; ///< index of the reference that the layer comes from
    bool unresolvedInside = false; ///< the reference's drawing is there, but doesn't bring the layer now; not saved
};

/// A layer state. Its columns run parallel to its layer set.
struct LayerState {
    std::wstring name;
    std::wstring description;
    Handle handle = 0;
    std::uint32_t mask = 0;
    std::shared_ptr<const LayerSet> layers;
    LayerColumns columns;
    NameId currentLayer = kNoName; ///< kNoName when the state has none
    bool hasViewportData = false;  ///< saved with a viewport
    std::size_t reference = kNone; ///< index of the reference that the state comes from; such a state is never changed
};

struct Line {
    Point from, to;
};
struct Polyline {
    std::vector<Point> points;
    bool closed = false;
};
struct Circle {
    Point center;
    double radius = 0;
};
struct Arc {
    Point center;
    double radius = 0;
    double startAngle = 0; ///< radians, counter-clockwise from the x axis
    double endAngle = 0;
};
struct Text {
    Point position; ///< left end of the base line
    double height = 0;
    double rotation = 0; ///< radians
    std::wstring text;
};

/// Something drawn. Its colour, linetype and lineweight are the layer's unless it carries its own.
struct Entity {
    std::size_t layer = 0;
    std::optional<ColorId> color; ///< none: by layer
    NameId linetype = kNoName;    ///< kNoName: by layer
    std::int16_t lineWeight = -1; ///< -1: by layer
    std::variant<Line, Polyline, Circle, Arc, Text> geometry;
};

/// Properties that one viewport shows instead of the layers' own; sorted by layer.
struct ViewportOverride {
    std::size_t layer = 0;
    std::uint32_t mask = 0; ///< which of the overridable properties it overrides
    ColorId color = 0;
    NameId linetype = kNoName;
    std::int16_t lineWeight = 0;
    NameId plotStyle = kNoName;
    friend bool operator==(const ViewportOverride&, const ViewportOverride&) = default;
};

/// A window in a layout through which model space is seen.
struct Viewport {
    Handle handle = 0;
    std::int16_t number = -1; ///< -1: not on
    Point corner;             ///< lower left on paper, millimetres
    double width = 0, height = 0;
    Point viewCenter;         ///< of model space
    double scale = 1;         ///< millimetres on paper for a unit of model space
    std::vector<bool> frozen; ///< by layer; shorter than the layers: the rest isn't frozen
    std::vector<ViewportOverride> overrides;
};

/// A sheet of paper space.
struct Layout {
    std::wstring name;
    double paperWidth = 0, paperHeight = 0; ///< millimetres
    std::vector<Viewport> viewports;
    std::vector<Entity> entities; ///< in paper space
};

struct Drawing;

/// Another drawing that this one shows. Its layers stand among this drawing's under "name!layer".
struct Reference {
    std::wstring name;
    std::wstring path; ///< as attached: absolute, or relative to the drawing
    Point insertion = {};
    double scale = 1;
    double rotation = 0;                    ///< radians
    std::shared_ptr<const Drawing> drawing; ///< null while unresolved
    bool unloaded = false;                  ///< left unresolved until somebody wants it loaded
};

/// Extended data of one object for one registered application.
struct ExtendedData {
    Handle object = 0;
    std::wstring application;
    ExtendedValues values; ///< without the node that names the application
};

/// What bears a name.
enum class Bearer { LayerState, Layer, Linetype, PlotStyle, Reference };

/// A name that the file had otherwise. What comes from a reference has the reference's name in front of both.
struct MendedName {
    std::wstring was, now;
    Bearer bearer = Bearer::LayerState;
};

/// What the numbers in columns stand for. Both tables only grow, so that what undo brings back still means the same.
struct ColumnTables {
    NameTable names;
    NamedColors namedColors;
};

/// The linetype scales that a drawing can have, and how users are told of them.
inline constexpr double kSmallestLinetypeScale = 0.0001;
inline constexpr double kLargestLinetypeScale = 1000000;
inline constexpr const wchar_t* kLinetypeScaleText = L"a number from 0.0001 to 1000000";
constexpr bool isLinetypeScale(double scale) {
    return scale >= kSmallestLinetypeScale && scale <= kLargestLinetypeScale;
}

struct Drawing : ColumnTables {
    Handle nextHandle = 1;
    std::vector<Linetype> linetypes;
    std::vector<PlotStyle> plotStyles;
    bool colorDependentPlotStyles = false;
    std::vector<Layer> layers;                ///< table order
    std::shared_ptr<const LayerSet> layerSet; ///< the names of `layers`; a new one whenever they change
    LayerColumns columns;                     ///< parallel to `layers`
    std::size_t currentLayer = 0;
    std::vector<LayerState> states;           ///< drawing order; those of references come last
    std::optional<std::wstring> lastRestored; ///< name of a state
    std::vector<MendedName> mendedNames;      ///< when the drawing was read; not saved
    std::vector<Entity> entities;             ///< in model space
    std::vector<Layout> layouts;
    std::optional<std::size_t> activeLayout; ///< none: the model tab
    std::optional<Handle> currentViewport;   ///< of the active layout
    std::vector<Reference> references;
    std::vector<std::wstring> applications; ///< registered for extended data
    std::vector<ExtendedData> extendedData;
    std::int16_t defaultLineWeight = 25; ///< hundredths of a millimetre
    double linetypeScale = 1;            ///< by which the lengths of all dashes are multiplied
};

} // namespace zdr
