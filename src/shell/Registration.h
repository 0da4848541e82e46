// What the module enters into the host's registry: one service, and the command LAYERSTATE.
#pragma once

/// Registers the service, unless it is there already, and adds the command on top of the command stack. When it throws
/// it has done neither.
void registerLayerStateCommand();
/// Takes the service and the whole command group out again; a service that someone else removed is passed over.
void unregisterLayerStateCommand();
