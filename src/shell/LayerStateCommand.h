// What opens the layer states manager: the command, and the export for other parts of the host.
#pragma once

#include <afxwin.h>

/// Body of LAYERSTATE: the layer states manager with no parent. Doesn't answer what the user did.
void runLayerStateCommand();

/// The same over a window of the host's. `parent` may be null.
extern "C" void keldbLayerStateManagerDialog(CWnd* parent);
