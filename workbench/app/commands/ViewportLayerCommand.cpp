// VPLAYER: what single viewports freeze and override.

#include "CommandFunctions.h"
#include "LayerSelection.h"
#include "PropertyText.h"
#include "Session.h"
#include "ViewportLayerList.h"

#include "LayerStateMask.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>

namespace workbench::commands {

namespace {

using Handles = std::vector<zdr::Handle>;

/// The words without a closing "IN ...", and the viewports that it names.
struct Target {
    std::span<const std::wstring> words;
    Handles viewports;
};

Handles viewportsNamed(const zdr::Layout& layout, const std::wstring& name) {
    const int number = sameName(name, L"all") ? -1 : parseViewportNumber(name);
    Handles found;
    for (const zdr::Viewport& viewport : layout.viewports)
        if (viewport.number > 0 && (viewport.number == number || sameName(name, L"all")))
            found.push_back(viewport.handle);
    return found;
}

/// Whether the words end in "IN ...".
bool isPlaced(const Words& words) {
    return words.size() >= 2 && sameName(words[words.size() - 2], L"in");
}

/// None when there are no such viewports; the user has been told why then.
std::optional<Target> targetOf(Session& session, const Words& words) {
    const zdr::Drawing& drawing = session.drawing();
    if (!drawing.activeLayout) {
        session.refuse(L"The model tab has no viewports: LAYOUT shows a layout.\n");
        return std::nullopt;
    }
    const std::span<const std::wstring> all(words);
    if (isPlaced(words)) {
        Target target{all.first(words.size() - 2),
                      viewportsNamed(drawing.layouts[*drawing.activeLayout], words.back())};
        if (!target.viewports.empty())
            return target;
        session.refuse(L"The layout has no viewport " + quotation(words.back()) +
                       L": give the number of one, or ALL.\n");
        return std::nullopt;
    }
    if (drawing.currentViewport)
        return Target{all, {*drawing.currentViewport}};
    session.refuse(L"No viewport is current: VPORT makes one so, or end the line with IN and its number.\n");
    return std::nullopt;
}

std::wstring whereText(const Target& target) {
    return target.viewports.size() == 1 ? std::wstring(L" in the viewport")
                                        : L" in " + std::to_wstring(target.viewports.size()) + L" viewports";
}

/// Runs `edit` for each of the viewports and layers as one step, and tells what was `done`, and behind it `besides`.
template <class Edit>
void editViewports(Session& session, const Target& target, std::size_t firstName, const std::wstring& done, Edit edit,
                   const std::wstring& besides = {}) {
    const auto names = target.words.subspan(std::min(firstName, target.words.size()));
    const auto layers = firstName > 0 ? selectLayersOrCurrent(session, names) : selectLayers(session, names);
    if (!layers)
        return;
    session.change([&](KelDbDatabase& database) {
        for (const zdr::Handle viewport : target.viewports)
            for (const std::size_t layer : *layers)
                edit(database, viewport, layer);
    });
    if (session.isRefused())
        return;
    session.window().print(layersAre(layers->size()) + L' ' + done + whereText(target) + besides + L".\n");
}

zdr::ViewportOverride overrideOf(const KelDbDatabase& database, zdr::Handle viewport, std::size_t layer) {
    for (const zdr::ViewportOverride& own : engine::findViewport(engine::drawingOf(database), viewport)->overrides)
        if (own.layer == layer)
            return own;
    zdr::ViewportOverride fresh;
    fresh.layer = layer;
    return fresh;
}

void setFrozen(Session& session, const Words& words, bool frozen) {
    if (const auto target = targetOf(session, words))
        editViewports(session, *target, 0, frozen ? L"frozen" : L"thawed",
                      [frozen](KelDbDatabase& database, zdr::Handle viewport, std::size_t layer) {
                          engine::setFrozenInViewport(database, viewport, layer, frozen);
                      });
}

/// Overrides one property of the layers that the other words name by the value of the first word.
template <class Read, class Member>
void override(Session& session, const Words& words, std::uint32_t bit, Read read,
              Member zdr::ViewportOverride::*member) {
    const auto target = targetOf(session, words);
    if (!target)
        return;
    if (target->words.empty()) {
        session.refuse(L"VPLAYER lacks a value: give one before IN.\n");
        return;
    }
    const auto value = read(session, target->words[0]);
    if (value)
        editViewports(session, *target, 1, L"shown with " + unquoted(target->words[0]),
                      [&](KelDbDatabase& database, zdr::Handle viewport, std::size_t layer) {
                          zdr::ViewportOverride own = overrideOf(database, viewport, layer);
                          own.mask |= bit;
                          own.*member = *value;
                          engine::setOverride(database, viewport, own);
                      });
}

void reset(Session& session, const Words& words) {
    if (const auto target = targetOf(session, words))
        editViewports(
            session, *target, 0, L"without overrides",
            [](KelDbDatabase& database, zdr::Handle viewport, std::size_t layer) {
                zdr::ViewportOverride none;
                none.layer = layer;
                engine::setOverride(database, viewport, none);
            },
            L", and frozen there or not as before");
}

/// Changes nothing, so without IN it means all viewports.
void list(Session& session, const Words& words) {
    Words placed = words;
    if (!isPlaced(words))
        placed.insert(placed.end(), {L"IN", L"ALL"});
    const auto active = session.drawing().activeLayout;
    if (active && viewportsNamed(session.drawing().layouts[*active], L"all").empty()) {
        session.window().print(L"The layout has no viewports.\n");
        return;
    }
    const auto target = targetOf(session, placed);
    if (!target)
        return;
    const auto layers =
        target->words.empty() ? selectLayers(session, Words{L"*"}) : selectLayers(session, target->words);
    if (!layers)
        return;
    const zdr::Drawing& drawing = session.drawing();
    std::wstring text;
    for (const zdr::Handle viewport : target->viewports)
        text += viewportText(drawing, *engine::findViewport(drawing, viewport), *layers);
    session.window().print(text);
}

constexpr Count kNames{1, kMany};

// clang-format off
constexpr Option kViewportLayerOptions[] = {
    {L"FREEZE", L"F", L"layers [IN number|ALL]", L"Freezes layers in the current viewport, or the one of that number.", kNames, Offer::Layers, Offer::LayersOrPlace, [](Session& session, const Words& words) { setFrozen(session, words, true); }},
    {L"THAW", L"T", L"layers [IN number|ALL]", L"Thaws them there.", kNames, Offer::Layers, Offer::LayersOrPlace, [](Session& session, const Words& words) { setFrozen(session, words, false); }},
    {L"COLOR", L"COLOUR", L"color [layers] [IN number|ALL]", L"Shows layers in another color there.", kNames, Offer::Colors, Offer::LayersOrPlace, [](Session& session, const Words& words) { override(session, words, MaskColor, colorOf, &zdr::ViewportOverride::color); }},
    {L"LINETYPE", L"LTYPE", L"linetype [layers] [IN number|ALL]", L"Shows layers in another linetype there.", kNames, Offer::Linetypes, Offer::LayersOrPlace, [](Session& session, const Words& words) { override(session, words, MaskLinetype, linetypeOf, &zdr::ViewportOverride::linetype); }},
    {L"LINEWEIGHT", L"LWEIGHT", L"width [layers] [IN number|ALL]", L"Shows layers with another lineweight there.", kNames, Offer::LineWeights, Offer::LayersOrPlace, [](Session& session, const Words& words) { override(session, words, MaskLineWeight, lineWeightOf, &zdr::ViewportOverride::lineWeight); }},
    {L"PLOTSTYLE", L"PSTYLE", L"style [layers] [IN number|ALL]", L"Gives layers another plot style there.", kNames, Offer::PlotStyles, Offer::LayersOrPlace, [](Session& session, const Words& words) { override(session, words, MaskPlotStyle, plotStyleOf, &zdr::ViewportOverride::plotStyle); }},
    {L"RESET", L"R", L"layers [IN number|ALL]", L"Takes back what was shown differently there; freezing stays.", kNames, Offer::Layers, Offer::LayersOrPlace, reset},
    {L"LIST", L"?", L"[layers] [IN number|ALL]", L"Lists what viewports freeze and show otherwise; without IN, all viewports of the layout.", {0, kMany}, Offer::LayersOrPlace, Offer::LayersOrPlace, list},
};
// clang-format on

} // namespace

std::span<const Option> viewportLayerOptions() {
    return kViewportLayerOptions;
}

} // namespace workbench::commands
