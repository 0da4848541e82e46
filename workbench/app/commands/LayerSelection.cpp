#include "LayerSelection.h"

#include "PropertyText.h"
#include "Session.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>

namespace workbench {

namespace {

/// Adds the layers of one name or pattern. False when there is none.
bool add(const Session& session, const std::wstring& pattern, std::vector<bool>& selected) {
    if (pattern.find_first_of(L"*?") == std::wstring::npos) {
        const std::size_t layer = engine::layerIndex(session.database(), pattern);
        if (layer != zdr::kNone)
            selected[layer] = true;
        return layer != zdr::kNone;
    }
    const zdr::Drawing& drawing = session.drawing();
    bool any = false;
    for (std::size_t layer = 0; layer < drawing.layers.size(); ++layer)
        if (matches(drawing.names.text(drawing.layers[layer].name), pattern))
            any = selected[layer] = true;
    return any;
}

template <class Style> std::wstring namesOf(const zdr::Drawing& drawing, const std::vector<Style>& styles) {
    std::vector<std::wstring> names;
    names.reserve(styles.size());
    for (const Style& style : styles)
        names.push_back(quotedWhereNeeded(drawing.names.text(style.name)));
    return listed(names);
}

} // namespace

std::optional<std::vector<std::size_t>> selectLayers(Session& session, std::span<const std::wstring> words) {
    std::vector<bool> selected(session.drawing().layers.size());
    for (const std::wstring& word : words)
        for (const std::wstring& pattern : splitList(word))
            if (!add(session, pattern, selected)) {
                session.refuse(L"No layer is called " + quotation(pattern) +
                               L": LAYER LIST shows the names; one with blanks goes in quotes.\n");
                return std::nullopt;
            }
    std::vector<std::size_t> layers;
    for (std::size_t layer = 0; layer < selected.size(); ++layer)
        if (selected[layer])
            layers.push_back(layer);
    if (layers.empty()) {
        session.refuse(L"No layer is named: give names or patterns, with commas between.\n");
        return std::nullopt;
    }
    return layers;
}

std::optional<std::vector<std::size_t>> selectLayersOrCurrent(Session& session, std::span<const std::wstring> words) {
    if (words.empty())
        return std::vector{session.drawing().currentLayer};
    return selectLayers(session, words);
}

std::wstring layersAre(std::size_t count) {
    return count == 1 ? L"1 layer is" : std::to_wstring(count) + L" layers are";
}

std::wstring layerQuotation(const Session& session, std::size_t layer) {
    const zdr::Drawing& drawing = session.drawing();
    return quotation(drawing.names.text(drawing.layers[layer].name));
}

std::optional<std::uint32_t> colorOf(Session& session, const std::wstring& text) {
    const auto color = parseColor(unquoted(text));
    if (!color)
        session.refuse(quotation(text) + L" is no color: give a number from 1 to 255, three from 0 to 255 as "
                                         L"r,g,b, or a name such as red.\n");
    return color;
}

std::optional<std::int16_t> lineWeightOf(Session& session, const std::wstring& text) {
    const auto weight = parseLineWeight(unquoted(text));
    if (!weight)
        session.refuse(quotation(text) +
                       L" is no lineweight: give a standard width in millimeters, such as 0.25, or default.\n");
    return weight;
}

std::optional<std::uint32_t> linetypeOf(Session& session, const std::wstring& text) {
    const zdr::Drawing& drawing = session.drawing();
    const zdr::NameId linetype = findLinetype(drawing, unquoted(text));
    if (linetype != zdr::kNoName)
        return linetype;
    session.refuse(L"The drawing has no linetype " + quotation(unquoted(text)) + L": give one of " +
                   namesOf(drawing, drawing.linetypes) + L".\n");
    return std::nullopt;
}

std::optional<std::uint32_t> plotStyleOf(Session& session, const std::wstring& text) {
    const zdr::Drawing& drawing = session.drawing();
    if (drawing.colorDependentPlotStyles) {
        session.refuse(L"The drawing takes its plot styles from colors: change the color instead.\n");
        return std::nullopt;
    }
    const zdr::NameId style = findPlotStyle(drawing, unquoted(text));
    if (style != zdr::kNoName)
        return style;
    session.refuse(L"The drawing has no plot style " + quotation(unquoted(text)) + L": give one of " +
                   namesOf(drawing, drawing.plotStyles) + L".\n");
    return std::nullopt;
}

} // namespace workbench
