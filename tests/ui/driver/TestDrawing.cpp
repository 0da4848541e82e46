// Handles are given in order from 1, which is Base, so that tests can name them in the traces that they expect.

#include "TestDrawing.h"

#include "engine/Changes.h"
#include "files/DrawingFile.h"

#include <algorithm>
#include <stdexcept>

namespace ui {

namespace {
// Styles and the viewport have the handles in between.
constexpr zdr::Handle firstStyleHandle = 0xE0;
constexpr zdr::Handle behindStyles = 0x100;
} // namespace

TestDrawing::TestDrawing() {
    m_drawing.linetypes.push_back({m_drawing.names.intern(L"Continuous"), firstStyleHandle, L"", {}});
    m_drawing.plotStyles.push_back({m_drawing.names.intern(L"Normal"), firstStyleHandle + 8});
    layer(L"Base");
}

zdr::Handle TestDrawing::newHandle() {
    if (m_drawing.nextHandle == firstStyleHandle)
        m_drawing.nextHandle = behindStyles;
    return m_drawing.nextHandle++;
}

TestDrawing& TestDrawing::layer(const std::wstring& name, std::uint32_t color) {
    const zdr::NameId id = m_drawing.names.intern(name);
    m_drawing.layers.push_back({id, newHandle(), L"", zdr::kNone});
    engine::appendValues(m_drawing.columns, {zdr::kLayerOn | zdr::kLayerPlot, color, m_drawing.linetypes.front().name,
                                             -3, m_drawing.plotStyles.front().name});
    refreshLayerSet();
    return *this;
}

void TestDrawing::refreshLayerSet() {
    auto set = std::make_shared<zdr::LayerSet>();
    for (const zdr::Layer& each : m_drawing.layers)
        set->names.push_back(each.name);
    m_drawing.layerSet = std::move(set);
}

TestDrawing& TestDrawing::linetype(const std::wstring& name) {
    const zdr::Handle handle = firstStyleHandle + m_drawing.linetypes.size();
    m_drawing.linetypes.push_back({m_drawing.names.intern(name), handle, L"", {5, -5}});
    return *this;
}

TestDrawing& TestDrawing::state(const std::wstring& name, LayerStateMask mask, const std::wstring& description,
                                const std::function<void(zdr::LayerColumns&)>& change) {
    zdr::LayerState state;
    state.name = name;
    state.description = description;
    state.handle = newHandle();
    state.mask = mask;
    state.layers = m_drawing.layerSet;
    state.columns = m_drawing.columns;
    if (change)
        change(state.columns);
    m_drawing.states.push_back(std::move(state));
    return *this;
}

TestDrawing& TestDrawing::savedWithViewport() {
    m_drawing.states.back().hasViewportData = true;
    return *this;
}

TestDrawing& TestDrawing::lastRestored(const std::wstring& name) {
    m_drawing.lastRestored = name;
    return *this;
}

TestDrawing& TestDrawing::reference(const std::wstring& name, const TestDrawing& attached) {
    zdr::Reference reference;
    reference.name = name;
    reference.path = name + L".zdr";
    reference.drawing = std::make_shared<const zdr::Drawing>(attached.drawing());
    m_drawing.references.push_back(std::move(reference));
    return *this;
}

TestDrawing& TestDrawing::inViewport() {
    zdr::Viewport viewport;
    viewport.handle = viewportHandle;
    viewport.number = 2;
    viewport.corner = {10, 10};
    viewport.width = 200;
    viewport.height = 150;
    zdr::Layout layout;
    layout.name = L"Sheet";
    layout.paperWidth = 297;
    layout.paperHeight = 210;
    layout.viewports.push_back(std::move(viewport));
    m_drawing.layouts.push_back(std::move(layout));
    m_drawing.activeLayout = m_drawing.layouts.size() - 1;
    m_drawing.currentViewport = viewportHandle;
    m_drawing.nextHandle = std::max(m_drawing.nextHandle, viewportHandle + 1);
    return *this;
}

void TestDrawing::save(const std::wstring& path) const {
    zdr::Drawing saved = m_drawing;
    saved.nextHandle = std::max(saved.nextHandle, behindStyles);
    std::wstring reason;
    zdr::FileStamp stamp;
    if (zdr::writeDrawingFile(path, saved, reason, stamp, zdr::Overwrite::Always) != Vorn::eOk)
        throw std::runtime_error("the drawing can't be saved");
}

std::size_t TestDrawing::indexOf(const std::wstring& name) const {
    const zdr::NameId id = m_drawing.names.find(name);
    const auto found = std::find_if(m_drawing.layers.begin(), m_drawing.layers.end(),
                                    [id](const zdr::Layer& each) { return each.name == id; });
    if (found == m_drawing.layers.end())
        throw std::invalid_argument("the drawing has no such layer");
    return static_cast<std::size_t>(found - m_drawing.layers.begin());
}

} // namespace ui
