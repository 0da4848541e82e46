#include "Session.h"

#include "CommandLineInput.h"
#include "CommandText.h"
#include "Documents.h"
#include "KelEditor.h"
#include "MendedNames.h"
#include "OutsideQuestions.h"

#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/OutsidePaths.h"
#include "files/TextCoding.h"
#include "values/ReservedWords.h"

#include <algorithm>

namespace workbench {

namespace {

/// Starts a transaction, and ends it at the end of its scope.
class Transaction {
  public:
    explicit Transaction(KelTransactionManager& manager)
        : m_manager(manager), m_started(manager.startTransaction() != nullptr) {}
    ~Transaction() {
        if (m_started)
            m_manager.endTransaction();
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    bool isStarted() const { return m_started; }

  private:
    KelTransactionManager& m_manager;
    bool m_started;
};

/// All changes made while it lives are one step of undo.
class UndoGroup {
  public:
    UndoGroup(KelDbDatabase& database, std::wstring name) : m_database(database) {
        engine::beginUndoGroup(database, std::move(name));
    }
    ~UndoGroup() { engine::endUndoGroup(m_database); }
    UndoGroup(const UndoGroup&) = delete;
    UndoGroup& operator=(const UndoGroup&) = delete;

  private:
    KelDbDatabase& m_database;
};

/// "LAYER FREEZE", or "3 changes, LAYER FREEZE, LAYER NEW, UNLOAD", and that there were fewer than wanted.
std::wstring stepsText(const std::vector<std::wstring>& names, int wanted) {
    const std::size_t count = names.size();
    std::wstring text = count == 1 ? names[0] : std::to_wstring(count) + L" changes, " + listed(names);
    if (count < static_cast<std::size_t>(wanted))
        text += L". There are no more";
    return text + L".\n";
}

} // namespace

Session::Session(SessionWindow& window) : m_window(window) {
    runtime::openDocument(std::make_unique<KelDbDatabase>(true, false), {});
    m_savedContent = engine::contentNumber(database());
}

Session::~Session() {
    if (runtime::Document* document = runtime::currentDocument())
        runtime::closeDocument(*document);
}

KelDbDatabase& Session::database() const {
    return runtime::currentDocument()->data();
}

const zdr::Drawing& Session::drawing() const {
    return engine::drawingOf(database());
}

std::wstring Session::name() const {
    return m_path.empty() ? L"Drawing1" : zdr::widePath(zdr::systemPath(m_path).filename());
}

std::wstring Session::folder() const {
    return zdr::widePath(zdr::systemPath(m_path).parent_path());
}

bool Session::isModified() const {
    return engine::contentNumber(database()) != m_savedContent;
}

void Session::replaceDrawing(zdr::Drawing drawing, std::wstring path, const zdr::FileStamp& stamp) {
    runtime::Document* former = runtime::currentDocument();
    auto database = std::make_unique<KelDbDatabase>(false, false);
    engine::replaceDrawing(*database, std::move(drawing));
    runtime::openDocument(std::move(database), path);
    if (former)
        runtime::closeDocument(*former);
    m_path = std::move(path);
    m_stamp = stamp;
    m_mark = {};
    m_zoomed = 0;
    m_savedContent = engine::contentNumber(this->database());
}

/// Marks the file for other programs, tells when one of them has it open, and has it remembered as used by the person.
void Session::markOpen() {
    m_mark = {}; // first, since this drawing's own mark isn't another program's
    m_mark = zdr::OpenMark(m_path);
    if (m_window.isAttended())
        m_window.fileOpened(m_path);
    if (m_mark.isOthers())
        m_window.print(L"Another program has " + quotation(name()) +
                       L" open too: whoever saves it later is asked before the other's changes go.\n");
}

void Session::beginCommand() {
    m_refused = false;
    m_command.clear();
}

void Session::refuse(const std::wstring& text) {
    m_refused = true;
    m_window.print(text);
}

void Session::fail(const std::wstring& text) {
    m_refused = true;
    m_window.showFailure(text);
}

void Session::newDrawing() {
    if (!mayClose())
        return;
    replaceDrawing(engine::makeNewDrawing(), {}, {});
    m_window.drawingReplaced();
    m_window.print(L"A new drawing is open.\n");
}

std::optional<Session::ReadDrawing> Session::readDrawing(const SoughtFile& file) {
    ReadDrawing read;
    std::wstring reason;
    const Vorn::ErrorStatus status = zdr::readDrawingFile(file.path, read.drawing, reason, &read.stamp);
    if (status == Vorn::eOk)
        return read;
    if (status == Vorn::eCancelled)
        refuse(reason + L"\n");
    else if (status == Vorn::eFileNotFound)
        fail(advised(file.completed(reason), L"check its name and folder"));
    else
        fail(advised(reason, L"choose another one"));
    if (status == Vorn::eFileNotFound && m_window.isAttended())
        m_window.fileMissing(file.path);
    return std::nullopt;
}

void Session::open(const std::wstring& path) {
    const auto chosen = path.empty() ? m_window.chooseFileToOpen() : path;
    if (!chosen) {
        tellNothingChosen();
        return;
    }
    const SoughtFile file = soughtDrawing(*chosen, m_path);
    // Read before anything is asked: a file that can't be read is no reason to give up the open drawing. And read again
    // afterwards, because it may be this very file that the answer saves.
    std::optional<ReadDrawing> read = readDrawing(file);
    if (read && isModified())
        read = mayClose() ? readDrawing(file) : std::nullopt;
    if (!read)
        return;
    std::vector<zdr::ReferenceProblem> problems;
    OutsideQuestions questions(m_window);
    zdr::resolveReferences(read->drawing, file.path, problems,
                           [&](const zdr::OutsideReference& reference) { return questions.whyNot(reference); });
    replaceDrawing(std::move(read->drawing), file.path, read->stamp);
    m_window.drawingReplaced();
    tellProblems(problems);
    tellUnloaded();
    tellMendedNames();
    m_window.print(L"Opened " + file.path + L".\n");
    markOpen();
}

void Session::tellProblems(const std::vector<zdr::ReferenceProblem>& problems) {
    for (const zdr::ReferenceProblem& problem : problems)
        m_window.print(L"Reference \"" + problem.name + L"\" is not shown: " + problem.reason + L"\n");
}

void Session::tellUnloaded() {
    for (const zdr::Reference& reference : drawing().references)
        if (reference.unloaded)
            m_window.print(L"Reference \"" + reference.name + L"\" is unloaded: RELOAD shows it.\n");
}

void Session::tellMendedNames(std::wstring_view prefix) {
    if (const std::wstring text = mendedNamesText(drawing(), prefix); !text.empty())
        m_window.print(text);
}

bool Session::write(const std::wstring& path, zdr::FileStamp stamp) {
    std::wstring reason;
    Vorn::ErrorStatus status = zdr::writeDrawingFile(path, drawing(), reason, stamp);
    if (status == Vorn::eFileChangedOnDisk) {
        if (!m_window.askToOverwrite(reason)) {
            refuse(L"The file stays as it is, and the drawing isn't saved.\n");
            return false;
        }
        status = zdr::writeDrawingFile(path, drawing(), reason, stamp, zdr::Overwrite::Always);
    }
    if (status == Vorn::eCancelled) {
        refuse(reason + L"\n");
        return false;
    }
    if (status != Vorn::eOk) {
        fail(advised(reason, L"choose another name or folder by SAVEAS"));
        return false;
    }
    const bool isElsewhere = !zdr::isSamePath(path, m_path);
    m_path = path;
    m_stamp = stamp;
    m_savedContent = engine::contentNumber(database());
    runtime::currentDocument()->setPath(path);
    m_window.drawingChanged();
    m_window.print(L"Saved " + path + L".\n");
    if (isElsewhere)
        markOpen();
    return true;
}

bool Session::save() {
    return m_path.empty() ? saveAs({}) : write(m_path, m_stamp);
}

bool Session::saveAs(const std::wstring& path) {
    const std::wstring proposal = m_path.empty() ? name() + kDrawingEnding : m_path;
    const auto chosen = path.empty() ? m_window.chooseFileToSave(proposal) : path;
    if (!chosen) {
        tellNothingChosen();
        return false;
    }
    const std::wstring full = drawingToWrite(*chosen, m_path);
    if (const std::wstring problem = fileNameProblem(full); !problem.empty()) {
        fail(problem);
        return false;
    }
    return write(full, zdr::isSamePath(full, m_path) ? m_stamp : zdr::FileStamp{});
}

bool Session::mayClose() {
    if (!isModified())
        return true;
    switch (m_window.askToSave(name())) {
    case SaveAnswer::Save:
        return save();
    case SaveAnswer::Discard:
        return true;
    case SaveAnswer::Cancel:
        break;
    }
    refuse(L"The drawing stays open.\n");
    return false;
}

bool Session::canUndo() const {
    return engine::canUndo(database());
}

bool Session::canRedo() const {
    return engine::canRedo(database());
}

std::vector<std::wstring> Session::carry(int steps, std::wstring (*nameOf)(const KelDbDatabase&),
                                         bool (*step)(KelDbDatabase&)) {
    std::vector<std::wstring> names;
    for (; steps > 0; --steps) {
        std::wstring name = nameOf(database());
        if (!step(database()))
            break;
        names.push_back(name.empty() ? L"a change without a name" : std::move(name));
    }
    if (!names.empty())
        m_window.drawingChanged();
    return names;
}

void Session::undo(int steps) {
    const std::vector<std::wstring> names = carry(steps, engine::undoName, engine::undo);
    if (names.empty())
        refuse(L"There is nothing to undo: change the drawing first.\n");
    else
        m_window.print(L"Undone: " + stepsText(names, steps));
}

void Session::redo(int steps) {
    const std::vector<std::wstring> names = carry(steps, engine::redoName, engine::redo);
    if (names.empty())
        refuse(L"There is nothing to redo: take a change back by UNDO first.\n");
    else
        m_window.print(L"Made again: " + stepsText(names, steps));
}

// The file keeps which space and viewport are shown, but looking at another one is no change of the drawing.
template <class Change> bool Session::changeView(Change change) {
    if (change(database()) != Vorn::eOk)
        return false;
    m_window.drawingChanged();
    return true;
}

bool Session::showSpace(std::optional<std::size_t> layout) {
    return changeView([layout](KelDbDatabase& database) { return engine::setActiveLayout(database, layout); });
}

bool Session::showViewport(std::optional<zdr::Handle> viewport) {
    return changeView([viewport](KelDbDatabase& database) { return engine::setCurrentViewport(database, viewport); });
}

void Session::showModel() {
    if (showSpace(std::nullopt))
        m_window.print(L"Model space is shown.\n");
}

void Session::showSheet(std::size_t layout) {
    if (showSpace(layout))
        m_window.print(L"The layout " + quotation(drawing().layouts[layout].name) + L" is shown.\n");
}

void Session::showLayout(const std::wstring& name) {
    const auto& layouts = drawing().layouts;
    const auto found = std::find_if(layouts.begin(), layouts.end(),
                                    [&name](const zdr::Layout& layout) { return sameName(layout.name, name); });
    if (found != layouts.end()) {
        showSheet(static_cast<std::size_t>(found - layouts.begin()));
        return;
    }
    // The model tab bears a name like the others.
    const wchar_t* model = keldbGetReservedString(engine::kModelSpaceWord, true);
    if (model && sameName(name, model)) {
        showModel();
        return;
    }
    std::vector<std::wstring> names;
    names.reserve(layouts.size());
    for (const zdr::Layout& layout : layouts)
        names.push_back(quotation(layout.name));
    refuse(L"The drawing has no layout " + quotation(name) +
           (names.empty() ? L": MODEL shows all that it has.\n" : L": give one of " + listed(names) + L".\n"));
}

void Session::showTab(std::size_t tab) {
    if (tab == 0)
        showModel();
    else if (tab <= drawing().layouts.size())
        showSheet(tab - 1);
}

void Session::makeViewportCurrent(int number) {
    const auto active = drawing().activeLayout;
    if (!active) {
        refuse(L"The model tab has no viewports: LAYOUT shows a layout.\n");
        return;
    }
    if (number == 0) {
        if (showViewport(std::nullopt))
            m_window.print(L"The paper of the layout is current.\n");
        return;
    }
    const auto& viewports = drawing().layouts[*active].viewports;
    const auto found = std::find_if(viewports.begin(), viewports.end(),
                                    [number](const zdr::Viewport& viewport) { return viewport.number == number; });
    if (found != viewports.end()) {
        if (showViewport(found->handle))
            m_window.print(L"Viewport " + std::to_wstring(number) + L" is current.\n");
        return;
    }
    std::vector<std::wstring> numbers;
    for (const zdr::Viewport& viewport : viewports)
        if (viewport.number > 0)
            numbers.push_back(std::to_wstring(viewport.number));
    refuse(L"The layout has no viewport " + std::to_wstring(number) + L": give " +
           (numbers.empty() ? L"" : listed(numbers) + L", or ") + L"NONE.\n");
}

// What is changed outside of groups is gathered into one step, and a group ends it.
void Session::showInViewport(zdr::Handle viewport, zdr::Point center, double scale) {
    if (m_zoomed != viewport || m_zoomedContent != engine::contentNumber(database())) {
        const UndoGroup end(database(), {});
    }
    if (engine::setViewportView(database(), viewport, center, scale) != Vorn::eOk)
        return;
    const int number = engine::findViewport(drawing(), viewport)->number;
    engine::nameGatheredChanges(database(), L"zoom in viewport " + std::to_wstring(number));
    m_zoomed = viewport;
    m_zoomedContent = engine::contentNumber(database());
    m_window.drawingChanged();
}

void Session::change(const std::function<void(KelDbDatabase&)>& step) {
    {
        const UndoGroup group(database(), m_command);
        const Transaction transaction(*runtime::currentDocument()->transactionManager());
        if (!transaction.isStarted()) {
            refuse(L"The drawing can't be changed now: end what is under way and try again.\n");
            return;
        }
        step(database());
    }
    m_window.drawingChanged();
}

void Session::rebuild(zdr::Drawing drawing) {
    engine::replaceDrawing(database(), std::move(drawing));
    m_window.drawingChanged();
}

void Session::runModuleCommand(void (*function)(), const std::wstring& arguments) {
    const runtime::CommandArguments given(arguments);
    const UndoGroup group(database(), m_command);
    function();
}

} // namespace workbench
