// Nothing in a layer states file is taken on trust: what it doesn't say, says twice, or says in another form than the
// writer's is refused, so that a state is never half read.

#include "StateFileCheck.h"

#include "KelCmColor.h"
#include "StateFileFormat.h"
#include "StateFileMembers.h"
#include "engine/LayerEditing.h"
#include "files/DrawingCheck.h"
#include "values/LineWeights.h"
#include "values/NameRules.h"

#include <algorithm>

namespace engine::statefile {
namespace {

using zdr::Place;

constexpr std::array<std::string_view, 8> kHeaderKeys = {
    kVersionKey, kNameKey, kDescriptionKey, kRestoresKey, kFurtherBitsKey, kCurrentLayerKey, kViewportKey, kLayersKey};
/// In the order in which they are written.
constexpr auto kLayerKeys = [] {
    std::array<std::string_view, std::size(kLayerProperties) + 3> keys;
    std::size_t count = 0;
    keys[count++] = kNameKey;
    for (const LayerProperty& property : kLayerProperties) {
        keys[count++] = property.word;
        if (property.bit == MaskColor) {
            keys[count++] = kColorNameKey;
            keys[count++] = kColorBookKey;
        }
    }
    return keys;
}();

/// The flag that a layer's value is, by its key; 0 for the others.
constexpr auto kLayerFlags = [] {
    std::array<std::uint8_t, kLayerKeys.size()> flags{};
    for (const LayerProperty& property : kLayerProperties)
        flags[static_cast<std::size_t>(std::ranges::find(kLayerKeys, property.word) - kLayerKeys.begin())] =
            property.flag;
    return flags;
}();

using Header = Object<kHeaderKeys>;
using Layer = Object<kLayerKeys>;

const Place kHeader{L"the layer state"};

[[noreturn]] void refuseNoStateFile() {
    throw zdr::Refusal{Vorn::eInvalidInput, L"isn't a layer states file: it has no \"layerStateFile\""};
}

LayerStateMask readMask(const Header& header) {
    LayerStateMask mask = 0;
    const Member restores = header[kRestoresKey];
    if (existing(restores).kind != Token::ListStart)
        refuseValue(restores, L"isn't a list");
    TokenReader tokens(restores.value.bytes);
    tokens.next();
    while (const std::optional<Token> first = tokens.nextElement()) {
        const Value word = tokens.value(*first);
        const auto found = std::ranges::find_if(kLayerProperties, [&](const LayerProperty& known) {
            return word.kind == Token::Text && isWord(word.bytes, known.word);
        });
        if (found == std::end(kLayerProperties))
            refuseValue(restores, L"lists something that is no property of layers");
        if (mask & found->bit)
            refuseValue(restores, L"lists \"" + decoded(found->word) + L"\" twice");
        mask |= found->bit;
    }
    if (const Member furtherBits = header[kFurtherBitsKey]; furtherBits.value.isThere()) {
        const auto further = static_cast<LayerStateMask>(number(furtherBits, 1, 0xFFFFFFFF));
        if (further & MaskAllProperties)
            refuseValue(furtherBits, L"holds bits of the properties");
        mask |= further;
    }
    return mask;
}

KelCmColor readPlainColor(const Member& member) {
    const Value& value = existing(member);
    KelCmColor color;
    if (const auto index = wholeNumber(value, 0, 256)) {
        color.setColorIndex(static_cast<unsigned short>(*index));
        return color;
    }
    std::array<std::uint8_t, 3> channels{};
    std::size_t count = 0;
    const auto refuse = [&] {
        refuseValue(member, L"is neither a number from 0 to 256 nor a list of three from 0 to 255");
    };
    if (value.kind != Token::ListStart)
        refuse();
    TokenReader tokens(value.bytes);
    tokens.next();
    while (const std::optional<Token> first = tokens.nextElement()) {
        const auto light = wholeNumber(tokens.value(*first), 0, 255);
        if (!light || count == channels.size())
            refuse();
        channels[count++] = static_cast<std::uint8_t>(*light);
    }
    if (count != channels.size())
        refuse();
    color.setRGB(channels[0], channels[1], channels[2]);
    return color;
}

/// The name of a true colour, or of its book; empty where the file has none.
Bytes colorText(const Member& member, const KelCmColor& color) {
    if (!member.value.isThere())
        return {};
    const Bytes name = text(member);
    if (color.isByPCI())
        refuseStateFile(member.place.text() + L" has a \"" + decoded(member.key) + L"\" for a colour of the palette");
    if (name.empty() || isFarLonger(name, kMaxNameLength) || checkColorName(decoded(name)) != Vorn::eOk)
        refuseValue(member, L"is empty, too long, or holds a control character");
    return name;
}

std::int16_t readLineWeight(const Member& member) {
    const auto weight = static_cast<std::int16_t>(number(member, kLineWeightDefault, kWidestLine));
    if (!engine::isLineWeight(weight))
        refuseValue(member, L"isn't a lineweight: " + std::to_wstring(weight));
    return weight;
}

/// The values of a layer whose name is known.
void readValues(const Layer& layer, Row& row) {
    for (std::size_t index = 0; index < kLayerKeys.size(); ++index)
        if (kLayerFlags[index] && truth(layer.at(index)))
            row.flags = static_cast<std::uint8_t>(row.flags | kLayerFlags[index]);
    const KelCmColor color = readPlainColor(layer[kColorKey]);
    row.color = color.packed();
    row.colorName = colorText(layer[kColorNameKey], color);
    row.colorBook = colorText(layer[kColorBookKey], color);
    row.linetype = drawingName(layer[kLinetypeKey], true);
    row.lineWeight = readLineWeight(layer[kLineWeightKey]);
    row.plotStyle = drawingName(layer[kPlotStyleKey], true);
}

/// Finds rows by their names: by hash, and among equal hashes by the names themselves, so that names of one hash, which
/// a file may have on purpose, don't cost the square of their number.
class RowsByName {
  public:
    explicit RowsByName(const std::vector<Row>& rows) : m_rows(rows) {}
    void add(std::wstring_view name) { m_entries.push_back({zdr::FoldedHash()(name), m_entries.size()}); }
    /// To be called once, when all are added.
    void sort() {
        std::ranges::sort(m_entries, [this](const Entry& a, const Entry& b) {
            if (a.hash != b.hash)
                return a.hash < b.hash;
            const int order = bytes(a) == bytes(b) ? 0 : zdr::compareFolded(name(a), name(b));
            return order != 0 ? order < 0 : a.row < b.row;
        });
    }
    std::optional<std::size_t> find(std::wstring_view wanted) const {
        const std::size_t hash = zdr::FoldedHash()(wanted);
        for (auto entry = std::ranges::lower_bound(m_entries, hash, {}, &Entry::hash);
             entry != m_entries.end() && entry->hash == hash; ++entry)
            if (zdr::equalFolded(name(*entry), wanted))
                return entry->row;
        return std::nullopt;
    }
    /// Refuses the first row that has the name of an earlier one.
    void requireDifferent() const {
        const Entry* repeated = nullptr;
        const Entry* earlier = nullptr;
        for (std::size_t next = 1; next < m_entries.size(); ++next) {
            const Entry &a = m_entries[next - 1], &b = m_entries[next];
            if (a.hash == b.hash && (!repeated || b.row < repeated->row) && zdr::equalFolded(name(a), name(b))) {
                repeated = &b;
                earlier = &a;
            }
        }
        if (repeated)
            refuseStateFile(Place{L"layer", repeated->row, name(*earlier)}.text() + L" has the name of layer " +
                            std::to_wstring(earlier->row + 1));
    }

