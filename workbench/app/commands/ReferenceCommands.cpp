// The commands of references: drawings that this one shows.

#include "CommandFunctions.h"
#include "OutsideQuestions.h"
#include "PropertyText.h"
#include "ReferenceEditing.h"
#include "Session.h"

#include "KelEditor.h"

#include "engine/DatabaseAccess.h"
#include "files/TextCoding.h"
#include "values/NameRules.h"

#include <algorithm>
#include <numbers>

namespace workbench::commands {

namespace {

// Commands of references can't be undone: that would have to bring back layers, states and styles of the other drawing.
constexpr const wchar_t* kForGood = L" UNDO goes back no further than this.\n";

/// Reads the drawings of references.
class ReferenceReader {
  public:
    explicit ReferenceReader(Session& session) : m_session(session), m_questions(session.window()) {}

    /// Null, with the reason in `reason`, when it can't be shown. What is nested in it and can't be is told.
    /// @param isChosen the user has named this very reference, or its path, and isn't asked whether to look for it
    std::shared_ptr<const zdr::Drawing> read(const zdr::Reference& reference, bool isChosen, std::wstring& reason,
                                             const SoughtFile& sought = {});

  private:
    Session& m_session;
    OutsideQuestions m_questions;
};

std::shared_ptr<const zdr::Drawing> ReferenceReader::read(const zdr::Reference& reference, bool isChosen,
                                                          std::wstring& reason, const SoughtFile& sought) {
    zdr::Drawing holder;
    holder.references.push_back(reference);
    holder.references[0].unloaded = false;
    std::vector<zdr::ReferenceProblem> problems;
    bool isLeftOut = false;
    zdr::resolveReferences(holder, m_session.path(), problems, [&](const zdr::OutsideReference& outside) {
        const bool isNested = outside.name != reference.name;
        std::wstring why = isChosen && !isNested ? std::wstring() : m_questions.whyNot(outside);
        isLeftOut = isLeftOut || (!isNested && !why.empty());
        return why;
    });
    const auto own = std::ranges::find(problems, reference.name, &zdr::ReferenceProblem::name);
    if (own == problems.end())
        m_session.tellProblems(problems);
    else
        reason =
            isLeftOut ? own->reason : advised(sought.completed(own->reason), L"check the path, or attach another one");
    return holder.references[0].drawing;
}

/// What stands in the way of a reference's name; empty when nothing does.
std::wstring nameProblem(const Session& session, const std::wstring& name) {
    const bool known = std::ranges::any_of(
        session.drawing().references, [&](const zdr::Reference& reference) { return sameName(reference.name, name); });
    if (known)
        return L"A reference is called " + quotation(name) + L" already: give another name behind the path.";
    if (KelDbSymbolUtilities::servicesPtr106()->validateSymbolName(name.c_str(), false) != Vorn::eOk)
        return quotation(name) + L" can't be the name of a reference: " + kNameAdvice +
               L"; a path with blanks goes in quotes.";
    return {};
}

/// Reads x, y, scale and angle, as far as they are given. False when x is given without y, when a word isn't a number
/// or is too large, and when the scale isn't above 0.
bool place(zdr::Reference& reference, std::span<const std::wstring> words) {
    constexpr double kFarthest = 1e9;
    constexpr double kDegree = std::numbers::pi / 180;
    double values[] = {0, 0, 1, 0};
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto value = parseNumber(words[i]);
        if (!value || *value > kFarthest || *value < -kFarthest)
            return false;
        values[i] = *value;
    }
    reference.insertion = {values[0], values[1]};
    reference.scale = values[2];
    reference.rotation = values[3] * kDegree;
    return words.size() != 1 && reference.scale > 1 / kFarthest;
}

std::vector<std::size_t> referencesNamed(Session& session, const CommandText& text) {
    const auto& references = session.drawing().references;
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < references.size(); ++i)
        if (matches(references[i].name, text.argument))
            found.push_back(i);
    if (!found.empty())
        return found;
    std::vector<std::wstring> names;
    names.reserve(references.size());
    for (const zdr::Reference& reference : references)
        names.push_back(quotedWhereNeeded(reference.name));
    session.refuse(names.empty() ? std::wstring(L"No drawing is attached: ATTACH attaches one.\n")
                                 : L"No reference is called " + quotation(text.argument) + L": give " + listed(names) +
                                       L", or * for all.\n");
    return found;
}

