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

std::wstring linesText(std::size_t count) {
    return count == 1 ? L"1 line" : std::to_wstring(count) + L" lines";
}

/// "3 lines done, 1 failed, 2 not run."
std::wstring countsText(std::size_t done, std::size_t failed, std::size_t left) {
    return linesText(done) + L" done" + (failed > 0 ? L", " + std::to_wstring(failed) + L" failed" : L"") +
           (left > 0 ? L", " + std::to_wstring(left) + L" not run" : L"") + L".\n";
}

/// What is told of a script that has ended. The lines of the program's start have no path; nobody asks how many they
/// were.
std::wstring summary(const std::wstring& path, std::size_t done, std::size_t failed, std::size_t left, bool stops) {
    if (path.empty())
        return left == 0 ? std::wstring() : L"The start has stopped there: " + countsText(done, failed, left);
    return L"The script " + quotation(path) +
           (stops ? L" has stopped, because a line couldn't be done: " : L" has ended: ") +
           countsText(done, failed, left);
}

/// Whether bytes can be a text. A text may have any encoding in which letters aren't control characters.
bool isText(const std::string& bytes) {
    return std::ranges::all_of(bytes, [](char byte) {
        return static_cast<unsigned char>(byte) >= ' ' || byte == '\t' || byte == '\n' || byte == '\r' || byte == '\f';
    });
}

constexpr std::uintmax_t kLargestScript = 16 << 20;

std::string readText(const SoughtFile& script, std::wstring& problem) {
    const std::filesystem::path path = zdr::systemPath(script.path);
    std::error_code error;
    const std::wstring name = L"The script " + quotation(script.path);
    if (!std::filesystem::is_regular_file(path, error)) {
        problem = advised(script.completed(name + L" isn't there"), L"check its name and folder");
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
    else if (!isText(text.str()))
        problem = name + L" isn't text: choose a file of command lines, saved as UTF-8.";
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

std::vector<std::wstring> readScript(const SoughtFile& script, std::wstring& problem) {
    const std::string text = readText(script, problem);
    return problem.empty() ? scriptLines(text) : std::vector<std::wstring>();
}

bool LineQueue::enter(Script script) {
    if (m_scripts.size() >= kDeepest)
        return false;
    m_scripts.push_back({std::move(script)});
    m_hasEntered = true;
    return true;
}

std::optional<std::wstring> LineQueue::next() {
    m_hasEntered = false;
    if (!m_scripts.empty()) {
        Running& running = m_scripts.back();
        return std::move(running.script.lines[running.next++]);
    }
    if (m_typed.empty())
        return std::nullopt;
    std::wstring line = std::move(m_typed.front());
    m_typed.pop_front();
    return line;
}

std::wstring LineQueue::end(bool done) {
    // A line that runs a script is counted when that ends, which is now when the script has no lines.
    const bool waits = m_hasEntered && !m_scripts.back().script.lines.empty();
    return waits ? std::wstring() : count(done);
}

/// Counts a line of the innermost script, and, where that ends the script, the line that has run it, and so on.
std::wstring LineQueue::count(bool done) {
    const bool isInScript = !m_scripts.empty();
    std::wstring told;
    while (!m_scripts.empty()) {
        Running& running = m_scripts.back();
        if (running.next > 0)
            ++(done ? running.done : running.failed);
        const std::size_t left = running.script.lines.size() - running.next;
        const bool stops = !done && !running.script.keepsGoing;
        if (left > 0 && !stops)
            return told;
        // Of scripts that stop together the innermost and the outermost one say enough.
        if (!stops || told.empty() || m_scripts.size() == 1)
            told += summary(running.script.path, running.done, running.failed, left, stops);
        done = !stops;
        m_scripts.pop_back();
    }
    return isInScript && !done ? told + dropTyped() : told;
}

std::wstring LineQueue::dropTyped() {
    const std::size_t count = m_typed.size();
    m_typed.clear();
    return count == 0 ? std::wstring() : L"What was typed meanwhile isn't run: " + linesText(count) + L".\n";
}

std::wstring LineQueue::whatGoesFirst() const {
    if (!isInScript())
        return L"What was typed before goes first";
    return isInStart() ? L"What the start runs goes first" : L"The script goes first";
}

std::wstring LineQueue::stop() {
    if (!isInScript())
        return dropTyped();
    const std::wstring what = isInStart() ? L"The start" : L"The script";
    std::size_t done = 0, failed = 0, left = 0;
    for (const Running& running : m_scripts) {
        done += running.done;
        failed += running.failed;
        left += running.script.lines.size() - running.next;
    }
    m_scripts.clear();
    m_hasEntered = false;
    return what + L" is stopped; what it has done stays. " + countsText(done, failed, left) + dropTyped();
}

void LineQueue::clear() {
    m_scripts.clear();
    m_hasEntered = false;
    m_typed.clear();
}

} // namespace workbench