  private:
    struct Entry {
        std::size_t hash, row;
    };
    Bytes bytes(const Entry& entry) const { return m_rows[entry.row].name; }
    std::wstring name(const Entry& entry) const { return decoded(bytes(entry)); }

    const std::vector<Row>& m_rows;
    std::vector<Entry> m_entries;
};

/// Checks a text from its beginning to its end.
class StateCheck {
  public:
    explicit StateCheck(Bytes text) : m_tokens(text) {}

    CheckedState run() {
        if (m_tokens.next() != Token::ObjectStart)
            refuseNoStateFile();
        readObject(m_tokens, m_header, [this](std::size_t index) {
            const Token first = m_tokens.next();
            return kHeaderKeys[index] == kLayersKey && first == Token::ListStart ? readLayers() : m_tokens.value(first);
        });
        m_tokens.requireEnd();
        requireVersion(m_header[kVersionKey]);
        m_state.name = text(m_header[kNameKey]);
        m_state.description = text(m_header[kDescriptionKey]);
        m_state.mask = readMask(m_header);
        m_state.hasViewportData = truth(m_header[kViewportKey]);
        if (const Member layers = m_header[kLayersKey]; existing(layers).kind != Token::ListStart)
            refuseValue(layers, L"isn't a list");
        finishLayers();
        return std::move(m_state);
    }

