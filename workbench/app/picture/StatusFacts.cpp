#include "StatusFacts.h"

namespace workbench {

namespace {

std::wstring spaceOf(const zdr::Drawing& drawing) {
    if (!drawing.activeLayout)
        return L"Model";
    const zdr::Layout& layout = drawing.layouts[*drawing.activeLayout];
    for (const zdr::Viewport& viewport : layout.viewports)
        if (drawing.currentViewport == viewport.handle)
            return layout.name + L", viewport " + std::to_wstring(viewport.number);
    return layout.name + L", paper";
}

} // namespace

StatusFacts statusOf(const zdr::Drawing& drawing, const std::wstring& message) {
    StatusFacts facts;
    facts.layer = drawing.names.text(drawing.layers[drawing.currentLayer].name);
    facts.layerColor = drawing.namedColors.packed(drawing.columns.colors[drawing.currentLayer]);
    facts.space = spaceOf(drawing);
    facts.message = message;
    return facts;
}

std::wstring lastLine(const std::wstring& text) {
    const std::size_t end = text.find_last_not_of(L" \t\r\n");
    if (end == std::wstring::npos)
        return {};
    const std::size_t before = text.find_last_of(L'\n', end);
    const std::size_t start = before == std::wstring::npos ? 0 : before + 1;
    return text.substr(start, end - start + 1);
}

} // namespace workbench
