// What the runtime's parts need of each other, and of nobody else: access without a line in the trace, and the steps
// of a reset.
#pragma once

class KelDbDatabase;

namespace runtime {

KelDbDatabase* workingDatabase();
void setWorkingDatabase(KelDbDatabase* database);

void resetSystemRegistry();
void resetDisplay();
void resetDocuments();
void resetSystemVariables();

} // namespace runtime
