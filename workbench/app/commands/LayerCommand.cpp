// LAYER: one function for each kind of option, and the table of the options.

#include "CommandFunctions.h"
#include "LayerSelection.h"
#include "PropertyText.h"
#include "Session.h"

#include "KelDbDatabase.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>

namespace workbench::commands {

namespace {

std::span<const std::wstring> behind(const Words& words, std::size_t first) {
    return std::span(words).subspan(first);
}

/// Applies `edit` to the values of the layers as one step. `done` ends the sentence about those that were changed.
template <class Edit>
void editLayers(Session& session, const std::vector<std::size_t>& layers, const std::wstring& done, Edit edit) {
    std::size_t changed = 0;
    bool keptCurrent = false;
    session.change([&](KelDbDatabase& database) {
        for (const std::size_t layer : layers) {
            engine::LayerValues values = engine::layerValues(database, layer);
            edit(values);
            const Vorn::ErrorStatus status = engine::setLayerValues(database, layer, values);
            keptCurrent = keptCurrent || status == Vorn::eCannotFreezeCurrentLayer;
            changed += status == Vorn::eOk;
        }
    });
    std::wstring text = changed > 0 ? layersAre(changed) + L' ' + done : std::wstring();
    if (keptCurrent)
        text += (changed > 0 ? L"; " : L"") + layerQuotation(session, session.drawing().currentLayer) +
                L" is the current layer, which can't be frozen: make another one current first";
    if (changed > 0)
        session.window().print(text + L".\n");
    else if (keptCurrent)
        session.refuse(text + L".\n");
}

void setFlag(Session& session, std::span<const std::wstring> words, unsigned flag, bool set, const wchar_t* done) {
    if (const auto layers = selectLayers(session, words))
        editLayers(session, *layers, done, [flag, set](engine::LayerValues& values) {
            values.flags = static_cast<std::uint8_t>(set ? values.flags | flag : values.flags & ~flag);
        });
}

/// Gives the value, which was read from the first word, to the layers that the other words name.
template <class Value, class Member>
void setValue(Session& session, const Words& words, const std::optional<Value>& value, const wchar_t* what,
              Member engine::LayerValues::*member) {
    if (!value)
        return;
    if (const auto layers = selectLayersOrCurrent(session, behind(words, 1)))
        editLayers(session, *layers, std::wstring(L"given the ") + what + L' ' + unquoted(words[0]),
                   [&](engine::LayerValues& values) { values.*member = *value; });
}

/// A flag of a layer that the user sets by typing yes or no.
struct Question {
    unsigned flag;
    bool setByYes;
    const wchar_t* yes; ///< end of the sentence about the changed layers
    const wchar_t* no;
};

/// Sets the flag as the first word says, for the layers that the other words name.
void setYesNo(Session& session, const Words& words, const Question& question) {
    const auto answer = parseYesNo(words[0]);
    if (answer)
        setFlag(session, behind(words, 1), question.flag, *answer == question.setByYes,
                *answer ? question.yes : question.no);
    else
        session.refuse(quotation(words[0]) + L" is neither yes nor no: give one of them.\n");
}

std::wstring reasonOf(Vorn::ErrorStatus status) {
    switch (status) {
    case Vorn::eInvalidInput:
        return std::wstring(L"that can't be a name: ") + kNameAdvice;
    case Vorn::eNameTooLong:
        return std::wstring(L"the name is too long: ") + kNameAdvice;
    case Vorn::eDuplicateRecordName:
        return L"there is a layer of that name already: give another one";
    case Vorn::eDependentRecord:
        return L"it belongs to an attached drawing: open that one";
    case Vorn::eReservedName:
        return L"every drawing keeps that layer: choose another one";
    case Vorn::eRecordInUse:
        return L"it is the current layer or something lies on it: choose another one";
    case Vorn::eCannotFreezeCurrentLayer:
        return L"it is frozen: thaw it first";
    default:
        return vornErrorStatusText(status);
    }
}

void tell(Session& session, Vorn::ErrorStatus status, const std::wstring& done, const std::wstring& failed) {
    if (status == Vorn::eOk)
        session.window().print(done + L".\n");
    else
        session.refuse(failed + L", because " + reasonOf(status) + L".\n");
}

/// The layer of exactly that name. When there is none, tells the user so and answers none.
std::optional<std::size_t> layerOf(Session& session, const std::wstring& word) {
    const std::size_t layer = engine::layerIndex(session.database(), unquoted(word));
    if (layer != zdr::kNone)
        return layer;
    session.refuse(L"No layer is called " + quotation(unquoted(word)) + L": LAYER LIST shows the names.\n");
    return std::nullopt;
}

void makeCurrent(Session& session, std::size_t layer) {
    Vorn::ErrorStatus status = Vorn::eOk;
    session.change([&](KelDbDatabase& database) { status = engine::setCurrentLayer(database, layer); });
    if (session.isRefused())
        return;
    const std::wstring name = layerQuotation(session, layer);
    tell(session, status, name + L" is the current layer", name + L" isn't made current");
}

void set(Session& session, const Words& words) {
    if (const auto layer = layerOf(session, words[0]))
        makeCurrent(session, *layer);
}

std::vector<std::wstring> namesIn(const Words& words) {
    std::vector<std::wstring> names;
    for (const std::wstring& word : words)
        for (const std::wstring& name : splitList(word))
            names.push_back(newName(name));
    return names;
}

/// Makes the layers that aren't there yet, up to the first that can't be made.
void makeLayers(Session& session, const Words& words) {
    const std::vector<std::wstring> names = namesIn(words);
    if (names.empty()) {
        session.refuse(L"No layer is named: give names with commas between.\n");
        return;
    }
    std::size_t made = 0;
    std::wstring failure;
    session.change([&](KelDbDatabase& database) {
        for (const std::wstring& name : names) {
            if (!failure.empty() || engine::layerIndex(database, name) != zdr::kNone)
                continue;
            const Vorn::ErrorStatus status = engine::addLayer(database, name);
            made += status == Vorn::eOk;
            if (status != Vorn::eOk)
                failure = quotation(name) + L" isn't made, because " + reasonOf(status);
        }
    });
    if (session.isRefused())
        return;
    const std::wstring done = made > 0 ? layersAre(made) + L" made" : layersAre(names.size()) + L" there already";
    if (failure.empty())
        session.window().print(done + L".\n");
    else
        session.refuse(failure + L".\n");
}

void make(Session& session, const Words& words) {
    const std::wstring name = newName(words[0]);
    const std::size_t known = engine::layerIndex(session.database(), name);
    if (known != zdr::kNone) {
        makeCurrent(session, known);
        return;
    }
    Vorn::ErrorStatus status = Vorn::eOk;
    session.change([&](KelDbDatabase& database) {
        status = engine::addLayer(database, name);
        if (status == Vorn::eOk)
            status = engine::setCurrentLayer(database, engine::layerIndex(database, name));
    });
    if (session.isRefused())
        return;
    tell(session, status, quotation(name) + L" is made and is the current layer", quotation(name) + L" isn't made");
}

void rename(Session& session, const Words& words) {
    const auto layer = layerOf(session, words[0]);
    if (!layer)
        return;
    const std::wstring former = layerQuotation(session, *layer);
    const std::wstring name = newName(words[1]);
    Vorn::ErrorStatus status = Vorn::eOk;
    session.change([&](KelDbDatabase& database) { status = engine::renameLayer(database, *layer, name); });
    if (session.isRefused())
        return;
    tell(session, status, former + L" is called " + quotation(name) + L" now", former + L" isn't renamed");
}

/// Why several layers can't be deleted.
std::wstring reasonOfMany(Vorn::ErrorStatus status) {
    switch (status) {
    case Vorn::eDependentRecord:
        return L"they belong to attached drawings";
    case Vorn::eRecordInUse:
        return L"something lies on them or one is the current layer";
    default:
        return vornErrorStatusText(status);
    }
}

/// Layers that stay for one reason, by their names in quotes.
struct Kept {
    Vorn::ErrorStatus reason;
    std::vector<std::wstring> names;
};

void keep(std::vector<Kept>& kept, Vorn::ErrorStatus reason, std::wstring name) {
    auto group = std::ranges::find(kept, reason, &Kept::reason);
    if (group == kept.end())
        group = kept.insert(group, Kept{reason, {}});
    group->names.push_back(std::move(name));
}

std::wstring sentenceOf(const Kept& kept) {
    if (kept.names.size() == 1)
        return kept.names.front() + L" stays, because " + reasonOf(kept.reason);
    return std::to_wstring(kept.names.size()) + L" layers stay, because " + reasonOfMany(kept.reason) + L": " +
           listed(kept.names);
}

void remove(Session& session, const Words& words) {
    const auto layers = selectLayers(session, words);
    if (!layers)
        return;
    std::size_t removed = 0;
    std::vector<Kept> kept;
    session.change([&](KelDbDatabase& database) {
        // From the end, so that the indexes before stay what they are.
        for (auto layer = layers->rbegin(); layer != layers->rend(); ++layer) {
            std::wstring name = layerQuotation(session, *layer);
            const Vorn::ErrorStatus status = engine::removeLayer(database, *layer);
            removed += status == Vorn::eOk;
            if (status != Vorn::eOk)
                keep(kept, status, std::move(name));
        }
    });
    std::vector<std::wstring> sentences;
    if (removed > 0)
        sentences.push_back(layersAre(removed) + L" deleted");
    for (Kept& group : kept) {
        std::ranges::reverse(group.names); // as LAYER LIST has them
        sentences.push_back(sentenceOf(group));
    }
    std::wstring text;
    for (const std::wstring& sentence : sentences)
        text += (text.empty() ? L"" : L"; ") + sentence;
    if (removed > 0)
        session.window().print(text + L".\n");
    else if (!text.empty())
        session.refuse(text + L".\n");
}

/// An open object, closed at the end.
template <class Object> class Opened {
  public:
    ~Opened() {
        if (m_object)
            m_object->close();
    }
    Opened() = default;
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    Object*& object() { return m_object; }
    Object* operator->() const { return m_object; }

  private:
    Object* m_object = nullptr;
};

Vorn::ErrorStatus describeLayer(KelDbDatabase& database, const std::wstring& layer, const std::wstring& text) {
    Opened<KelDbLayerTable> table;
    if (const auto status = database.getSymbolTable(table.object(), KelDb::kForRead); status != Vorn::eOk)
        return status;
    Opened<KelDbLayerTableRecord> record;
    if (const auto status = table->getAt(layer.c_str(), record.object(), KelDb::kForWrite); status != Vorn::eOk)
        return status;
    return record->setDescription(text.c_str());
}

void description(Session& session, const Words& words) {
    const auto layers = selectLayersOrCurrent(session, behind(words, 1));
    if (!layers)
        return;
    std::size_t changed = 0;
    Vorn::ErrorStatus failure = Vorn::eOk;
    session.change([&](KelDbDatabase& database) {
        for (const std::size_t layer : *layers) {
            const std::wstring name = session.drawing().names.text(session.drawing().layers[layer].name);
            const Vorn::ErrorStatus status = describeLayer(database, name, unquoted(words[0]));
            changed += status == Vorn::eOk;
            failure = status == Vorn::eOk ? failure : status;
        }
    });
    if (session.isRefused())
        return;
    tell(session, failure, layersAre(changed) + L" described", L"Not all layers are described");
}

std::wstring describe(const zdr::Drawing& drawing, std::size_t layer) {
    const zdr::LayerColumns& columns = drawing.columns;
    const unsigned flags = columns.flags[layer];
    std::wstring text = drawing.names.text(drawing.layers[layer].name);
    text += flags & zdr::kLayerOn ? L": on" : L": off";
    text += flags & zdr::kLayerFrozen ? L", frozen" : L"";
    text += flags & zdr::kLayerLocked ? L", locked" : L"";
    text += flags & zdr::kLayerPlot ? L"" : L", not plotted";
    text += flags & zdr::kLayerNewViewportFrozen ? L", frozen in new viewports" : L"";
    const KelCmColor color = drawing.namedColors.color(columns.colors[layer]);
    text += std::wstring(L", ") + color.colorNameForDisplay() + L", " + drawing.names.text(columns.linetypes[layer]) +
            L", " + lineWeightText(columns.lineWeights[layer]);
    if (!drawing.layers[layer].description.empty())
        text += L" - " + drawing.layers[layer].description;
    return text + (layer == drawing.currentLayer ? L" (current)\n" : L"\n");
}

void list(Session& session, const Words& words) {
    constexpr std::size_t kMost = 200;
    const auto layers = words.empty() ? selectLayers(session, Words{L"*"}) : selectLayers(session, words);
    if (!layers)
        return;
    std::wstring text;
    for (std::size_t i = 0; i < std::min(layers->size(), kMost); ++i)
        text += describe(session.drawing(), (*layers)[i]);
    if (layers->size() > kMost)
        text += std::to_wstring(layers->size() - kMost) + L" more: a pattern such as A* shows fewer.\n";
    else if (layers->size() > 1)
        text += layersAre(layers->size()) + L" listed.\n";
    session.window().print(text);
}

constexpr Count kNames{1, kMany};
constexpr Count kValueAndNames{1, kMany};
constexpr Count kAnswerAndNames{2, kMany};

// clang-format off
constexpr Option kLayerOptions[] = {
    {L"SET", L"S", L"name", L"Makes a layer the current one.", {1, 1}, Offer::Layers, Offer::Nothing, set},
    {L"MAKE", L"M", L"name", L"Makes a layer, unless it is there, and makes it the current one.", {1, 1}, Offer::Layers, Offer::Nothing, make},
    {L"NEW", L"N", L"names", L"Makes layers that aren't there.", kNames, Offer::Nothing, Offer::Nothing, makeLayers},
    {L"RENAME", L"R", L"name newname", L"Gives a layer another name.", {2, 2}, Offer::Layers, Offer::Nothing, rename},
    {L"DELETE", nullptr, L"layers", L"Takes layers out that nothing lies on.", kNames, Offer::Layers, Offer::Layers, remove},
    {L"ON", nullptr, L"layers", L"Turns layers on.", kNames, Offer::Layers, Offer::Layers, [](Session& session, const Words& words) { setFlag(session, words, zdr::kLayerOn, true, L"on"); }},
    {L"OFF", nullptr, L"layers", L"Turns layers off.", kNames, Offer::Layers, Offer::Layers, [](Session& session, const Words& words) { setFlag(session, words, zdr::kLayerOn, false, L"off"); }},
    {L"FREEZE", L"F", L"layers", L"Freezes layers; the current one can't be frozen.", kNames, Offer::Layers, Offer::Layers, [](Session& session, const Words& words) { setFlag(session, words, zdr::kLayerFrozen, true, L"frozen"); }},
    {L"THAW", L"T", L"layers", L"Thaws layers.", kNames, Offer::Layers, Offer::Layers, [](Session& session, const Words& words) { setFlag(session, words, zdr::kLayerFrozen, false, L"thawed"); }},
    {L"LOCK", L"LO", L"layers", L"Locks layers.", kNames, Offer::Layers, Offer::Layers, [](Session& session, const Words& words) { setFlag(session, words, zdr::kLayerLocked, true, L"locked"); }},
    {L"UNLOCK", L"U", L"layers", L"Unlocks layers.", kNames, Offer::Layers, Offer::Layers, [](Session& session, const Words& words) { setFlag(session, words, zdr::kLayerLocked, false, L"unlocked"); }},
    {L"COLOR", L"COLOUR", L"color [layers]", L"Gives layers, or the current one, a color: 1 to 255, a name, or r,g,b.", kValueAndNames, Offer::Colors, Offer::Layers, [](Session& session, const Words& words) { setValue(session, words, colorOf(session, words[0]), L"color", &engine::LayerValues::color); }},
    {L"LINETYPE", L"LTYPE", L"linetype [layers]", L"Gives layers, or the current one, a linetype of the drawing.", kValueAndNames, Offer::Linetypes, Offer::Layers, [](Session& session, const Words& words) { setValue(session, words, linetypeOf(session, words[0]), L"linetype", &engine::LayerValues::linetype); }},
    {L"LINEWEIGHT", L"LWEIGHT", L"width [layers]", L"Gives layers, or the current one, a lineweight in millimeters, or the default one.", kValueAndNames, Offer::LineWeights, Offer::Layers, [](Session& session, const Words& words) { setValue(session, words, lineWeightOf(session, words[0]), L"lineweight", &engine::LayerValues::lineWeight); }},
    {L"PLOTSTYLE", L"PSTYLE", L"style [layers]", L"Gives layers, or the current one, a plot style of the drawing.", kValueAndNames, Offer::PlotStyles, Offer::Layers, [](Session& session, const Words& words) { setValue(session, words, plotStyleOf(session, words[0]), L"plot style", &engine::LayerValues::plotStyle); }},
    {L"PLOT", L"P", L"YES|NO layers", L"Whether layers are plotted.", kAnswerAndNames, Offer::YesNo, Offer::Layers, [](Session& session, const Words& words) { setYesNo(session, words, {zdr::kLayerPlot, true, L"plotted", L"not plotted"}); }},
    {L"NEWVIEWPORTS", L"NEWVP", L"YES|NO layers", L"Whether layers are shown in viewports that will be made.", kAnswerAndNames, Offer::YesNo, Offer::Layers, [](Session& session, const Words& words) { setYesNo(session, words, {zdr::kLayerNewViewportFrozen, false, L"shown in new viewports", L"frozen in new viewports"}); }},
    {L"DESCRIPTION", L"D", L"text [layers]", L"Describes layers, or the current one; a text with blanks goes in quotes.", kValueAndNames, Offer::Nothing, Offer::Layers, description},
    {L"LIST", L"?", L"[layers]", L"Lists layers with their properties.", {0, kMany}, Offer::Layers, Offer::Layers, list},
};
// clang-format on

} // namespace

std::span<const Option> layerOptions() {
    return kLayerOptions;
}

} // namespace workbench::commands
