// ABOUT: what the program tells about itself.

#include "AboutText.h"
#include "CommandFunctions.h"
#include "Session.h"

namespace workbench::commands {

void about(Session& session, const CommandText&) {
    session.window().showAbout(aboutText());
}

} // namespace workbench::commands
