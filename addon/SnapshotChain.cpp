#include "SnapshotChain.h"

#include <cstdlib>
#include <cwchar>

namespace {

/// Takes the values of a chain one by one. Once a node isn't of the code that is asked for, it has failed.
class ChainReader {
  public:
    explicit ChainReader(const ResultBuffer* node) : m_node(node) {}
    bool atEnd() const { return !m_node; }
    bool hasFailed() const { return m_failed; }
    std::wstring text(int code) {
        const ResultBuffer* node = take(code);
        return node && node->value.string ? node->value.string : L"";
    }
    std::int16_t int16() {
        const ResultBuffer* node = take(kExtendedInt16);
        return node ? node->value.int16 : std::int16_t{0};
    }
    std::int32_t int32() {
        const ResultBuffer* node = take(kExtendedInt32);
        return node ? node->value.int32 : 0;
    }

  private:
    const ResultBuffer* take(int code) {
        m_failed = m_failed || !m_node || m_node->type != code;
        if (m_failed)
            return nullptr;
        const ResultBuffer* taken = m_node;
        m_node = m_node->next;
        return taken;
    }
    const ResultBuffer* m_node;
    bool m_failed = false;
};

/// Puts a chain together, until memory runs out.
class ChainWriter {
  public:
    /// The whole chain; null when memory ran out.
    SnapshotChain take() { return m_failed ? nullptr : std::move(m_first); }
    void addText(int code, const std::wstring& text) {
        ResultBuffer* node = add(code);
        if (!node)
            return;
        // The host frees it by the runtime library's free.
        node->value.string = static_cast<wchar_t*>(std::malloc((text.size() + 1) * sizeof(wchar_t)));
        if (node->value.string)
            std::wmemcpy(node->value.string, text.c_str(), text.size() + 1);
        else
            m_failed = true;
    }
    void addInt16(std::int16_t value) {
        if (ResultBuffer* node = add(kExtendedInt16))
            node->value.int16 = value;
    }
    void addInt32(std::int32_t value) {
        if (ResultBuffer* node = add(kExtendedInt32))
            node->value.int32 = value;
    }

  private:
    ResultBuffer* add(int code) {
        ResultBuffer* node = kelutNewRb(code);
        if (!node) {
            m_failed = true;
            return nullptr;
        }
        if (m_last)
            m_last->next = node;
        else
            m_first.reset(node);
        return m_last = node;
    }
    SnapshotChain m_first;
    ResultBuffer* m_last = nullptr;
    bool m_failed = false;
};

} // namespace

std::optional<std::vector<SnapshotOfLayer>> readSnapshots(const KelDbLayerTableRecord& layer) {
    std::vector<SnapshotOfLayer> snapshots;
    const SnapshotChain chain(layer.getExtendedData(kSnapshotApplication));
    if (!chain)
        return snapshots;
    ChainReader reader(chain->next);
    while (!reader.atEnd()) {
        SnapshotOfLayer& each = snapshots.emplace_back();
        each.name = reader.text(kExtendedString);
        each.flags = reader.int16();
        each.color = static_cast<std::uint32_t>(reader.int32());
        each.linetype = reader.text(kExtendedHandle);
        each.lineWeight = reader.int32();
        each.plotStyle = reader.text(kExtendedHandle);
        if (reader.hasFailed())
            return std::nullopt;
    }
    return snapshots;
}

Vorn::ErrorStatus writeSnapshots(KelDbLayerTableRecord& layer, const std::vector<SnapshotOfLayer>& snapshots) {
    ChainWriter writer;
    writer.addText(kExtendedAppName, kSnapshotApplication);
    for (const SnapshotOfLayer& each : snapshots) {
        writer.addText(kExtendedString, each.name);
        writer.addInt16(each.flags);
        writer.addInt32(static_cast<std::int32_t>(each.color));
        writer.addText(kExtendedHandle, each.linetype);
        writer.addInt32(each.lineWeight);
        writer.addText(kExtendedHandle, each.plotStyle);
    }
    const SnapshotChain chain = writer.take();
    return chain ? layer.setExtendedData(chain.get()) : Vorn::eOutOfMemory;
}
