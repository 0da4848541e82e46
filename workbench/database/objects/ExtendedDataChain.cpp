#include "ExtendedDataChain.h"

#include "instruments/HostCalls.h"
#include "values/NameRules.h"
#include "values/RuntimeStrings.h"

#include <algorithm>
#include <cstdlib>

namespace engine {
namespace {

bool isText(int code) {
    return code == kExtendedString || code == kExtendedHandle;
}

// Frees what was made of a chain that can't be handed out whole.
void discard(ResultBuffer* chain) {
    while (chain) {
        ResultBuffer* const next = chain->next;
        if (isText(chain->type) || chain->type == kExtendedAppName)
            std::free(chain->value.string);
        instruments::giveBack(chain);
        std::free(chain);
        chain = next;
    }
}

// Appends a node at `*end`, the last node's link, and moves `end` to the new node's; null when memory runs out.
ResultBuffer* append(ResultBuffer**& end, std::int16_t code) {
    auto* node = static_cast<ResultBuffer*>(instruments::allocate(sizeof(ResultBuffer)));
    if (!node)
        return nullptr;
    if (instruments::g_watching)
        instruments::entrust(node, "chain node of type " + std::to_string(code));
    node->type = code;
    *end = node;
    end = &node->next;
    return node;
}

bool appendText(ResultBuffer**& end, std::int16_t code, std::wstring_view text) {
    ResultBuffer* node = append(end, code);
    return node && (node->value.string = copyText(text));
}

bool appendNumber(ResultBuffer**& end, std::int16_t code, std::int32_t number) {
    ResultBuffer* node = append(end, code);
    if (!node)
        return false;
    if (code == kExtendedInt16)
        node->value.int16 = static_cast<std::int16_t>(number);
    else
        node->value.int32 = number;
    return true;
}

bool appendValue(ResultBuffer**& end, const zdr::ExtendedValue& value) {
    const auto* text = std::get_if<std::wstring_view>(&value.value);
    return text ? appendText(end, value.code, *text)
                : appendNumber(end, value.code, std::get<std::int32_t>(value.value));
}

// Null when memory runs out: half of somebody's data would be worse than none.
ResultBuffer* chainOf(const zdr::ExtendedData& data) {
    ResultBuffer* chain = nullptr;
    ResultBuffer** end = &chain;
    bool whole = appendText(end, kExtendedAppName, data.application);
    for (auto value = data.values.begin(); whole && value != data.values.end(); ++value)
        whole = appendValue(end, *value);
    if (whole)
        return chain;
    discard(chain);
    return nullptr;
}

// None for a node that no extended data has.
std::optional<zdr::ExtendedValue> valueOf(const ResultBuffer& node) {
    if (isText(node.type) && node.value.string)
        return zdr::ExtendedValue{node.type, node.value.string};
    if (node.type == kExtendedInt16)
        return zdr::ExtendedValue{node.type, std::int32_t{node.value.int16}};
    if (node.type == kExtendedInt32)
        return zdr::ExtendedValue{node.type, node.value.int32};
    return std::nullopt;
}

bool areValues(const zdr::ExtendedValues& values, const ResultBuffer* nodes) {
    for (const zdr::ExtendedValue& value : values) {
        if (!nodes || valueOf(*nodes) != value)
            return false;
        nodes = nodes->next;
    }
    return !nodes;
}

// None when a node is none of extended data.
std::optional<zdr::ExtendedValues> valuesOf(const ResultBuffer* nodes) {
    std::size_t count = 0, characters = 0;
    for (const ResultBuffer* node = nodes; node; node = node->next, ++count) {
        const auto value = valueOf(*node);
        if (!value)
            return std::nullopt;
        if (const auto* text = std::get_if<std::wstring_view>(&value->value))
            characters += text->size();
    }
    zdr::ExtendedValues values;
    values.reserve(count, characters);
    for (const ResultBuffer* node = nodes; node; node = node->next)
        values.add(*valueOf(*node));
    return values;
}

bool isRegistered(const zdr::Drawing& drawing, std::wstring_view name) {
    return std::ranges::any_of(drawing.applications,
                               [name](const std::wstring& other) { return zdr::equalFolded(other, name); });
}

// Null when the object has none of that application.
const zdr::ExtendedData* dataOf(const zdr::Drawing& drawing, zdr::Handle object, std::wstring_view application) {
    auto item = std::ranges::lower_bound(drawing.extendedData, object, {}, &zdr::ExtendedData::object);
    for (; item != drawing.extendedData.end() && item->object == object; ++item)
        if (zdr::equalFolded(item->application, application))
            return &*item;
    return nullptr;
}

} // namespace

ResultBuffer* makeChain(const zdr::Drawing& drawing, zdr::Handle object, std::wstring_view application) {
    const zdr::ExtendedData* data = dataOf(drawing, object, application);
    return data ? chainOf(*data) : nullptr;
}

Vorn::ErrorStatus storeChain(DatabaseImp& database, zdr::Handle object, const ResultBuffer* chain) {
    if (!chain || chain->type != kExtendedAppName || !chain->value.string)
        return Vorn::eInvalidInput;
    if (!isRegistered(database.drawing(), chain->value.string))
        return Vorn::eKeyNotFound;
    // Data that is there already is no change: there is nothing to undo, and nothing to keep for that.
    const zdr::ExtendedData* data = dataOf(database.drawing(), object, chain->value.string);
    if (data ? areValues(data->values, chain->next) : !chain->next)
        return Vorn::eOk;
    auto values = valuesOf(chain->next);
    if (!values)
        return Vorn::eInvalidInput;
    database.setExtendedData(object, chain->value.string, std::move(*values));
    return Vorn::eOk;
}

bool registerApplication(DatabaseImp& database, std::wstring_view name) {
    if (checkName(name) != Vorn::eOk || isRegistered(database.drawing(), name))
        return false;
    database.registerApplication(std::wstring(name));
    return true;
}

} // namespace engine
