// Puts together small drawings for tests, by value: layers, layer states, references, a sheet with a viewport.
#pragma once

#include "LayerStateMask.h"
#include "model/Drawing.h"

#include <functional>
#include <string>

namespace ui {

class TestDrawing {
  public:
    /// A drawing with the layer Base, the linetype Continuous and the plot style Normal.
    TestDrawing();

    /// A layer that is on, thawed, unlocked and plotted, in that palette colour.
    TestDrawing& layer(const std::wstring& name, std::uint32_t color = 7);
    TestDrawing& linetype(const std::wstring& name);
    /// Adds a state of all layers that the drawing has so far. `change` may change its values, which are the drawing's
    /// at first.
    TestDrawing& state(const std::wstring& name, LayerStateMask mask, const std::wstring& description = L"",
                       const std::function<void(zdr::LayerColumns&)>& change = {});
    /// The state last put in was saved with a viewport.
    TestDrawing& savedWithViewport();
    TestDrawing& lastRestored(const std::wstring& name);
    /// A reference to another drawing, whose layers and states come in when the drawing is opened.
    TestDrawing& reference(const std::wstring& name, const TestDrawing& attached);
    /// A sheet with one viewport that is on; the sheet is shown, and the viewport is the current one.
    TestDrawing& inViewport();

    /// Saves it as a file, over one that is there.
    void save(const std::wstring& path) const;
    /// The index of a layer of that name, which must be there.
    std::size_t indexOf(const std::wstring& name) const;
    const zdr::Drawing& drawing() const { return m_drawing; }

    static constexpr zdr::Handle viewportHandle = 0xF0;

  private:
    zdr::Handle newHandle();
    void refreshLayerSet();

    zdr::Drawing m_drawing;
};

} // namespace ui
