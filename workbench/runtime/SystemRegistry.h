// The system registry as the host itself uses it, and what modules have declared about themselves.
#pragma once

#include "KelRuntime.h"

namespace runtime {

/// The registry and the command stack in it, without a line in the trace.
KELDB_API KelRtDictionary& systemRegistry();
KELDB_API KelEdCommandStack& commandStack();

/// What a module declared with the packet that it was loaded with.
struct ModuleDeclarations {
    bool acceptsUnload = false; ///< handed the packet to the dynamic linker
    bool mdiAware = false;      ///< works with several open documents
};

/// The packet is only a key and is never looked into.
KELDB_API ModuleDeclarations declarationsOf(const void* packet);
/// Drops what the module of that packet declared.
KELDB_API void forgetDeclarations(const void* packet);

} // namespace runtime
