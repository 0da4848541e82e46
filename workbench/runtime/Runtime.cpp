#include "Runtime.h"

#include "CommandLineOutput.h"
#include "RuntimeParts.h"

namespace runtime {

void reset() {
    resetDocuments();
    resetSystemRegistry();
    resetDisplay();
    resetSystemVariables();
    setOutputSink({});
    setAbortHandler({});
}

} // namespace runtime
