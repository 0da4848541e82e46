// The functions behind the rows of the command table, a group of them in each file. They tell the user through the
// session's window what they did, or in one sentence why they couldn't.
#pragma once

#include "Command.h"

namespace workbench::commands {

/// @name FileCommands.cpp
/// @{
void newDrawing(Session& session, const CommandText& text);
void open(Session& session, const CommandText& text);
void save(Session& session, const CommandText& text);
void saveAs(Session& session, const CommandText& text);
void script(Session& session, const CommandText& text);
void quit(Session& session, const CommandText& text);
/// @}

/// @name ViewCommands.cpp
/// @{
void undo(Session& session, const CommandText& text);
void redo(Session& session, const CommandText& text);
void model(Session& session, const CommandText& text);
void layout(Session& session, const CommandText& text);
void viewport(Session& session, const CommandText& text);
void regenerate(Session& session, const CommandText& text);
/// @}

/// @name ZoomCommand.cpp
/// @{
/// ZOOM with a factor.
void zoom(Session& session, const CommandText& text);
std::span<const Option> zoomOptions();
void pan(Session& session, const CommandText& text);
/// @}

/// LayerCommand.cpp
std::span<const Option> layerOptions();
/// ViewportLayerCommand.cpp
std::span<const Option> viewportLayerOptions();

/// @name InquiryCommands.cpp
/// @{
void units(Session& session, const CommandText& text);
void references(Session& session, const CommandText& text);
/// @}

/// @name ReferenceCommands.cpp
/// @{
void attach(Session& session, const CommandText& text);
void reload(Session& session, const CommandText& text);
void unload(Session& session, const CommandText& text);
void detach(Session& session, const CommandText& text);
/// @}

/// OutsideCommand.cpp
std::span<const Option> outsideOptions();
/// ModuleCommand.cpp
std::span<const Option> moduleOptions();
/// VariableCommand.cpp
void setVariable(Session& session, const CommandText& text);
/// HelpCommand.cpp
void help(Session& session, const CommandText& text);
/// AboutCommand.cpp
void about(Session& session, const CommandText& text);

} // namespace workbench::commands
