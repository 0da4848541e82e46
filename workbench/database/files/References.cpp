#include "References.h"

#include "DrawingCheck.h"
#include "DrawingFile.h"
#include "OutsidePaths.h"
#include "ShownText.h"
#include "SystemFile.h"
#include "TextCoding.h"

#include <algorithm>
#include <map>

namespace zdr {
namespace {

// Few drawings that refer to each other more than once can make very many nested ones, each with layers of its own.
constexpr std::size_t kMostShown = 1000;
constexpr std::size_t kDeepest = 256;

/// Without the difference of upper and lower case where the system makes none.
std::wstring folded(const std::wstring& path) {
#if defined(_WIN32)
    return foldCase(path);
#else
    return path;
#endif
}

/// What nests in a drawing.
struct Nesting {
    std::size_t drawings = 0;   // each as often as it is shown
    std::size_t depth = 0;      // of references within references
    std::size_t nameLength = 0; // of the longest run of their names, "a!b!"
};

/// A drawing that was read, with what nests in it.
struct Shown {
    std::shared_ptr<const Drawing> drawing; // null for one that can't be shown
    Nesting inside;
};

class Resolver {
  public:
    Resolver(std::vector<ReferenceProblem>& problems, const WhyNotOutside& whyNotOutside)
        : m_problems(problems), m_whyNotOutside(whyNotOutside) {}
    Resolver(const Resolver&) = delete;
    Resolver& operator=(const Resolver&) = delete;
    Nesting resolve(Drawing& drawing, const std::wstring& path, const std::wstring& prefix);

  private:
    std::wstring identity(const std::wstring& path) const;
    std::wstring whyNot(const std::wstring& path, const std::wstring& name, const PathPlace& holder) const;
    Shown load(const std::wstring& path, const std::wstring& name);
    Shown read(const std::wstring& path, const std::wstring& id, const std::wstring& name);
    bool isTooMuch(const std::wstring& name, const Nesting& inside) const {
        return m_open.size() + inside.depth > kDeepest || m_shown + 1 + inside.drawings > kMostShown ||
               name.size() + 1 + inside.nameLength + engine::kMaxNameLength > kLongestReferenceName;
    }
    Shown refuse(const std::wstring& name, const std::wstring& path, const std::wstring& reason) {
        m_problems.push_back({name, path, reason});
        return {};
    }

    // Each drive is looked up once.
    std::map<wchar_t, std::wstring> m_drives;
    const DriveTarget m_targetOf = [this](wchar_t letter) {
        const auto known = m_drives.find(letter);
        return known != m_drives.end() ? known->second : m_drives.emplace(letter, driveTarget(letter)).first->second;
    };
    std::vector<ReferenceProblem>& m_problems;
    const WhyNotOutside& m_whyNotOutside;
    std::vector<std::wstring> m_open;     // identities, from the outermost drawing inwards
    std::map<std::wstring, Shown> m_read; // by identity; only those without any problem
    std::size_t m_shown = 0;
};

/// Where the name of the file begins. A path outside this computer has no separator only where it goes from a drive's
/// own folder, as "N:b.zdr".
std::size_t fileNameIn(const std::wstring& path) {
    const std::size_t separator = path.find_last_of(L"\\/");
    return separator == std::wstring::npos ? path.find(L':') + 1 : separator + 1;
}

/// One spelling for one file.
std::wstring Resolver::identity(const std::wstring& path) const {
    // The library takes the name of a server for a folder.
    if (const PathPlace place = placeOf(path, m_targetOf); place.kind == PathPlace::Kind::Outside)
        return folded(place.folder + L'\\' + path.substr(fileNameIn(path)));
    std::error_code error;
    const std::filesystem::path full = std::filesystem::weakly_canonical(systemPath(path), error);
    return folded(error ? path : widePath(full));
}

Nesting Resolver::resolve(Drawing& drawing, const std::wstring& path, const std::wstring& prefix) {
    m_open.push_back(identity(path));
    const PathPlace place = placeOf(path, m_targetOf);
    Nesting inside;
    for (Reference& reference : drawing.references) {
        if (reference.unloaded)
            continue;
        const std::wstring target = referencePath(path, reference.path);
        const std::wstring name = prefix + reference.name;
        const std::wstring reason = whyNot(target, name, place);
        const Shown shown = reason.empty() ? load(target, name) : refuse(name, target, reason);
        reference.drawing = shown.drawing;
        inside.drawings += shown.drawing ? 1 + shown.inside.drawings : 0;
        inside.depth = std::max(inside.depth, 1 + shown.inside.depth);
        inside.nameLength = std::max(inside.nameLength, reference.name.size() + 1 + shown.inside.nameLength);
    }
    m_open.pop_back();
    return inside;
}

/// Why a file isn't to be looked for, in a sentence; empty when it may be.
std::wstring Resolver::whyNot(const std::wstring& path, const std::wstring& name, const PathPlace& holder) const {
    const PathPlace place = placeOf(path, m_targetOf);
    if (place.kind == PathPlace::Kind::Address)
        return L"The file \"" + shownText(path) + L"\" isn't looked for, because an address is no path.";
    // Whoever has the computer of the drawing that has the reference has seen already who opens it.
    if (place.kind == PathPlace::Kind::ThisComputer || areOnOneComputer(place, holder))
        return {};
    const std::wstring cause =
        m_whyNotOutside ? m_whyNotOutside({name, path, place.folder}) : L"and nobody was asked whether to look for it";
    return cause.empty() ? cause : L"The file \"" + shownText(path) + L"\" is outside this computer, " + cause + L".";
}

Shown Resolver::load(const std::wstring& path, const std::wstring& name) {
    const std::wstring id = identity(path);
    if (std::find(m_open.begin(), m_open.end(), id) != m_open.end())
        return refuse(name, path, L"The file \"" + path + L"\" isn't shown here, because it refers to itself.");
    const auto known = m_read.find(id);
    const Nesting inside = known == m_read.end() ? Nesting{} : known->second.inside;
    if (isTooMuch(name, inside))
        return refuse(name, path,
                      L"The file \"" + path + L"\" isn't shown here, because too many references are nested.");
    m_shown += 1 + inside.drawings;
    return known == m_read.end() ? read(path, id, name) : known->second;
}

Shown Resolver::read(const std::wstring& path, const std::wstring& id, const std::wstring& name) {
    auto drawing = std::make_shared<Drawing>();
    std::wstring reason;
    if (readDrawingFile(path, *drawing, reason) != Vorn::eOk)
        return refuse(name, path, reason);
    const std::size_t before = m_problems.size();
    const Nesting inside = resolve(*drawing, path, name + engine::kReferenceSeparator);
    Shown shown{drawing, inside};
    // A drawing with a problem inside isn't kept: in another place it may be shown whole, as when one of its references
    // leads back to a drawing that it is nested in only here.
    if (m_problems.size() == before)
        m_read.emplace(id, shown);
    return shown;
}

} // namespace

void resolveReferences(Drawing& drawing, const std::wstring& path, std::vector<ReferenceProblem>& problems,
                       const WhyNotOutside& whyNotOutside) {
    Resolver(problems, whyNotOutside).resolve(drawing, path, L"");
}

} // namespace zdr
