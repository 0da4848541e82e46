// Result-buffer chains, and the strings that the host hands out.

#include "ResultBuffer.h"

#include "instruments/HostCalls.h"
#include "values/RuntimeStrings.h"

#include <cstdlib>
#include <cwchar>

using instruments::HostCall;

namespace engine {

wchar_t* copyText(std::wstring_view text) {
    auto* copy = static_cast<wchar_t*>(instruments::allocate((text.size() + 1) * sizeof(wchar_t)));
    if (!copy)
        return nullptr;
    text.copy(copy, text.size());
    return copy;
}

wchar_t* handOutText(std::wstring_view text, const char* what) {
    wchar_t* copy = copyText(text);
    if (copy && instruments::g_watching)
        instruments::entrust(copy, std::string(what) + " " + instruments::describe(copy));
    return copy;
}

} // namespace engine

namespace {

bool holdsString(const ResultBuffer& node) {
    return (node.type >= kExtendedString && node.type <= kExtendedHandle) || node.type == kVariableString;
}

void freeText(wchar_t* text) {
    if (!text)
        return;
    instruments::giveBack(text);
    std::free(text);
}

} // namespace

ResultBuffer* kelutNewRb(int type) {
    HostCall call("kelutNewRb", type);
    if (call.fault())
        return call.answer<ResultBuffer*>(nullptr);
    auto* node = static_cast<ResultBuffer*>(instruments::allocate(sizeof(ResultBuffer)));
    if (node) {
        node->type = static_cast<std::int16_t>(type);
        if (instruments::g_watching)
            instruments::entrust(node, "chain node of type " + std::to_string(type));
    }
    return call.answer(node);
}

void kelutRelRb(ResultBuffer* chain) {
    HostCall call("kelutRelRb", chain);
    while (chain) {
        ResultBuffer* next = chain->next;
        if (holdsString(*chain))
            freeText(chain->value.string);
        instruments::giveBack(chain);
        std::free(chain);
        chain = next;
    }
}

void keldbFree(wchar_t* text) {
    HostCall call("keldbFree", text);
    freeText(text);
}

void kelutDelBuffer(wchar_t*& text) {
    HostCall call("kelutDelBuffer", text);
    freeText(text);
    text = nullptr;
}

void vorn_free(wchar_t* text) {
    HostCall call("vorn_free", text);
    freeText(text);
}
