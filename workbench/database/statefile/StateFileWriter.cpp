// Writing layer states files.

#include "StateFile.h"

#include "KelCmColor.h"
#include "StateFileFormat.h"
#include "files/Refusal.h"
#include "files/SystemFile.h"
#include "files/TextCoding.h"

#include <algorithm>
#include <charconv>

namespace engine {
namespace {

using namespace statefile;

/// A name has half a surrogate pair, which no JSON text can hold.
struct HalfCharacter {};

bool isAscii(wchar_t c) {
    return static_cast<std::uint32_t>(c) < 0x80;
}

/// Builds the text piece by piece.
class TextBuilder {
  public:
    explicit TextBuilder(std::size_t expected) { m_out.reserve(expected); }
    std::string take() { return std::move(m_out); }

    TextBuilder& plain(std::string_view bytes) {
        m_out += bytes;
        return *this;
    }
    TextBuilder& number(std::int64_t value) {
        char digits[20];
        m_out.append(digits, std::to_chars(digits, std::end(digits), value).ptr);
        return *this;
    }
    TextBuilder& truth(bool value) { return plain(value ? "true" : "false"); }
    /// A text in its quotes.
    TextBuilder& text(std::wstring_view text) {
        m_out.push_back('"');
        for (std::size_t at = 0; at < text.size();) {
            const auto end = std::find_if(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), isAscii);
            const auto beyond = static_cast<std::size_t>(end - text.begin()) - at;
            if (beyond > 0)
                wide(text.substr(at, beyond));
            at += beyond;
            if (at < text.size())
                character(static_cast<char>(text[at++]));
        }
        m_out.push_back('"');
        return *this;
    }

  private:
    /// A character of ASCII.
    void character(char c) {
        constexpr std::string_view kEscaped = "\b\t\n\f\r\"\\", kLetters = "btnfr\"\\";
        if (const std::size_t at = kEscaped.find(c); at != std::string_view::npos) {
            m_out.push_back('\\');
            m_out.push_back(kLetters[at]);
        } else if (static_cast<unsigned char>(c) < 0x20) {
            constexpr std::string_view kDigits = "0123456789abcdef";
            m_out += "\\u00";
            m_out.push_back(kDigits[static_cast<unsigned char>(c) / 16]);
            m_out.push_back(kDigits[static_cast<unsigned char>(c) % 16]);
        } else {
            m_out.push_back(c);
        }
    }
    /// Characters beyond ASCII.
    void wide(std::wstring_view text) {
        const std::string bytes = zdr::toUtf8(text);
        for (std::size_t at = 0; at + 1 < bytes.size(); ++at)
            if (bytes[at] == '\xED' && static_cast<unsigned char>(bytes[at + 1]) >= 0xA0)
                throw HalfCharacter();
        m_out += bytes;
    }

    std::string m_out;
};

/// `,"key":` within a layer.
TextBuilder& key(TextBuilder& out, const char* key) {
    return out.plain(",\"").plain(key).plain("\":");
}

void addColor(TextBuilder& out, const KelCmColor& color) {
    key(out, kColorKey);
    if (color.isByPCI())
        out.number(color.colorIndex());
    else
        out.plain("[").number(color.red()).plain(",").number(color.green()).plain(",").number(color.blue()).plain("]");
    if (color.hasColorName())
        key(out, kColorNameKey).text(color.colorName());
    if (color.hasBookName())
        key(out, kColorBookKey).text(color.bookName());
}

void addLayer(TextBuilder& out, const zdr::LayerState& state, std::size_t row, const zdr::ColumnTables& tables) {
    const zdr::NameTable& names = tables.names;
    const LayerValues values = valuesAt(state.columns, row);
    out.plain("{\"").plain(kNameKey).plain("\":").text(names.text(state.layers->names[row]));
    for (const LayerProperty& property : kLayerProperties)
        if (property.flag)
            key(out, property.word).truth((values.flags & property.flag) != 0);
    addColor(out, tables.namedColors.color(values.color));
    key(out, kLinetypeKey).text(names.text(values.linetype));
    key(out, kLineWeightKey).number(values.lineWeight);
    key(out, kPlotStyleKey).text(names.text(values.plotStyle)).plain("}");
}

void addMaskWords(TextBuilder& out, LayerStateMask mask) {
    const char* separator = "";
    for (const LayerProperty& property : kLayerProperties)
        if (mask & property.bit) {
            out.plain(separator).plain("\"").plain(property.word).plain("\"");
            separator = ",";
        }
}

/// A line of the file's own members, up to its value.
TextBuilder& line(TextBuilder& out, const char* before, const char* key) {
    return out.plain(before).plain("\n  \"").plain(key).plain("\": ");
}

void addHeader(TextBuilder& out, const zdr::LayerState& state, const zdr::NameTable& names) {
    const bool namedColors = std::ranges::any_of(state.columns.colors.values(), zdr::isNamedColor);
    line(out, "{", kVersionKey).number(namedColors ? kNamedColorsVersion : kFirstVersion);
    line(out, ",", kNameKey).text(state.name);
    line(out, ",", kDescriptionKey).text(state.description);
    addMaskWords(line(out, ",", kRestoresKey).plain("["), state.mask);
    out.plain("]");
    if (const LayerStateMask further = state.mask & ~MaskAllProperties)
        line(out, ",", kFurtherBitsKey).number(further);
    if (state.currentLayer != zdr::kNoName)
        line(out, ",", kCurrentLayerKey).text(names.text(state.currentLayer));
    line(out, ",", kViewportKey).truth(state.hasViewportData);
}

/// Refuses names that the text can't hold: one with half a character pair.
std::string wholeText(const zdr::LayerState& state, const zdr::ColumnTables& tables) {
    try {
        return stateText(state, tables);
    } catch (const HalfCharacter&) {
        throw zdr::Refusal{Vorn::eInvalidInput, L"can't be written: a name in the layer state \"" + state.name +
                                                    L"\" holds half a character, which no JSON text can hold"};
    }
}

} // namespace

std::string stateText(const zdr::LayerState& state, const zdr::ColumnTables& tables) {
    constexpr std::size_t kUsualLine = 256; // bytes of a layer
    const std::size_t count = state.layers->names.size();
    TextBuilder out((count + 2) * kUsualLine);
    addHeader(out, state, tables.names);
    line(out, ",", kLayersKey).plain("[");
    for (std::size_t row = 0; row < count; ++row) {
        out.plain(row == 0 ? "\n    " : ",\n    ");
        addLayer(out, state, row, tables);
    }
    return out.plain("\n  ]\n}\n").take();
}

Vorn::ErrorStatus writeStateFile(DatabaseImp& database, std::size_t index, const std::wstring& path) {
    const zdr::Drawing& drawing = database.drawing();
    return zdr::fileAnswer(path, Vorn::eFileWriteFailed, database.fileProblem, [&] {
        const std::string content = wholeText(drawing.states[index], drawing);
        zdr::ReplacementFile file(path);
        file.write(std::as_bytes(std::span(content)));
        file.flush();
        file.replace();
    });
}

} // namespace engine
