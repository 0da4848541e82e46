// Host values as the dialogs show them, and back. Nothing here shows anything to the user.
#pragma once

#include "KelDbObjectId.h"
#include "ResultBuffer.h"
#include "VornStatus.h"

#include <afx.h>

/// Sets `text` to the text of a lineweight: a width such as "0.53 mm", the host's word for by layer (-1), by block (-2)
/// or default (-3), and "*Unknown*" for anything else. Answers a pointer into `text`.
const wchar_t* lineWeightText(int lineWeight, CString& text);

/// The drawing's default lineweight in hundredths of a millimetre, or -1 when it can't be read.
int defaultLineWeight();
/// The lineweight in a system variable's value, which may be of any of the three numeric kinds; -1 for other kinds.
int lineWeightOf(const ResultBuffer& value);

/// The text of a system variable's value, in g_sysvarText and valid until the next use of that. A string in the value
/// is freed: the value isn't to be used afterwards.
const wchar_t* sysvarValueText(const ResultBuffer& value);
/// Room for the 1024 characters that wsprintfW writes at the most. There is one for the whole module, unguarded.
inline constexpr int kSysvarTextLength = 1024 + 1;
extern wchar_t g_sysvarText[kSysvarTextLength];

/// Finds a plot style of the current drawing by name; on a failure `id` stays as it was.
/// @return eNoWorkingDatabase, eNotNamedPlotStyles, the host's own failure, or eNullObjectId for an entry without an id
Vorn::ErrorStatus lookupPlotStyleId(const wchar_t* name, KelDbObjectId& id);
