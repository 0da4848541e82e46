// Resolving references.
#include "References.h"

#include "DrawingFile.h"
#include "TextCoding.h"

#include <algorithm>
#include <map>

namespace zdr {
namespace {

// Drawings that refer to each other crosswise open into very many nested ones.
constexpr std::size_t kMostReads = 1000;
constexpr std::size_t kDeepest = 64;

/// One spelling for one file.
std::wstring identity(const std::wstring& path) {
    std::error_code error;
    const std::filesystem::path full = std::filesystem::weakly_canonical(systemPath(path), error);
    const std::wstring spelling = error ? path : widePath(full);
#if defined(_WIN32)
    return foldCase(spelling);
#else
    return spelling;
#endif
}

class Resolver {
  public:
    explicit Resolver(std::vector<ReferenceProblem>& problems) : m_problems(problems) {}
    void resolve(Drawing& drawing, const std::wstring& path, const std::wstring& prefix);

  private:
    std::shared_ptr<const Drawing> load(const std::wstring& path, const std::wstring& name);
    std::shared_ptr<const Drawing> read(const std::wstring& path, const std::wstring& id, const std::wstring& name);
    void problem(const std::wstring& name, const std::wstring& path, const std::wstring& reason) {
        m_problems.push_back({name, path, reason});
    }

    std::vector<ReferenceProblem>& m_problems;
    std::vector<std::wstring> m_open;                              // identities, from the outermost drawing inwards
    std::map<std::wstring, std::shared_ptr<const Drawing>> m_read; // by identity; only those without any problem
    std::size_t m_reads = 0;
};

void Resolver::resolve(Drawing& drawing, const std::wstring& path, const std::wstring& prefix) {
    m_open.push_back(identity(path));
    const std::filesystem::path folder = systemPath(path).parent_path();
    for (Reference& reference : drawing.references)
        // An absolute path replaces the folder.
        reference.drawing = load(widePath(folder / systemPath(reference.path)), prefix + reference.name);
    m_open.pop_back();
}

std::shared_ptr<const Drawing> Resolver::load(const std::wstring& path, const std::wstring& name) {
    const std::wstring id = identity(path);
    if (std::find(m_open.begin(), m_open.end(), id) != m_open.end()) {
        problem(name, path, L"The file \"" + path + L"\" isn't shown here, because it refers to itself.");
        return nullptr;
    }
    if (const auto known = m_read.find(id); known != m_read.end())
        return known->second;
    if (m_open.size() > kDeepest || m_reads >= kMostReads) {
        problem(name, path, L"The file \"" + path + L"\" isn't shown here, because too many references are nested.");
        return nullptr;
    }
    return read(path, id, name);
}

std::shared_ptr<const Drawing> Resolver::read(const std::wstring& path, const std::wstring& id,
                                              const std::wstring& name) {
    ++m_reads;
    auto drawing = std::make_shared<Drawing>();
    std::wstring reason;
    if (readDrawingFile(path, *drawing, reason) != Vorn::eOk) {
        problem(name, path, reason);
        return nullptr;
    }
    const std::size_t before = m_problems.size();
    resolve(*drawing, path, name + L"!");
    // With a problem inside it may look different elsewhere: a drawing that leads back to itself here needn't there.
    if (m_problems.size() == before)
        m_read.emplace(id, drawing);
    return drawing;
}

} // namespace

void resolveReferences(Drawing& drawing, const std::wstring& path, std::vector<ReferenceProblem>& problems) {
    Resolver(problems).resolve(drawing, path, L"");
}

} // namespace zdr
