// Writing a block, and giving it another name. The migration needs neither; they are here so that both sides of the
// format stand in one place.
#include "CQSETList.h"
#include "HostOwners.h"
#include "KelDbPointers.h"
#include "KelEditor.h"
#include "LegacyChain.h"
#include "WorkingDatabase.h"

#include <cstdlib>

namespace {

CString upper(const CString& text) {
    CString converted = text;
    converted.MakeUpper();
    return converted;
}

/// Appends nodes to a chain. A failure throws the message for the user, after which the chain holds what was appended
/// before.
class ChainWriter {
  public:
    explicit ChainWriter(ResultBuffer* chain) : m_last(chain) {
        while (m_last->next)
            m_last = m_last->next;
    }
    void addText(int type, const wchar_t* text, const wchar_t* failure) {
        RuntimeText copy = runtimeCopy(text);
        if (!copy)
            throw failure;
        ResultBuffer* node = newNode(type, failure); // before the copy is let go of: it may throw
        node->value.string = copy.release();
    }
    void addInt16(int value, const wchar_t* failure) {
        newNode(kExtendedInt16, failure)->value.int16 = static_cast<std::int16_t>(value);
    }
    void addInt32(int value, const wchar_t* failure) { newNode(kExtendedInt32, failure)->value.int32 = value; }

  private:
    ResultBuffer* newNode(int type, const wchar_t* failure) {
        ResultBuffer* node = kelutNewRb(type);
        if (!node)
            throw failure;
        m_last->next = node;
        m_last = node;
        return node;
    }

    ResultBuffer* m_last;
};

ResultBuffer* newChain() {
    static_cast<void>(keldbRegApp(kLegacyApplication)); // false when it is registered already
    RuntimeText application = runtimeCopy(kLegacyApplication);
    ResultBuffer* chain = application ? kelutNewRb(kExtendedAppName) : nullptr;
    if (chain)
        chain->value.string = application.release();
    return chain;
}

int flagsOf(const KelDbLayerTableRecord& layer) {
    int flags = 0;
    // The pairing of the first two with their bits is the format's.
    if (layer.isDependent())
        flags |= kLegacyDependent;
    if (layer.isResolved())
        flags |= kLegacyResolved;
    if (layer.isFrozen())
        flags |= kLegacyFrozen;
    if (layer.VPDFLT())
        flags |= kLegacyNewVpFrozen;
    if (layer.isLocked())
        flags |= kLegacyLocked;
    return flags;
}

void addLinetype(ChainWriter& block, const KelDbLayerTableRecord& layer) {
    KelDbLinetypeTableRecord* linetype = nullptr;
    if (keldbOpenObject(linetype, layer.linetypeObjectId(), KelDb::kForRead) != Vorn::eOk)
        throw L"\nUnable to retrieve linetype.";
    const wchar_t* name = nullptr;
    CString copy;
    if (linetype->getName(name) == Vorn::eOk)
        copy = name;
    closeOrAbort(*linetype);
    block.addText(kExtendedString, copy, L"\nUnable to save opening layer linetype.");
}

bool isFrozenInCurrentViewport(const KelDbObjectId& layer) {
    const KelDbObjectId id = keledGetCurViewportObjectId();
    if (id.isNull())
        return false;
    const KelDbObjectPointer<KelDbViewport> viewport(id, KelDb::kForRead);
    constexpr int kNotOn = -1;
    return viewport.openStatus() == Vorn::eOk && viewport->number() != kNotOn &&
           viewport->isLayerFrozenInViewport(layer);
}

void addMarks(ChainWriter& block, const KelDbLayerTableRecord& layer) {
    const KelDbDatabase* database = workingDatabase();
    if (database && database->clayer() == layer.objectId())
        block.addInt16(1, L"\nUnable to save layer color."); // the colour's message; there is no other
    if (!isFrozenInCurrentViewport(layer.objectId()))
        return;
    const wchar_t* name = L"";
    static_cast<void>(layer.getName(name));
    block.addText(kExtendedString, name, L"\nUnable to save opening layer frozen in viewport.");
}

void addPlotStyle(ChainWriter& block, const KelDbLayerTableRecord& layer) {
    constexpr int kHandleLength = 17;
    wchar_t handle[kHandleLength] = {};
    layer.plotStyleNameId().handle().getIntoAsciiBuffer(handle);
    block.addText(kExtendedHandle, handle, L"\nUnable to save plotstyle handle.");
}

void addBlock(ChainWriter& block, const KelDbLayerTableRecord& layer, const wchar_t* name) {
    constexpr const wchar_t* kNoLineWeight = L"\nUnable to save layer lineweight.";
    block.addText(kExtendedString, upper(openingMarker(name)), L"\nUnable to save opening layer state name.");
    block.addInt16(flagsOf(layer), L"\nUnable to save group code 70.");
    const int color = layer.color().colorIndex();
    block.addInt16(layer.isOff() ? -color : color, L"\nUnable to save layer color.");
    addLinetype(block, layer);
    addMarks(block, layer);
    block.addInt32(layer.lineWeight(), kNoLineWeight);
    block.addInt32(layer.isPlottable(), kNoLineWeight);
    addPlotStyle(block, layer);
    block.addText(kExtendedString, upper(closingMarker(name)), L"\nUnable to save closing layer state name.");
}

} // namespace

bool CQSETList::writeBlock(const wchar_t* name) {
    if (!m_extendedData)
        m_extendedData = newChain();
    if (!m_extendedData)
        return false;
    try {
        ChainWriter block(m_extendedData);
        addBlock(block, *m_layer, name);
        return true;
    } catch (const wchar_t* failure) {
        kelutPrintf(L"%s", failure);
        return false;
    }
}

bool CQSETList::renameBlock(const wchar_t* name, const wchar_t* newName) {
    const CString markers[][2] = {{upper(openingMarker(name)), upper(openingMarker(newName))},
                                  {upper(closingMarker(name)), upper(closingMarker(newName))}};
    for (ResultBuffer* node = m_extendedData; node; node = node->next)
        for (const auto& [marker, replacement] : markers) {
            const wchar_t* text = textOf(*node);
            if (!text || marker != text)
                continue;
            std::free(node->value.string);
            node->value.string = runtimeCopy(replacement).release();
            if (!node->value.string)
                return false;
            break;
        }
    return true;
}
