// What opens the module's dialogs: the command, and the exports for other parts of the host.
#pragma once

#include <afxwin.h>

/// Body of LAYERSTATE: the layer states manager with no parent. Doesn't answer what the user did.
void runLayerStateCommand();

/// The same over a window of the host's. `parent` may be null.
extern "C" void keldbLayerStateManagerDialog(CWnd* parent);

/// The new layer state dialog over a window of the host's, without the manager. What is saved by it is restored
/// straight away, with the flags at 0. `parent` may be null.
extern "C" void keldbLayerStateSaveDialog(CWnd* parent);
