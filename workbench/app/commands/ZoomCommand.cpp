// ZOOM and PAN: which part of the space on view is shown. That is no change of the drawing.

#include "CommandFunctions.h"
#include "CommandTable.h"
#include "LayerExtents.h"
#include "LayerSelection.h"
#include "PointText.h"
#include "Session.h"

#include <algorithm>

namespace workbench::commands {

namespace {

constexpr double kZoomStep = 2;
constexpr double kLeastFactor = 0.0001;
constexpr double kLargestFactor = 10000;
// Around the layers that are shown, as a part of the larger side.
constexpr double kMargin = 0.05;

/// A point that was typed. When it isn't one, tells the user what to type and answers none.
std::optional<Point> pointOf(Session& session, const std::wstring& word) {
    const auto point = parsePoint(word);
    if (!point)
        session.refuse(quotation(word) +
                       L" is no point: give two numbers with a comma between, as 10,-2.5, none of them "
                       L"beyond 1000000000000.\n");
    return point;
}

/// Asks for two points with the mouse.
void pick(Session& session, PickedFor purpose, const wchar_t* prompt, const wchar_t* usage) {
    if (session.window().pickPoints(purpose))
        session.window().print(prompt);
    else
        session.refuse(std::wstring(L"A script waits for no clicks: type ") + usage + L".\n");
}

void zoomBy(Session& session, double factor, const wchar_t* done) {
    if (session.window().zoomBy(factor))
        session.window().print(done);
    else if (factor > 1)
        session.refuse(L"The drawing can't be shown any larger: zoom out.\n");
    else
        session.refuse(L"The drawing can't be shown any smaller: zoom in.\n");
}

void zoomExtents(Session& session, const Words&) {
    session.window().zoomExtents();
    session.window().print(L"All of the drawing is shown.\n");
}

void zoomPrevious(Session& session, const Words&) {
    if (session.window().zoomPrevious())
        session.window().print(L"What was on view before is shown.\n");
    else
        session.refuse(L"Nothing else was on view here before: zoom or move the drawing first.\n");
}

void zoomWindow(Session& session, const Words& words) {
    if (words.empty()) {
        pick(session, PickedFor::Window,
             L"Click a corner of what is to be shown and then the opposite one, or type them as x,y. Esc ends it.\n",
             L"ZOOM WINDOW x,y x,y");
        return;
    }
    if (words.size() < 2) {
        session.refuse(L"ZOOM WINDOW needs two corners: type ZOOM WINDOW x,y x,y, or ZOOM WINDOW alone.\n");
        return;
    }
    const auto corner = pointOf(session, words[0]);
    const auto opposite = corner ? pointOf(session, words[1]) : std::nullopt;
    if (!opposite)
        return;
    if (corner->x == opposite->x || corner->y == opposite->y)
        session.refuse(L"The window between these corners has no width or no height: give two that differ in x and in "
                       L"y.\n");
    else if (session.window().zoomTo(*corner, *opposite))
        session.window().print(L"The window is shown.\n");
    else
        session.refuse(L"The window between these corners is too small or too large to be shown: give others.\n");
}

std::wstring layersText(const Session& session, const std::vector<std::size_t>& layers) {
    return layers.size() == 1 ? L"the layer " + layerQuotation(session, layers.front())
                              : L"these " + std::to_wstring(layers.size()) + L" layers";
}

/// Why nothing is seen of layers on which there is something.
std::wstring whyHidden(const Session& session, const std::vector<std::size_t>& layers) {
    if (layers.size() > 1)
        return L"Nothing on " + layersText(session, layers) + L" is drawn: they are off or frozen.\n";
    const std::wstring name = layersText(session, layers);
    const unsigned flags = session.drawing().columns.flags[layers.front()];
    const std::wstring beginning = L"Nothing on " + name + L" is drawn, because it is ";
    if (flags & zdr::kLayerFrozen)
        return beginning + L"frozen: thaw it by LAYER THAW.\n";
    if (!(flags & zdr::kLayerOn))
        return beginning + L"off: turn it on by LAYER ON.\n";
    return beginning + L"frozen in the viewports: thaw it by VPLAYER THAW.\n";
}

void zoomLayer(Session& session, const Words& words) {
    const auto layers = selectLayers(session, words);
    if (!layers)
        return;
    std::vector<bool> wanted(session.drawing().layers.size());
    for (const std::size_t layer : *layers)
        wanted[layer] = true;
    const LayerExtents extents = layerExtents(session.drawing(), wanted);
    if (extents.drawn.isEmpty()) {
        session.refuse(extents.isHidden ? whyHidden(session, *layers)
                                        : L"Nothing lies on " + layersText(session, *layers) +
                                              L" here: give others, or look at another tab.\n");
        return;
    }
    const Rect shown = extents.drawn.grownBy(kMargin * std::max(extents.drawn.width(), extents.drawn.height()));
    if (!session.window().zoomTo({shown.left, shown.bottom}, {shown.right, shown.top}))
        session.refuse(L"What is drawn on " + layersText(session, *layers) +
                       L" is too small or too large to be shown: give others.\n");
    else
        session.window().print(L"All that is drawn on " + layersText(session, *layers) + L" is shown" +
                               (extents.isHidden ? L"; more is off or frozen.\n" : L".\n"));
}

// clang-format off
constexpr Option kZoomOptions[] = {
    {L"EXTENTS", L"E", L"", L"Shows all of the drawing.", {0, 0}, Offer::Nothing, Offer::Nothing, zoomExtents},
    {L"IN", nullptr, L"", L"Shows half as much, twice as large.", {0, 0}, Offer::Nothing, Offer::Nothing, [](Session& session, const Words&) { zoomBy(session, kZoomStep, L"Zoomed in.\n"); }},
    {L"OUT", nullptr, L"", L"Shows twice as much, half as large.", {0, 0}, Offer::Nothing, Offer::Nothing, [](Session& session, const Words&) { zoomBy(session, 1 / kZoomStep, L"Zoomed out.\n"); }},
    {L"WINDOW", L"W", L"[x,y x,y]", L"Shows what lies between two opposite corners; without them, asks for two clicks.", {0, 2}, Offer::Nothing, Offer::Nothing, zoomWindow},
    {L"PREVIOUS", L"P", L"", L"Goes back to what was on view before in this tab.", {0, 0}, Offer::Nothing, Offer::Nothing, zoomPrevious},
    {L"LAYER", L"L", L"layers", L"Shows all that is drawn on layers.", {1, kMany}, Offer::Layers, Offer::Layers, zoomLayer},
};
// clang-format on

} // namespace

std::span<const Option> zoomOptions() {
    return kZoomOptions;
}

void zoom(Session& session, const CommandText& text) {
    const auto factor = parseFactor(text.words[0]);
    if (!factor)
        refuseOption(session, *findCommand(L"ZOOM"), text.words);
    else if (text.words.size() > 1)
        session.refuse(L"ZOOM has too many arguments: type ZOOM and one factor.\n");
    else if (*factor < kLeastFactor || *factor > kLargestFactor)
        session.refuse(L"ZOOM takes a factor from 0.0001 to 10000: 2 shows twice as large, 0.5 half as large.\n");
    else if (*factor == 1)
        session.refuse(L"A factor of 1 changes nothing: 2 shows twice as large, 0.5 half as large.\n");
    else
        zoomBy(session, *factor, *factor > 1 ? L"Zoomed in.\n" : L"Zoomed out.\n");
}

void pan(Session& session, const CommandText& text) {
    if (text.words.empty()) {
        pick(session, PickedFor::Move,
             L"Click a point of the drawing and then where it is to be, or type them as x,y. Esc ends it.\n",
             L"PAN x,y");
        return;
    }
    const auto from = text.words.size() > 1 ? pointOf(session, text.words[0]) : Point{};
    const auto to = from ? pointOf(session, text.words.back()) : std::nullopt;
    if (!to)
        return;
    const Point displacement{to->x - from->x, to->y - from->y};
    if (displacement.x == 0 && displacement.y == 0) {
        session.refuse(L"That moves nothing: give a displacement other than 0,0, or two points that differ.\n");
        return;
    }
    session.window().moveBy(displacement);
    session.window().print(L"What is shown is moved.\n");
}

} // namespace workbench::commands
