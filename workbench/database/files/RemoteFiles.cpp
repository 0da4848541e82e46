#include "RemoteFiles.h"

#include "FileProblems.h"
#include "model/CaseFolding.h"

#include <new>
#include <string_view>

namespace zdr {
namespace {

const RemoteFetcher* g_fetcher = nullptr;

bool beginsWith(std::wstring_view text, std::wstring_view scheme) {
    return equalFolded(text.substr(0, scheme.size()), scheme);
}

} // namespace

void setRemoteFetcher(const RemoteFetcher* fetcher) {
    g_fetcher = fetcher;
}

bool isAddress(const std::wstring& text) {
    return beginsWith(text, L"http://") || beginsWith(text, L"https://");
}

FileToRead::FileToRead(const wchar_t* pathOrAddress, std::wstring& reason) : m_name(pathOrAddress), m_path(m_name) {
    // Without a fetcher an address is a path that leads nowhere.
    if (!g_fetcher || !isAddress(m_path))
        return;
    m_path = g_fetcher->fetch(m_path, reason);
    m_isHere = m_isTemporary = !m_path.empty();
}

FileToRead::~FileToRead() {
    if (m_isTemporary && g_fetcher)
        g_fetcher->discard(m_path);
}

void FileToRead::tell(std::wstring& reason) const {
    try {
        const std::size_t at = m_isTemporary ? reason.find(m_path) : std::wstring::npos;
        if (at != std::wstring::npos)
            reason.replace(at, m_path.size(), m_name);
    } catch (const std::bad_alloc&) {
        // The temporary file is told then.
    }
    tellProblem(reason);
}

} // namespace zdr
