// The open drawing: opening and saving it, undoing its changes, choosing the space that is shown. There is no window in
// here; what the user has to be told or asked goes through the SessionWindow.
#pragma once

#include "SessionWindow.h"
#include "TypedPaths.h"

#include "files/References.h"
#include "files/SystemFile.h"
#include "model/Drawing.h"

#include <cstdint>
#include <functional>

class KelDbDatabase;

namespace workbench {

class Session {
  public:
    /// Starts with a new drawing.
    explicit Session(SessionWindow& window);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    SessionWindow& window() const { return m_window; }
    KelDbDatabase& database() const;
    const zdr::Drawing& drawing() const;
    /// The drawing's file name without its folder, or a name for one that was never saved.
    std::wstring name() const;
    /// The drawing's full path; empty for one that was never saved.
    const std::wstring& path() const { return m_path; }
    /// The folder of the drawing's file; empty for one that was never saved.
    std::wstring folder() const;
    bool isModified() const;

    /// To be called before each command.
    void beginCommand();
    /// Names the command that runs as people know it: "LAYER FREEZE". What it changes is told by this name when it is
    /// taken back.
    void nameCommand(std::wstring name) { m_command = std::move(name); }
    /// Tells in a line why the command that runs can't be done.
    void refuse(const std::wstring& text);
    /// The same, so that it can't be missed.
    void fail(const std::wstring& text);
    void tellNothingChosen() { refuse(L"No file is chosen, and nothing has changed.\n"); }
    /// Whether the command that runs, or ran last, couldn't be done.
    bool isRefused() const { return m_refused; }

    // Each tells the user when it fails, and leaves everything as it was then. For an empty path the user is asked.
    void newDrawing();
    void open(const std::wstring& path);
    bool save();
    bool saveAs(const std::wstring& path);
    /// Asks the user about unsaved changes, if there are any. Answers whether the drawing may be closed.
    bool mayClose();
    /// Takes back as many steps, or as many as there are, and tells their names.
    void undo(int steps);
    void redo(int steps);
    bool canUndo() const;
    bool canRedo() const;

    void showModel();
    /// Shows the sheet of that name.
    void showLayout(const std::wstring& name);
    /// Shows the space of a tab: 0 the model tab, n the n-th sheet.
    void showTab(std::size_t tab);
    /// Makes the viewport of that number the current one; 0 for none.
    void makeViewportCurrent(int number);
    /// Sets what a viewport shows of model space: the point in its middle, and millimetres of paper for a unit. That
    /// stands on the paper, so it is a change of the drawing. For one viewport, all of them one after the other with
    /// nothing else changed between are one step of undo.
    void showInViewport(zdr::Handle viewport, zdr::Point center, double scale);

    /// Runs a change of the drawing as one transaction, which is one step of undo, and shows what came of it.
    void change(const std::function<void(KelDbDatabase&)>& step);
    /// Puts another content into the open drawing. That counts as a change of it, but can't be undone.
    void rebuild(zdr::Drawing drawing);
    /// Tells which layer states got other names when their file was read; of them those alone whose new names begin
    /// with `prefix`.
    void tellMendedNames(std::wstring_view prefix = {});
    /// Tells which references aren't shown, and why.
    void tellProblems(const std::vector<zdr::ReferenceProblem>& problems);
    /// Runs a command of a module, which is the one that was named, with what was typed behind its name; what it
    /// changes is one step of undo.
    void runModuleCommand(void (*function)(), const std::wstring& arguments);

  private:
    struct ReadDrawing {
        zdr::Drawing drawing;
        zdr::FileStamp stamp;
    };

    /// None when it can't be read; the user has been told why then.
    std::optional<ReadDrawing> readDrawing(const SoughtFile& file);
    void replaceDrawing(zdr::Drawing drawing, std::wstring path, const zdr::FileStamp& stamp);
    bool write(const std::wstring& path, zdr::FileStamp stamp);
    void markOpen();
    void tellUnloaded();
    std::vector<std::wstring> carry(int steps, std::wstring (*nameOf)(const KelDbDatabase&),
                                    bool (*step)(KelDbDatabase&));
    template <class Change> bool changeView(Change change);
    bool showSpace(std::optional<std::size_t> layout);
    bool showViewport(std::optional<zdr::Handle> viewport);
    void showSheet(std::size_t layout);

    SessionWindow& m_window;
    std::wstring m_path;
    zdr::FileStamp m_stamp;
    zdr::OpenMark m_mark;
    std::wstring m_command; ///< that runs, or ran last
    bool m_refused = false;
    std::uint64_t m_savedContent = 0;  ///< the content's number when the drawing was opened or last saved
    zdr::Handle m_zoomed = 0;          ///< the viewport that was changed last
    std::uint64_t m_zoomedContent = 0; ///< the content's number after that
};

} // namespace workbench
