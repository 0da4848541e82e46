// What an import has brought, as far as the host tells it.
#pragma once

#include "KelDbDatabase.h"

#include <afx.h>

#include <memory>
#include <set>
#include <string>

/// The names that the list's rows bear, asked for without regard to case.
class RowNames {
  public:
    /// A row without a name counts for nothing.
    void add(const CString& name);
    bool hold(const wchar_t* name) const;

  private:
    std::set<std::wstring> m_names; ///< in lower case; names from files may be chosen to have equal hashes
};

/// Finds the first of the drawing's states, in the host's order, that has no row in the list, which is still the one
/// from before the import. States of references count too, also where the list leaves them out.
/// @param name   receives its name
/// @param mask   receives its mask; as it was when that can't be read
/// @return 0 when there is none
int findStateWithoutRow(KelDbLayerStateManager& states, const RowNames& rows, CString& name, LayerStateMask& mask);

/// Modes of copyStateRecord.
inline constexpr int kCloneRecord = 0;
inline constexpr int kEnterRecord = 1;

/// kCloneRecord: a copy of the record of the state of that name, in memory; the caller's to delete or to enter.
/// kEnterRecord: enters `record` under that name in the place of what is there; the drawing owns it then, and the
/// answer only says that it worked. Nothing uses that.
/// @return null on a failure, and for any other mode
KelDbXrecord* copyStateRecord(int mode, const wchar_t* name, KelDbXrecord* record);

/// Enters the record under the name, which takes it over.
/// @return whether that worked; otherwise the record is deleted
bool enterStateRecord(const wchar_t* name, std::unique_ptr<KelDbXrecord> record);
