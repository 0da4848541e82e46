// Fuzzer of symbol names: a name that the rules allow serves as the name of a layer, a state and an application, is
// found in any case, and survives its file; one that they don't allow changes nothing, and is mended to one that they
// do.
//
// The input is a text in 16-bit units, the low byte first; the first zero ends the name, and what follows is another
// one.
#include "FuzzRules.h"
#include "KelEditor.h"
#include "engine/DatabaseAccess.h"
#include "files/TextCoding.h"
#include "values/NameRules.h"

namespace {

/// The units as a text of this system, where a surrogate pair may be one character.
std::wstring textOf(const unsigned char* data, std::size_t size) {
    std::wstring units;
    for (std::size_t i = 0; i + 1 < size; i += 2)
        units.push_back(static_cast<wchar_t>(data[i] | data[i + 1] << 8));
    const auto text = zdr::fromUtf8(zdr::toUtf8(units));
    stopUnless(text.has_value(), "UTF-8 of a text isn't read back");
    return *text;
}

void checkFolding(const std::wstring& a, const std::wstring& b) {
    const std::wstring folded = zdr::foldCase(a);
    stopUnless(zdr::foldCase(folded) == folded, "folding twice differs from folding once", zdr::toUtf8(a));
    stopUnless(zdr::equalFolded(a, folded), "a name differs from its folded form", zdr::toUtf8(a));
    stopUnless(zdr::FoldedHash()(a) == zdr::FoldedHash()(folded), "equal names have different hashes", zdr::toUtf8(a));
    const int order = zdr::compareFolded(a, b), reverse = zdr::compareFolded(b, a);
    stopUnless((order < 0) == (reverse > 0) && (order == 0) == (reverse == 0), "an order that isn't one",
               zdr::toUtf8(a) + " and " + zdr::toUtf8(b));
    stopUnless((order == 0) == (folded == zdr::foldCase(b)), "comparison and folding disagree",
               zdr::toUtf8(a) + " and " + zdr::toUtf8(b));
}

/// The rules once more, written as a list of what a name must not hold.
bool isAllowed(const std::wstring& name) {
    const bool harmless = std::all_of(name.begin(), name.end(), [](wchar_t c) {
        const bool control = c < 0x20 || (c >= 0x7F && c <= 0x9F);
        return !control && std::wstring_view(L"<>:\"/\\|?*!").find(c) == std::wstring_view::npos;
    });
    return harmless && !name.empty() && zdr::lengthInUnits(name) <= 255;
}

void checkMending(const std::wstring& name) {
    const std::wstring mended = engine::mendedStateName(name);
    stopUnless(engine::checkStateName(mended) == Vorn::eOk, "a mended name isn't allowed", zdr::toUtf8(name));
    const bool allowed = engine::checkStateName(name) == Vorn::eOk;
    stopUnless(allowed == (mended == name), "mending changes a name that is allowed, or leaves another",
               zdr::toUtf8(name));
    const bool hidden = name.starts_with(L'*') && isAllowed(name.substr(1)) && zdr::lengthInUnits(name) <= 255;
    stopUnless(allowed == (hidden || isAllowed(name)), "the rules of states allow another name than they say",
               zdr::toUtf8(name));
}

void checkUse(const std::wstring& name) {
    KelDbDatabase database(true, false);
    KelDbLayerStateManager& states = *database.getLayerStateManager();
    const std::uint64_t changes = engine::changeCount(database);
    const bool allowed = engine::checkName(name) == Vorn::eOk;
    stopUnless(allowed == isAllowed(name), "the rules allow another name than they say", zdr::toUtf8(name));
    const bool isFree = engine::layerIndex(database, name) == zdr::kNone;
    const bool added = engine::addLayer(database, name) == Vorn::eOk;
    stopUnless(added == (allowed && isFree), "a layer's name isn't judged by the rules", zdr::toUtf8(name));
    const bool saved = states.saveLayerState(name.c_str(), MaskAllProperties) == Vorn::eOk;
    stopUnless(saved == allowed, "a state's name isn't judged by the rules", zdr::toUtf8(name));
    if (!added && !saved)
        stopUnless(engine::changeCount(database) == changes, "a refusal changes the drawing", zdr::toUtf8(name));

    const zdr::Drawing drawing = savedAndRead(engine::drawingOf(database));
    if (added)
        stopUnless(drawing.names.text(drawing.layers.back().name) == name, "a layer's name doesn't survive its file",
                   zdr::toUtf8(name));
    if (!saved)
        return;
    stopUnless(drawing.states.at(0).name == name, "a state's name doesn't survive its file", zdr::toUtf8(name));
    stopUnless(states.hasLayerState(zdr::foldCase(name).c_str()), "a state isn't found in other case",
               zdr::toUtf8(name));
    stopUnless(states.deleteLayerState(name.c_str()) == Vorn::eOk, "a state can't be deleted", zdr::toUtf8(name));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::wstring text = textOf(data, size);
    const std::size_t end = std::min(text.find(L'\0'), text.size());
    const std::wstring name = text.substr(0, end), other = text.substr(std::min(end + 1, text.size()));
    checkFolding(name, other);
    const auto& services = *KelDbSymbolUtilities::servicesPtr106();
    stopUnless((services.validateSymbolName(name.c_str(), false) == Vorn::eOk) == isAllowed(name),
               "the host's service judges otherwise", zdr::toUtf8(name));
    checkMending(name);
    checkUse(name);
    return 0;
}