std::wstring nameOf(const Session& session, std::size_t reference) {
    return quotation(session.drawing().references[reference].name);
}

} // namespace

void attach(Session& session, const CommandText& text) {
    const auto chosen = text.words.empty() ? session.window().chooseFileToOpen() : unquoted(text.words[0]);
    if (!chosen) {
        session.tellNothingChosen();
        return;
    }
    zdr::Reference reference;
    const SoughtFile file = soughtDrawing(*chosen, session.path());
    // A path that is found from the drawing's folder is kept so, because the two may go elsewhere together.
    reference.path = file.fromDrawing.empty() ? file.path : file.fromDrawing;
    reference.name = newName(text.words.size() > 1 ? text.words[1] : zdr::widePath(zdr::systemPath(file.path).stem()));
    const std::span<const std::wstring> numbers(text.words);
    std::wstring problem = nameProblem(session, reference.name);
    if (problem.empty() && !place(reference, numbers.subspan(std::min<std::size_t>(2, numbers.size()))))
        problem = L"The place needs numbers: give x and y, a scale above 0 and an angle in degrees behind the name.";
    if (problem.empty()) {
        reference.drawing = ReferenceReader(session).read(reference, true, problem, file);
        if (!reference.drawing && problem.empty())
            problem = L"The drawing can't be shown.";
    }
    if (!reference.drawing) {
        session.refuse(problem + L"\n");
        return;
    }
    zdr::Drawing drawing = session.drawing();
    drawing.references.push_back(reference);
    session.rebuild(std::move(drawing));
    session.tellMendedNames(reference.name + engine::kReferenceSeparator);
    session.window().print(quotation(reference.name) + L" is attached." + kForGood);
}

void reload(Session& session, const CommandText& text) {
    std::size_t done = 0;
    ReferenceReader reader(session);
    for (const std::size_t index : referencesNamed(session, text)) {
        const zdr::Reference& reference = session.drawing().references[index];
        std::wstring reason;
        const auto drawing = reader.read(reference, sameName(reference.name, text.argument), reason);
        if (!drawing) {
            session.refuse(nameOf(session, index) + L" stays as it is: " + reason + L"\n");
            continue;
        }
        engine::attachReference(session.database(), index, drawing);
        session.tellMendedNames(session.drawing().references[index].name + engine::kReferenceSeparator);
        ++done;
    }
    if (done == 0)
        return;
    session.window().drawingChanged();
    session.window().print((done == 1 ? L"1 reference is" : std::to_wstring(done) + L" references are") +
                           std::wstring(L" read again.") + kForGood);
}

void unload(Session& session, const CommandText& text) {
    const std::vector<std::size_t> references = referencesNamed(session, text);
    if (references.empty())
        return;
    for (const std::size_t reference : references)
        engine::attachReference(session.database(), reference, nullptr);
    session.window().drawingChanged();
    session.window().print((references.size() == 1 ? nameOf(session, references[0]) + L" is"
                                                   : std::to_wstring(references.size()) + L" references are") +
                           L" left out until RELOAD." + kForGood);
}

void detach(Session& session, const CommandText& text) {
    const std::vector<std::size_t> references = referencesNamed(session, text);
    if (references.empty())
        return;
    const std::wstring what = references.size() == 1 ? nameOf(session, references[0]) + L" is"
                                                     : std::to_wstring(references.size()) + L" references are";
    zdr::Drawing drawing = session.drawing();
    // From the end, so that the indexes before stay what they are.
    for (auto reference = references.rbegin(); reference != references.rend(); ++reference)
        drawing = withoutReference(std::move(drawing), *reference);
    session.rebuild(std::move(drawing));
    session.window().print(what + L" detached." + kForGood);
}

} // namespace workbench::commands
