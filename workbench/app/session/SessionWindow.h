// The window around a session, as the commands need it: to tell and to ask. A test answers in its place.
#pragma once

#include "model/Drawing.h"

#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// The lines of a script file.
struct Script {
    std::wstring path;
    std::vector<std::wstring> lines;
    bool keepsGoing = false; ///< also after a line that couldn't be done
};

/// What two points are for that a user gives.
enum class PickedFor {
    Window, ///< opposite corners of what is to be shown
    Move,   ///< what lies at the first one is to lie at the second
};

enum class SaveAnswer { Save, Discard, Cancel };
enum class LookAnswer { Yes, No, Cancel };

/// Whether references may lead into a folder outside this computer, as the user has answered once.
struct FolderAnswer {
    std::wstring folder;
    bool mayLook;
};

class SessionWindow {
  public:
    virtual ~SessionWindow() = default;

    /// A line, or several, into the history of the command line.
    virtual void print(const std::wstring& text) = 0;
    /// A line that was run, into the history alone.
    virtual void echo(const std::wstring& text) = 0;
    /// Tells about a failure so that it can't be missed.
    virtual void showFailure(const std::wstring& text) = 0;
    /// Asks whether to save the changes of the drawing of that name.
    virtual SaveAnswer askToSave(const std::wstring& name) = 0;
    /// Asks whether to write over a file that someone else has changed; `reason` tells what happened.
    virtual bool askToOverwrite(const std::wstring& reason) = 0;
    /// Whether somebody waits for the line that runs. The lines of scripts and of the program's start are asked nothing
    /// that they could do without.
    virtual bool isAttended() const = 0;
    /// Asks whether to look for a file outside this computer.
    virtual LookAnswer askToLookOutside(const std::wstring& question) = 0;
    /// The answers to that which are kept.
    virtual std::vector<FolderAnswer> keptAnswers() const = 0;
    /// Keeps one for all times, instead of a former one for the folder.
    virtual void keepAnswer(const FolderAnswer& answer) = 0;
    virtual void forgetAnswer(const std::wstring& folder) = 0;
    /// Asks for a path; none when the user cancels.
    virtual std::optional<std::wstring> chooseFileToOpen() = 0;
    virtual std::optional<std::wstring> chooseFileToSave(const std::wstring& proposal) = 0;
    virtual std::optional<std::wstring> chooseScript() = 0;
    /// Called when another drawing is open.
    virtual void drawingReplaced() = 0;
    /// Called when the drawing has changed, or its name, or the space or the viewport that is shown.
    virtual void drawingChanged() = 0;
    /// Shows all of the drawing.
    virtual void zoomExtents() = 0;
    /// Zooms about the middle of the view; false, and nothing is changed, when it can't go any further.
    virtual bool zoomBy(double factor) = 0;
    /// Shows the rectangle between two opposite corners, in the units of the space on view, as large as it fits. False,
    /// and nothing is changed, when it is too small or too large for that.
    virtual bool zoomTo(zdr::Point corner, zdr::Point opposite) = 0;
    /// Goes back to what the space on view has shown before; false when it has shown nothing else.
    virtual bool zoomPrevious() = 0;
    /// Moves what is shown, in the units of the space on view.
    virtual void moveBy(zdr::Point displacement) = 0;
    /// Lets the user give two points, and then runs ZOOM WINDOW or PAN with them. False while a script runs, whose
    /// lines wait for nobody.
    virtual bool pickPoints(PickedFor purpose) = 0;
    /// Shows a text about the program until the user closes it.
    virtual void showAbout(const std::wstring& text) = 0;
    /// Called when somebody who waits for it has opened the drawing's file, or saved it under another name.
    virtual void fileOpened(const std::wstring& path) = 0;
    /// Called when they wanted to open a drawing whose file isn't there.
    virtual void fileMissing(const std::wstring& path) = 0;
    /// Runs these lines before all others that wait. False, and nothing is run, when scripts run each other too deep.
    virtual bool runScript(Script script) = 0;
    /// Loads a module into the program; without a folder in the path, one that lies beside the program.
    /// @return empty, or in one sentence why it can't be
    virtual std::wstring loadModule(const std::wstring& path) = 0;
    /// Unloads the module of one of the paths below; false when it hasn't agreed to be.
    virtual bool unloadModule(const std::wstring& path) = 0;
    /// The full paths of the modules that are loaded, in the order in which they were.
    virtual std::vector<std::wstring> loadedModules() const = 0;
    /// Ends the program; unsaved changes have been dealt with.
    virtual void quit() = 0;
};

} // namespace workbench
