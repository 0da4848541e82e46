// Putting a block on its layer, and taking it out of the layer's chain.
#include "CQSETList.h"
#include "KelDbPointers.h"
#include "LegacyChain.h"
#include "WorkingDatabase.h"

#include <cstdlib>

namespace {

/// The nodes of a block behind its opening marker.
enum BlockPosition : int {
    flagsPosition,
    colorPosition,
    linetypePosition,
    /// The marks of the current layer and of the viewport stand before it, where there are any.
    lineWeightPosition,
    plottablePosition,
    plotStylePosition
};

ResultBuffer* findMarker(ResultBuffer* node, const CString& marker) {
    while (node && !isMarker(*node, marker))
        node = node->next;
    return node;
}

} // namespace

bool CQSETList::restoreBlock(const wchar_t* name) {
    const ResultBuffer* node = findMarker(m_extendedData, openingMarker(name));
    if (!node)
        return true;
    const CString closing = closingMarker(name);
    int position = flagsPosition;
    for (node = node->next; node && !isMarker(*node, closing); node = node->next)
        if (restoreItem(position, *node))
            ++position;
    return true;
}

// A node of another kind than its position asks for is passed over and uses the position up all the same, but for the
// lineweight's: that one waits for its node.
bool CQSETList::restoreItem(int position, const ResultBuffer& node) {
    switch (position) {
    case flagsPosition:
        if (node.type == kExtendedInt16)
            restoreFlags(node.value.int16);
        return true;
    case colorPosition:
        if (node.type == kExtendedInt16)
            restoreColor(node.value.int16);
        return true;
    case linetypePosition:
        if (const wchar_t* linetype = textOf(node))
            restoreLinetype(linetype);
        return true;
    case lineWeightPosition:
        if (node.type == kExtendedInt32) {
            static_cast<void>(m_layer->setLineWeight(node.value.int32));
            return true;
        }
        if (node.type == kExtendedInt16 && node.value.int16 == 1)
            restoreCurrentLayer();
        return false;
    case plottablePosition:
        if (node.type == kExtendedInt32)
            static_cast<void>(m_layer->setIsPlottable(node.value.int32 == 1));
        return true;
    case plotStylePosition:
        if (node.type == kExtendedHandle && node.value.string)
            restorePlotStyle(node.value.string);
        return true;
    default:
        return true;
    }
}

void CQSETList::restoreFlags(int flags) {
    static_cast<void>(m_layer->setIsFrozen((flags & kLegacyFrozen) != 0));
    m_layer->setVPDFLT((flags & kLegacyNewVpFrozen) != 0);
    m_layer->setIsLocked((flags & kLegacyLocked) != 0);
}

void CQSETList::restoreColor(int color) {
    m_layer->setIsOff(color < 0);
    KelCmColor restored;
    static_cast<void>(restored.setColorIndex(static_cast<unsigned short>(std::abs(color))));
    m_layer->setColor(restored);
}

void CQSETList::restoreLinetype(const wchar_t* name) {
    const KelDbSymbolTablePointer<KelDbLinetypeTable> table(workingDatabase(), KelDb::kForRead);
    KelDbObjectId linetype;
    if (table.openStatus() == Vorn::eOk && table->getAt(name, linetype, false) == Vorn::eOk)
        m_layer->setLinetypeObjectId(linetype);
}

void CQSETList::restoreCurrentLayer() {
    // A layer that is open for writing can't be made the current one.
    if (m_layer->downgradeOpen() != Vorn::eOk)
        return;
    if (KelDbDatabase* database = workingDatabase())
        static_cast<void>(database->setClayer(m_layer->objectId()));
    static_cast<void>(m_layer->upgradeOpen());
}

void CQSETList::restorePlotStyle(const wchar_t* handle) {
    KelDbHandle of;
    of = handle;
    KelDbObjectId style;
    if (m_database->getKelDbObjectId(style, false, of, 0) == Vorn::eOk)
        static_cast<void>(m_layer->setPlotStyleName(style));
}

// All blocks of that name go; one that isn't closed stays.
bool CQSETList::deleteBlock(const wchar_t* name) {
    const CString wanted(name);
    ResultBuffer** link = &m_extendedData;
    while (ResultBuffer* opening = *link) {
        const wchar_t* opened = openedName(*opening);
        const bool matches = opened && wanted.CompareNoCase(opened) == 0;
        ResultBuffer* closing = matches ? findMarker(opening->next, closingMarker(opened)) : nullptr;
        if (!closing) {
            link = &opening->next;
            continue;
        }
        *link = closing->next;
        closing->next = nullptr;
        kelutRelRb(opening);
    }
    return true;
}
