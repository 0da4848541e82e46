// The window around a session, as the commands need it: to tell and to ask. A test answers in its place.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace workbench {

enum class SaveAnswer { Save, Discard, Cancel };

class SessionWindow {
  public:
    virtual ~SessionWindow() = default;

    /// A line, or several, into the history of the command line.
    virtual void print(const std::wstring& text) = 0;
    /// A line that was run, into the history alone.
    virtual void echo(const std::wstring& text) = 0;
    /// Tells about a failure so that it can't be missed.
    virtual void showFailure(const std::wstring& text) = 0;
    /// What is to become of the unsaved changes of the drawing of that name.
    virtual SaveAnswer askToSave(const std::wstring& name) = 0;
    /// Whether to write over a file that someone else has changed; `reason` tells what happened.
    virtual bool askToOverwrite(const std::wstring& reason) = 0;
    /// A path from the user; none when he thinks better of it.
    virtual std::optional<std::wstring> chooseFileToOpen() = 0;
    virtual std::optional<std::wstring> chooseFileToSave(const std::wstring& proposal) = 0;
    virtual std::optional<std::wstring> chooseScript() = 0;
    /// Another drawing is open, or the same under another name.
    virtual void drawingReplaced() = 0;
    /// The drawing has changed, or what is shown of it: space, viewport.
    virtual void drawingChanged() = 0;
    /// Shows all of the drawing.
    virtual void zoomExtents() = 0;
    /// Zooms about the middle of the view.
    virtual void zoomBy(double factor) = 0;
    /// Tells that the user thought better of choosing a file.
    void tellNothingChosen() { print(L"No file is chosen, and nothing has changed.\n"); }
    /// Runs these lines before all others that wait. False when too many scripts wait for each other.
    virtual bool runScript(const std::vector<std::wstring>& lines) = 0;
    /// Ends the program; unsaved changes have been dealt with.
    virtual void quit() = 0;
};

} // namespace workbench
