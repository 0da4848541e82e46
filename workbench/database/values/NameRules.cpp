#include "values/NameRules.h"

#include "instruments/HostCalls.h"
#include "KelEditor.h"
#include "files/ShownText.h"
#include "files/TextCoding.h"
#include "model/CaseFolding.h"

#include <algorithm>
#include <array>

using instruments::HostCall;

namespace engine {
namespace {

// A table, because every name of a file is looked at.
constexpr std::array<bool, 0x80> kNotInExtendedNames = [] {
    std::array<bool, 0x80> table{};
    for (const char character : std::string_view("<>:\"/\\?*!"))
        table[static_cast<std::size_t>(character)] = true;
    return table;
}();

bool allowedInExtendedName(wchar_t character, bool allowVerticalBar) {
    if (zdr::isControl(character))
        return false;
    if (character == L'|')
        return allowVerticalBar;
    const auto code = static_cast<std::uint32_t>(character);
    return code >= kNotInExtendedNames.size() || !kNotInExtendedNames[code];
}

bool allowedInOldName(wchar_t character, bool allowVerticalBar) {
    const bool letter = (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z');
    const bool digit = character >= L'0' && character <= L'9';
    return letter || digit || std::wstring_view(L"_-$").find(character) != std::wstring_view::npos ||
           (character == L'|' && allowVerticalBar);
}

} // namespace

Vorn::ErrorStatus checkName(std::wstring_view name, bool allowVerticalBar, bool extended) {
    const auto allowed = extended ? allowedInExtendedName : allowedInOldName;
    if (name.empty() || !std::ranges::all_of(name, [&](wchar_t c) { return allowed(c, allowVerticalBar); }))
        return Vorn::eInvalidInput;
    return zdr::lengthInUnits(name) > (extended ? kMaxNameLength : kMaxOldNameLength) ? Vorn::eNameTooLong : Vorn::eOk;
}

Vorn::ErrorStatus checkStateName(std::wstring_view name) {
    const bool hidden = name.starts_with(kHiddenMark);
    const Vorn::ErrorStatus status = checkName(name.substr(hidden ? 1 : 0));
    return status == Vorn::eOk && zdr::lengthInUnits(name) > kMaxNameLength ? Vorn::eNameTooLong : status;
}

namespace {

std::wstring mendedName(std::wstring_view name, std::size_t mostUnits) {
    std::wstring mended(zdr::cutToUnits(name, mostUnits));
    std::ranges::replace_if(
        mended, [](wchar_t c) { return !allowedInExtendedName(c, false); }, L'_');
    return mended.empty() ? L"Unnamed" : mended;
}

/// Calls the action with each name between separators.
template <class Action> void forEachPart(std::wstring_view name, Action action) {
    std::size_t end = name.find(kReferenceSeparator);
    while (end != std::wstring_view::npos) {
        action(name.substr(0, end));
        name.remove_prefix(end + 1);
        end = name.find(kReferenceSeparator);
    }
    action(name);
}

} // namespace

std::wstring mendedName(std::wstring_view name) {
    return mendedName(name, kMaxNameLength);
}

std::wstring mendedStateName(std::wstring_view name) {
    if (!name.starts_with(kHiddenMark))
        return mendedName(name);
    return kHiddenMark + mendedName(name.substr(1), kMaxNameLength - 1);
}

Vorn::ErrorStatus checkQualifiedName(std::wstring_view name) {
    Vorn::ErrorStatus status = Vorn::eOk;
    forEachPart(name, [&status](std::wstring_view part) {
        if (status == Vorn::eOk)
            status = checkName(part);
    });
    return status;
}

std::wstring mendedQualifiedName(std::wstring_view name) {
    std::wstring mended;
    forEachPart(name, [&mended](std::wstring_view part) { mended += mendedName(part) + kReferenceSeparator; });
    mended.pop_back();
    return mended;
}

Vorn::ErrorStatus checkColorName(std::wstring_view name) {
    if (std::ranges::any_of(name, zdr::isControl))
        return Vorn::eInvalidInput;
    return zdr::lengthInUnits(name) > kMaxNameLength ? Vorn::eNameTooLong : Vorn::eOk;
}

bool isReservedLayer(std::wstring_view name) {
    return zdr::equalFolded(name, L"ReferencePoints");
}

} // namespace engine

KelDbSymbolNameServices::~KelDbSymbolNameServices() = default;

namespace {

class NameServices : public KelDbSymbolNameServices {
  public:
    Vorn::ErrorStatus validateSymbolName(const wchar_t* name, bool allowVerticalBar) const override {
        HostCall call("validateSymbolName", name, allowVerticalBar);
        if (const auto status = call.fault())
            return call.answer(*status);
        return call.answer(name ? engine::checkName(name, allowVerticalBar, true) : Vorn::eInvalidInput);
    }
    bool extendedNamesMode(KelDbDatabase* database) const override {
        HostCall call("extendedNamesMode", database);
        return call.answer(!call.fault());
    }
    void maxNameLength(int& length, int& oldLength, bool isNewName, bool extendedNames) const override {
        HostCall call("maxNameLength", isNewName, extendedNames);
        length = static_cast<int>(extendedNames ? engine::kMaxNameLength : engine::kMaxOldNameLength);
        oldLength = static_cast<int>(engine::kMaxOldNameLength);
        call.out("length", length);
    }
    Vorn::ErrorStatus validateNameCharacters(const wchar_t* name, bool isNewName, bool allowVerticalBar,
                                             bool extendedNames) const override {
        HostCall call("validateNameCharacters", name, isNewName, allowVerticalBar, extendedNames);
        if (const auto status = call.fault())
            return call.answer(*status);
        return call.answer(name ? engine::checkName(name, allowVerticalBar, extendedNames) : Vorn::eInvalidInput);
    }
    bool isReservedLayerName(const wchar_t* name) const override {
        HostCall call("isReservedLayerName", name);
        return call.answer(!call.fault() && name && engine::isReservedLayer(name));
    }
};

} // namespace

const KelDbSymbolNameServices* KelDbSymbolUtilities::servicesPtr106() {
    static const NameServices services;
    return &services;
}
