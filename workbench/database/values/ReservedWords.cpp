#include "values/ReservedWords.h"

#include "instruments/HostCalls.h"
#include "KelEditor.h"

namespace engine {

const wchar_t* reservedWord(int which) {
    switch (which) {
    case kByLayerWord:
        return L"ByLayer";
    case kByBlockWord:
        return L"ByBlock";
    case kDefaultWord:
        return L"Default";
    case kModelSpaceWord:
        return L"Model";
    default:
        return nullptr;
    }
}

const wchar_t* colorWord(int index) {
    constexpr const wchar_t* kNamed[] = {L"Red", L"Yellow", L"Green", L"Cyan", L"Blue", L"Magenta", L"White"};
    if (index == 0)
        return reservedWord(kByBlockWord);
    if (index == 256)
        return reservedWord(kByLayerWord);
    return index >= 1 && index <= 7 ? kNamed[index - 1] : nullptr;
}

} // namespace engine

// The host speaks English, so a word is the same for the user and in files.
const wchar_t* keldbGetReservedString(int which, bool localised) {
    instruments::HostCall call("keldbGetReservedString", which, localised);
    if (call.fault())
        return call.answer<const wchar_t*>(nullptr);
    return call.answer(engine::reservedWord(which));
}
