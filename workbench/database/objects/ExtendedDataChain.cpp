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

bool appendText(ResultBuffer**& end, std::int16_t code, const std::wstring& text) {
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
    const auto* text = std::get_if<std::wstring>(&value.value);
    return text ? appendText(end, value.code, *text)
                : appendNumber(end, value.code, std::get<std::int32_t>(value.value));
}

// Texts that were read or stored at different times lie scattered in memory. Asked for a few values ahead, they are
// there when it is their turn; without that, waiting for them is half of what a walk over all layers costs.
void fetchAhead(const std::vector<zdr::ExtendedValue>& values, std::size_t index) {
    constexpr std::size_t kAhead = 8;
    if (index + kAhead >= values.size())
        return;
    if (const auto* text = std::get_if<std::wstring>(&values[index + kAhead].value))
        __builtin_prefetch(text->data());
}

// Null when memory runs out: half of somebody's data would be worse than none.
ResultBuffer* chainOf(const zdr::ExtendedData& data) {
    ResultBuffer* chain = nullptr;
    ResultBuffer** end = &chain;
    bool whole = appendText(end, kExtendedAppName, data.application);
    for (std::size_t index = 0; whole && index < data.values.size(); ++index) {
        fetchAhead(data.values, index);
        whole = appendValue(end, data.values[index]);
    }
    if (whole)
        return chain;
    discard(chain);
    return nullptr;
}

std::optional<zdr::ExtendedValue> valueOf(const ResultBuffer& node) {
    if (isText(node.type) && node.value.string)
        return zdr::ExtendedValue{node.type, std::wstring(node.value.string)};
    if (node.type == kExtendedInt16)
        return zdr::ExtendedValue{node.type, std::int32_t{node.value.int16}};
    if (node.type == kExtendedInt32)
        return zdr::ExtendedValue{node.type, node.value.int32};
    return std::nullopt;
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
    std::vector<zdr::ExtendedValue> values;
    for (const ResultBuffer* node = chain->next; node; node = node->next) {
        auto value = valueOf(*node);
        if (!value)
            return Vorn::eInvalidInput;
        values.push_back(std::move(*value));
    }
    // Data that is there already is no change: there is nothing to undo, and nothing to keep for that.
    const zdr::ExtendedData* data = dataOf(database.drawing(), object, chain->value.string);
    if (data ? data->values != values : !values.empty())
        database.setExtendedData(object, chain->value.string, std::move(values));
    return Vorn::eOk;
}

bool registerApplication(DatabaseImp& database, std::wstring_view name) {
    if (checkName(name) != Vorn::eOk || isRegistered(database.drawing(), name))
        return false;
    database.registerApplication(std::wstring(name));
    return true;
}

} // namespace engine
