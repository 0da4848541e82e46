// Brings layer states of two older stores into the drawing: those of the older layer tool, and the snapshots of the
// add-on "TrelUiBase.xmod", where that is loaded. Nothing remembers that it was done; what has gone over is no longer
// in the old store.
#pragma once

#include <afxwin.h>

/// Runs both and tells the user in one message how many states came. Without any it says nothing.
void migrateLayerStates();

/// The first: convertLegacyStates under the module's resources. The flag isn't looked at.
bool convertLegacyLayerStates(int& count, bool);
/// The second: a SnapshotResult. The flag isn't looked at.
int convertLayerSnapshots(int& count, bool);
/// Whether the current profile lets the snapshots be converted, which it does unless its value
/// "BypassSnapshotConversion" says otherwise.
bool snapshotConversionAllowed();
/// The product's name as the registry has it, or else as the host tells it.
CString productDisplayName();
