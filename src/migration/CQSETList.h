// The layer states of the older layer tool, which kept them in the extended data of the layers under "ZVH". A state
// isn't recorded as such: it is the sum of the blocks that bear its name, one on each layer that took part in it.
//
// The chain of a layer is a 1001 node with "ZVH" and then blocks, each of these nodes:
//   1000  "{" and the state's name; in upper case, as at the end
//   1070  flags: 1 frozen, 2 frozen in new viewports, 4 locked, 16 resolved, 32 dependent
//   1070  colour index, negative when the layer is off
//   1000  linetype name
//   1070  1, only on the layer that was the current one
//   1000  the layer's name, only when it was frozen in the viewport that was current
//   1071  lineweight in hundredths of a millimetre, or a negative code
//   1071  1 when the layer plots, otherwise 0
//   1005  handle of the layer's plot style name
//   1000  the state's name and "}"
#pragma once

#include "KelDbDatabase.h"

#include <afxcoll.h>

/// Reads those states, puts them on the layers, and takes them out. Names are compared without regard to case.
class CQSETList {
  public:
    /// What applyToLayers does to each layer.
    enum Operation : int { OpWrite, OpRename, OpDelete, OpRestore };

    /// Collects the names of the states.
    /// @param database the drawing, which stays the caller's; null makes an empty list
    explicit CQSETList(KelDbDatabase* database);
    virtual ~CQSETList();
    CQSETList(const CQSETList&) = delete;
    CQSETList& operator=(const CQSETList&) = delete;

    int count() const { return m_count; }
    /// Hands out the next name as currentName(), in the order of first sight: by layer, then by place in its chain.
    /// @return false when all have been handed out
    bool takeNextName();
    const CString& currentName() const { return m_currentName; }

    /// Walks all layers of the working drawing, each open for writing, and stops at the first failure; what was changed
    /// before that stays changed.
    /// @return whether every layer could be opened and, but for OpRestore, its extended data be set
    bool applyToLayers(int operation, const wchar_t* name);

  protected:
    CStringArray m_names;
    CString m_currentName;
    int m_count;
    int m_nextIndex;
    KelDbDatabase* m_database;
    /// The layer that a walk has open.
    KelDbLayerTableRecord* m_layer;
    /// That layer's chain, null when it has none.
    ResultBuffer* m_extendedData;

  private:
    void collectNames();
    void collectNames(const ResultBuffer* chain);
    bool holdsName(const wchar_t* name) const;
    bool applyToLayer(int operation, const wchar_t* name);
    /// Gives the layer the chain, if there is one.
    bool storeChain();

    bool writeBlock(const wchar_t* name);
    bool renameBlock(const wchar_t* name, const wchar_t* newName = L"");
    bool deleteBlock(const wchar_t* name);
    bool restoreBlock(const wchar_t* name);
    /// Puts one node of a block on the layer.
    /// @return whether the node uses up its position
    bool restoreItem(int position, const ResultBuffer& node);
    void restoreFlags(int flags);
    void restoreColor(int color);
    void restoreLinetype(const wchar_t* name);
    void restoreCurrentLayer();
    void restorePlotStyle(const wchar_t* handle);
};
