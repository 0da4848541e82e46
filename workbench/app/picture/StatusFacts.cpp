#include "StatusFacts.h"

#include "ReferenceStates.h"
#include "UnitsText.h"

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

std::wstring StatusFacts::text() const {
    const std::wstring marker = references.empty() ? references : references + L" | ";
    return layer + L" | " + space + L" | " + place() + L" | " + marker + message;
}

StatusFacts statusOf(const zdr::Drawing& drawing, const std::optional<PointerPlace>& pointer,
                     const std::wstring& message) {
    const std::vector<ReferenceRow> references = referencesOf(drawing);
    StatusFacts facts;
    facts.layer = drawing.names.text(drawing.layers[drawing.currentLayer].name);
    facts.layerColor = drawing.namedColors.packed(drawing.columns.colors[drawing.currentLayer]);
    facts.space = spaceOf(drawing);
    facts.references = countText(references);
    facts.isReferenceMissing = isAnyMissing(references);
    facts.message = message;
    movePointer(facts, drawing, pointer);
    return facts;
}

void movePointer(StatusFacts& facts, const zdr::Drawing& drawing, const std::optional<PointerPlace>& pointer) {
    facts.pointer = pointer ? placeText(pointer->point) : std::wstring();
    const bool onPaper = pointer ? pointer->onPaper : drawing.activeLayout && !drawing.currentViewport;
    facts.unit = onPaper ? kPaperUnit : kModelUnit;
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