    static void requireVersion(const Member& member) {
        if (!member.value.isThere())
            refuseNoStateFile();
        const std::int64_t version = number(member, 1, INT32_MAX);
        if (version > kVersion)
            throw zdr::Refusal{Vorn::eNewerVersion, L"was written by a newer version of this program: its format is " +
                                                        std::to_wstring(version) +
                                                        L", and this program reads formats up to " +
                                                        std::to_wstring(kVersion)};
    }

  private:
    /// Reads the list's elements from behind its start on.
    Value readLayers() {
        while (const std::optional<Token> first = m_tokens.nextElement()) {
            Layer layer{Place{L"layer", m_state.rows.size()}};
            if (*first != Token::ObjectStart)
                refuseStateFile(layer.place.text() + L" isn't an object");
            readObject(m_tokens, layer, [this](std::size_t) { return m_tokens.value(m_tokens.next()); });
            readLayer(layer);
        }
        return {Token::ListStart};
    }

    void readLayer(Layer& layer) {
        Row row;
        row.name = drawingName(layer[kNameKey], false);
        decode(row.name, m_name);
        layer.place.name = m_name;
        readValues(layer, row);
        if (!m_frozenInViewport && (row.flags & zdr::kLayerViewportFrozen))
            m_frozenInViewport = m_state.rows.size();
        m_names.add(m_name);
        m_state.rows.push_back(row);
    }

    /// What can be told of the layers only when the whole file is read.
    void finishLayers() {
        if (m_frozenInViewport && !m_state.hasViewportData)
            refuseStateFile(
                Place{L"layer", *m_frozenInViewport, decoded(m_state.rows[*m_frozenInViewport].name)}.text() +
                L" is frozen in a viewport, but the state was saved without one");
        m_names.sort();
        m_names.requireDifferent();
        const Member current = m_header[kCurrentLayerKey];
        if (!current.value.isThere())
            return;
        if (const Bytes name = text(current); !isFarLonger(name, zdr::kLongestReferenceName))
            m_state.currentLayer = m_names.find(decoded(name));
        if (!m_state.currentLayer)
            refuseValue(current, L"is none of its layers");
    }

    TokenReader m_tokens;
    Header m_header{kHeader};
    CheckedState m_state;
    RowsByName m_names{m_state.rows};
    std::wstring m_name;                           ///< of the layer that is being read
    std::optional<std::size_t> m_frozenInViewport; ///< the first row
};

/// Refuses a text that is wrong as a whole: one that isn't JSON, or that a newer version wrote.
void requireWhole(Bytes text) {
    TokenReader whole(text);
    const Value file = whole.value(whole.next());
    whole.requireEnd();
    if (file.kind != Token::ObjectStart)
        refuseNoStateFile();
    TokenReader tokens(file.bytes);
    tokens.next();
    Value version;
    while (const std::optional<Bytes> key = tokens.nextKey()) {
        const Value value = tokens.value(tokens.next());
        if (!version.isThere() && isWord(*key, kVersionKey))
            version = value;
    }
    StateCheck::requireVersion({kHeader, kVersionKey, version});
}

} // namespace

CheckedState checkState(Bytes text) {
    if (text.empty())
        throw zdr::Refusal{Vorn::eInvalidInput, L"is empty"};
    try {
        return StateCheck(text).run();
    } catch (const zdr::Refusal&) {
        requireWhole(text); // tells more than the first wrong place does
        throw;
    }
}

} // namespace engine::statefile
