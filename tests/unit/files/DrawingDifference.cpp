#include "DrawingDifference.h"

#include "files/TextCoding.h"

#include <sstream>

using namespace zdr;

namespace {

std::string shown(const std::wstring& text) {
    return "\"" + toUtf8(text) + "\"";
}
template <class T> std::string shown(const T& value) {
    std::ostringstream text;
    text << value;
    return text.str();
}
std::string shown(const KelCmColor& color) {
    std::ostringstream text;
    text << std::hex << color.packed() << ' ' << shown(std::wstring(color.colorName())) << " of "
         << shown(std::wstring(color.bookName()));
    return text.str();
}
template <class T> std::string shown(const std::optional<T>& value) {
    return value ? shown(*value) : "none";
}

constexpr ColorId kByLayer = 256;

class Comparison {
  public:
    Comparison(const Drawing& a, const Drawing& b) : m_a(a), m_b(b) {}
    std::string run();

  private:
    template <class T> void same(const std::string& what, const T& a, const T& b) {
        if (m_difference.empty() && !(a == b))
            m_difference = what + ": " + shown(a) + " and " + shown(b);
    }
    void name(const std::string& what, NameId a, NameId b) { same(what, m_a.names.text(a), m_b.names.text(b)); }
    void color(const std::string& what, ColorId a, ColorId b) {
        same(what, m_a.namedColors.color(a), m_b.namedColors.color(b));
    }
    void point(const std::string& what, const Point& a, const Point& b) {
        same(what + " x", a.x, b.x);
        same(what + " y", a.y, b.y);
    }
    template <class List, class Compare>
    void each(const std::string& what, const List& a, const List& b, Compare compare) {
        same("number of " + what, a.size(), b.size());
        auto other = b.begin();
        std::size_t i = 0;
        for (auto one = a.begin(); one != a.end() && m_difference.empty(); ++one, ++other)
            compare(what + " " + std::to_string(i++), *one, *other);
    }
    template <class T> std::vector<T> list(const Column<T>& column) {
        return {column.values().begin(), column.values().end()};
    }
    template <class T> void column(const std::string& what, const Column<T>& a, const Column<T>& b) {
        each(what, list(a), list(b), [&](const std::string& value, T x, T y) { same(value, +x, +y); });
    }
    void nameColumn(const std::string& what, const Column<NameId>& a, const Column<NameId>& b) {
        each(what, list(a), list(b), [&](const std::string& value, NameId x, NameId y) { name(value, x, y); });
    }
    void colorColumn(const std::string& what, const Column<ColorId>& a, const Column<ColorId>& b) {
        each(what, list(a), list(b), [&](const std::string& value, ColorId x, ColorId y) { color(value, x, y); });
    }
    void columns(const std::string& what, const LayerColumns& a, const LayerColumns& b);
    void styles();
    void layers();
    void state(const std::string& what, const LayerState& a, const LayerState& b);
    void geometry(const std::string& what, const Entity& a, const Entity& b);
    void entities(const std::string& what, const std::vector<Entity>& a, const std::vector<Entity>& b);
    void viewport(const std::string& what, const Viewport& a, const Viewport& b);
    void layouts();
    void rest();

