#include "FileProgress.h"

#include "Refusal.h"

namespace zdr {
namespace {

const ProgressShower* g_shower = nullptr;

} // namespace

void setProgressShower(const ProgressShower* shower) {
    g_shower = shower;
}

FileProgress::FileProgress(FileWork kind, const std::wstring& path)
    : m_kind(kind), m_work(g_shower ? g_shower->begin(kind, path) : nullptr) {}

FileProgress::~FileProgress() {
    if (m_work)
        g_shower->end(m_work);
}

void FileProgress::advance(std::uint64_t done, std::uint64_t total) {
    if (m_work && !g_shower->advance(m_work, done, total))
        throw Refusal{Vorn::eCancelled, m_kind == FileWork::Reading
                                            ? L"isn't read, because that was cancelled"
                                            : L"stays as it is, because writing it was cancelled"};
}

} // namespace zdr
