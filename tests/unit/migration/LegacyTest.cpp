#include "LegacyTest.h"

#include "KelDbPointers.h"

LegacyNodes operator+(LegacyNodes first, const LegacyNodes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

LegacyNodes nodesOf(const std::wstring& state, const LegacyBlock& block) {
    LegacyNodes nodes = {text(L"{" + state), int16(block.flags), int16(block.color), text(block.linetype)};
    if (block.current)
        nodes.push_back(int16(1));
    if (!block.frozenInViewport.empty())
        nodes.push_back(text(block.frozenInViewport));
    return nodes +
           LegacyNodes{int32(block.lineWeight), int32(block.plottable), handle(block.plotStyle), text(state + L"}")};
}

LegacyTest::LegacyTest() {
    use(makeDrawing({{L"Walls"}, {L"Doors"}}));
}

LegacyTest::~LegacyTest() {
    releaseKeptChains();
}

void LegacyTest::setData(const wchar_t* layerName, const LegacyNodes& nodes) {
    zdr::Drawing changed = drawing();
    const zdr::Handle object = changed.layers.at(layer(layerName)).handle;
    std::erase_if(changed.extendedData, [object](const zdr::ExtendedData& each) { return each.object == object; });
    if (!nodes.empty())
        changed.extendedData.push_back({object, L"ZVH", plain::valuesOf(nodes)});
    use(std::move(changed));
}

std::vector<std::string> LegacyTest::lines(const LegacyNodes& nodes) {
    std::vector<std::string> found;
    for (const LegacyNode& node : nodes) {
        const std::string code = std::to_string(node.code) + " ";
        if (const auto* value = std::get_if<std::wstring>(&node.value))
            found.push_back(code + std::string(value->begin(), value->end()));
        else
            found.push_back(code + std::to_string(std::get<std::int32_t>(node.value)));
    }
    return found;
}

std::vector<std::string> LegacyTest::data(const wchar_t* layerName) {
    const zdr::Handle object = drawing().layers.at(layer(layerName)).handle;
    for (const zdr::ExtendedData& each : drawing().extendedData)
        if (each.object == object && each.application == L"ZVH")
            return lines(plain::nodesOf(each.values));
    return {};
}

std::wstring LegacyTest::styleHandle(const wchar_t* name) {
    const KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(name), KelDb::kForRead);
    wchar_t buffer[17] = {};
    record->plotStyleNameId().handle().getIntoAsciiBuffer(buffer);
    return buffer;
}

std::size_t LegacyTest::releaseKeptChains() {
    const std::vector<const void*> heads = instruments::keysOf("chain node of type 1001");
    for (const void* head : heads)
        kelutRelRb(static_cast<ResultBuffer*>(const_cast<void*>(head)));
    return heads.size();
}