    const Drawing& m_a;
    const Drawing& m_b;
    std::string m_difference;
};

void Comparison::columns(const std::string& what, const LayerColumns& a, const LayerColumns& b) {
    column(what + " flags", a.flags, b.flags);
    colorColumn(what + " colors", a.colors, b.colors);
    nameColumn(what + " linetypes", a.linetypes, b.linetypes);
    column(what + " line weights", a.lineWeights, b.lineWeights);
    nameColumn(what + " plot styles", a.plotStyles, b.plotStyles);
}

void Comparison::styles() {
    each("linetype", m_a.linetypes, m_b.linetypes, [&](const std::string& what, const Linetype& x, const Linetype& y) {
        name(what, x.name, y.name);
        same(what + " handle", x.handle, y.handle);
        same(what + " description", x.description, y.description);
        each(what + " pattern", x.pattern, y.pattern,
             [&](const std::string& at, double p, double q) { same(at, p, q); });
    });
    each("plot style", m_a.plotStyles, m_b.plotStyles,
         [&](const std::string& what, const PlotStyle& x, const PlotStyle& y) {
             name(what, x.name, y.name);
             same(what + " handle", x.handle, y.handle);
         });
    same("colour-dependent", m_a.colorDependentPlotStyles, m_b.colorDependentPlotStyles);
}

void Comparison::layers() {
    each("layer", m_a.layers, m_b.layers, [&](const std::string& what, const Layer& x, const Layer& y) {
        name(what, x.name, y.name);
        same(what + " handle", x.handle, y.handle);
        same(what + " description", x.description, y.description);
        same(what + " reference", x.reference, y.reference);
    });
    each("layer set", m_a.layerSet->names, m_b.layerSet->names,
         [&](const std::string& what, NameId x, NameId y) { name(what, x, y); });
    columns("layers'", m_a.columns, m_b.columns);
    same("current layer", m_a.currentLayer, m_b.currentLayer);
}

void Comparison::state(const std::string& what, const LayerState& a, const LayerState& b) {
    same(what + " name", a.name, b.name);
    same(what + " description", a.description, b.description);
    same(what + " handle", a.handle, b.handle);
    same(what + " mask", a.mask, b.mask);
    same(what + " viewport data", a.hasViewportData, b.hasViewportData);
    same(what + " reference", a.reference, b.reference);
    name(what + " current layer", a.currentLayer, b.currentLayer);
    same(what + " has the drawing's set", a.layers == m_a.layerSet, b.layers == m_b.layerSet);
    each(what + " layer", a.layers->names, b.layers->names,
         [&](const std::string& at, NameId x, NameId y) { name(at, x, y); });
    columns(what, a.columns, b.columns);
}

void Comparison::geometry(const std::string& what, const Entity& a, const Entity& b) {
    same(what + " geometry", a.geometry.index(), b.geometry.index());
    if (!m_difference.empty())
        return;
    if (const auto* line = std::get_if<Line>(&a.geometry)) {
        point(what + " from", line->from, std::get<Line>(b.geometry).from);
        point(what + " to", line->to, std::get<Line>(b.geometry).to);
    } else if (const auto* polyline = std::get_if<Polyline>(&a.geometry)) {
        const Polyline& other = std::get<Polyline>(b.geometry);
        same(what + " closed", polyline->closed, other.closed);
        each(what + " point", polyline->points, other.points,
             [&](const std::string& at, const Point& x, const Point& y) { point(at, x, y); });
    } else if (const auto* circle = std::get_if<Circle>(&a.geometry)) {
        point(what + " center", circle->center, std::get<Circle>(b.geometry).center);
        same(what + " radius", circle->radius, std::get<Circle>(b.geometry).radius);
    } else if (const auto* arc = std::get_if<Arc>(&a.geometry)) {
        const Arc& other = std::get<Arc>(b.geometry);
        point(what + " center", arc->center, other.center);
        same(what + " radius", arc->radius, other.radius);
        same(what + " start", arc->startAngle, other.startAngle);
        same(what + " end", arc->endAngle, other.endAngle);
    } else {
        const Text &text = std::get<Text>(a.geometry), &other = std::get<Text>(b.geometry);
        point(what + " position", text.position, other.position);
        same(what + " height", text.height, other.height);
        same(what + " rotation", text.rotation, other.rotation);
        same(what + " text", text.text, other.text);
    }
}

void Comparison::entities(const std::string& what, const std::vector<Entity>& a, const std::vector<Entity>& b) {
    each(what, a, b, [&](const std::string& at, const Entity& x, const Entity& y) {
        same(at + " layer", x.layer, y.layer);
        same(at + " is coloured by layer", !x.color, !y.color);
        color(at + " colour", x.color.value_or(kByLayer), y.color.value_or(kByLayer));
        name(at + " linetype", x.linetype, y.linetype);
        same(at + " lineweight", x.lineWeight, y.lineWeight);
        geometry(at, x, y);
    });
}

/// Without the trailing layers that aren't frozen: leaving them out means the same.
std::vector<bool> trimmed(std::vector<bool> frozen) {
    while (!frozen.empty() && !frozen.back())
        frozen.pop_back();
    return frozen;
}

void Comparison::viewport(const std::string& what, const Viewport& a, const Viewport& b) {
    same(what + " handle", a.handle, b.handle);
    same(what + " number", a.number, b.number);
    point(what + " corner", a.corner, b.corner);
    same(what + " width", a.width, b.width);
    same(what + " height", a.height, b.height);
    point(what + " center", a.viewCenter, b.viewCenter);
    same(what + " scale", a.scale, b.scale);
    each(what + " frozen", trimmed(a.frozen), trimmed(b.frozen),
         [&](const std::string& at, bool x, bool y) { same(at, x, y); });
    each(what + " override", a.overrides, b.overrides,
         [&](const std::string& at, const ViewportOverride& x, const ViewportOverride& y) {
             same(at + " layer", x.layer, y.layer);
             same(at + " mask", x.mask, y.mask);
             color(at + " colour", x.color, y.color);
             name(at + " linetype", x.linetype, y.linetype);
             same(at + " lineweight", x.lineWeight, y.lineWeight);
             name(at + " plot style", x.plotStyle, y.plotStyle);
         });
}

void Comparison::layouts() {
    each("layout", m_a.layouts, m_b.layouts, [&](const std::string& what, const Layout& x, const Layout& y) {
        same(what + " name", x.name, y.name);
        same(what + " width", x.paperWidth, y.paperWidth);
        same(what + " height", x.paperHeight, y.paperHeight);
        each(what + " viewport", x.viewports, y.viewports,
             [&](const std::string& at, const Viewport& v, const Viewport& w) { viewport(at, v, w); });
        entities(what + " entity", x.entities, y.entities);
    });
    same("active layout", m_a.activeLayout, m_b.activeLayout);
    same("current viewport", m_a.currentViewport, m_b.currentViewport);
}

void Comparison::rest() {
    each("reference", m_a.references, m_b.references,
         [&](const std::string& what, const Reference& x, const Reference& y) {
             same(what + " name", x.name, y.name);
             same(what + " path", x.path, y.path);
             point(what + " insertion", x.insertion, y.insertion);
             same(what + " scale", x.scale, y.scale);
             same(what + " rotation", x.rotation, y.rotation);
             same(what + " is unloaded", x.unloaded, y.unloaded);
         });
    each("application", m_a.applications, m_b.applications,
         [&](const std::string& what, const std::wstring& x, const std::wstring& y) { same(what, x, y); });
    each("extended data", m_a.extendedData, m_b.extendedData,
         [&](const std::string& what, const ExtendedData& x, const ExtendedData& y) {
             same(what + " object", x.object, y.object);
             same(what + " application", x.application, y.application);
             each(what + " value", x.values, y.values,
                  [&](const std::string& at, const ExtendedValue& v, const ExtendedValue& w) {
                      same(at + " code", v.code, w.code);
                      same(at + " is what it was", v.value == w.value, true);
                  });
         });
    same("last restored", m_a.lastRestored, m_b.lastRestored);
    same("default lineweight", m_a.defaultLineWeight, m_b.defaultLineWeight);
    same("linetype scale", m_a.linetypeScale, m_b.linetypeScale);
    same("next handle", m_a.nextHandle, m_b.nextHandle);
}

std::string Comparison::run() {
    styles();
    layers();
    each("state", m_a.states, m_b.states,
         [&](const std::string& what, const LayerState& x, const LayerState& y) { state(what, x, y); });
    entities("entity", m_a.entities, m_b.entities);
    layouts();
    rest();
    return m_difference;
}

} // namespace

std::string difference(const Drawing& a, const Drawing& b) {
    return Comparison(a, b).run();
}
