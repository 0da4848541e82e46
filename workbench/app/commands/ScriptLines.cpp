#include "ScriptLines.h"

#include "CommandText.h"

#include "files/TextCoding.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace workbench {

namespace {

std::wstring byteByByte(const std::string& line) {
    std::wstring out;
    for (const char byte : line)
        out += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    return out;
}

constexpr std::uintmax_t kLargestScript = 16 << 20;

std::string readText(const std::filesystem::path& path, std::wstring& problem) {
    std::error_code error;
    const std::wstring name = L"The script " + quotation(zdr::widePath(path));
    if (!std::filesystem::is_regular_file(path, error)) {
        problem = name + L" isn't there: check its name and folder.";
        return {};
    }
    if (std::filesystem::file_size(path, error) > kLargestScript) {
        problem = name + L" is larger than 16 MB: split it.";
        return {};
    }
    std::ifstream file{path, std::ios::binary};
    std::ostringstream text;
    // Copying nothing sets the fail bit of `text`, but an empty file is a good script without lines.
    if (file.peek() != std::ifstream::traits_type::eof())
        text << file.rdbuf();
    if (!file.is_open() || file.bad() || text.fail())
        problem = name + L" can't be read: check that you may read it.";
    return text.str();
}

} // namespace

std::vector<std::wstring> scriptLines(const std::string& text) {
    std::vector<std::wstring> lines;
    std::size_t start = text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string line = text.substr(start, end - start);
        line.erase(line.find_last_not_of(" \t\r") + 1);
        if (!line.empty() && line.front() != ';')
            lines.push_back(zdr::fromUtf8(line).value_or(byteByByte(line)));
        start = end + 1;
    }
    return lines;
}

std::vector<std::wstring> readScript(const std::wstring& path, std::wstring& problem) {
    const std::string text = readText(zdr::systemPath(path), problem);
    return problem.empty() ? scriptLines(text) : std::vector<std::wstring>();
}

void LineQueue::append(const std::vector<std::wstring>& lines) {
    for (const std::wstring& line : lines)
        m_lines.push_back({line, 0});
}

bool LineQueue::enter(const std::vector<std::wstring>& lines) {
    if (m_depth >= kDeepest)
        return false;
    for (auto line = lines.rbegin(); line != lines.rend(); ++line)
        m_lines.push_front({*line, m_depth + 1});
    return true;
}

std::optional<std::wstring> LineQueue::next() {
    if (m_lines.empty())
        return std::nullopt;
    Line line = std::move(m_lines.front());
    m_lines.pop_front();
    m_depth = line.depth;
    return std::move(line.text);
}

void LineQueue::clear() {
    m_lines.clear();
    m_depth = 0;
}

} // namespace workbench
