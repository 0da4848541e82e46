// Everything runs on the host's one thread, so the state needs no lock.

#include "HostCalls.h"

#include "CallObserver.h"

#include <cstdlib>
#include <map>
#include <sstream>

namespace instruments {

bool g_watching = false;

namespace {

struct Fault {
    std::string operation; // empty: any operation that can fail
    int remaining;
    Vorn::ErrorStatus status;
    StatusOfOperation statusOf; // in the place of `status`, unless it is null
};

struct Entry {
    std::string what;
    int count;
};

struct Watch {
    std::vector<std::string> lines;
    std::function<void(const std::string& call)> observer;
    std::vector<Fault> faults;
    int allocationsLeft = 0; // counts down to the one that fails; 0: none is to
    bool struck = false;
    std::string struckOperation;
    std::map<const void*, Entry> entries;
    // Lines of calls that began before a clearTrace() must not be written to afterwards.
    std::uint64_t generation = 0;
};

Watch& theWatch() {
    static Watch instance;
    return instance;
}

void appendUtf8(std::string& out, char32_t character) {
    const auto put = [&out](char32_t value) { out += static_cast<char>(static_cast<unsigned char>(value)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | (character >> 6));
        put(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        put(0xE0 | (character >> 12));
        put(0x80 | ((character >> 6) & 0x3F));
        put(0x80 | (character & 0x3F));
    } else {
        put(0xF0 | (character >> 18));
        put(0x80 | ((character >> 12) & 0x3F));
        put(0x80 | ((character >> 6) & 0x3F));
        put(0x80 | (character & 0x3F));
    }
}

std::string inQuotes(std::wstring_view text) {
    std::string out = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto character = static_cast<char32_t>(text[i]);
        const bool high = character >= 0xD800 && character < 0xDC00 && i + 1 < text.size();
        if (high && static_cast<char32_t>(text[i + 1]) >= 0xDC00 && static_cast<char32_t>(text[i + 1]) < 0xE000)
            character = 0x10000 + ((character - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
        if (character == U'"' || character == U'\\')
            out += '\\';
        appendUtf8(out, character);
    }
    return out + '"';
}

} // namespace

void watch(bool on) {
    g_watching = on;
    const std::uint64_t generation = theWatch().generation + 1;
    theWatch() = {};
    theWatch().generation = generation;
}

std::string describe(const wchar_t* text) {
    return text ? inQuotes(text) : "null";
}
std::string describe(const std::wstring& text) {
    return inQuotes(text);
}
std::string describe(const KelString& text) {
    return inQuotes(text.kwszPtr());
}

std::string describe(KelDbObjectId id) {
    if (id.isNull())
        return "null";
    // The objects that every drawing has are shown by name: their handles, from the top of the range, tell nothing.
    constexpr const char* kNamed[] = {"#layerTable", "#linetypeTable", "#plotStyles", "#layerStates"};
    const std::uint64_t fromTop = ~id.handle().value();
    if (fromTop < std::size(kNamed))
        return kNamed[fromTop];
    std::ostringstream out;
    out << '#' << std::hex << std::uppercase << id.handle().value();
    return out.str();
}

std::string describe(const KelCmColor& color) {
    if (color.isByPCI())
        return "color " + std::to_string(color.colorIndex());
    std::string text =
        "rgb " + std::to_string(color.red()) + "," + std::to_string(color.green()) + "," + std::to_string(color.blue());
    if (color.hasColorName())
        text.append(" ").append(inQuotes(color.colorName()));
    if (color.hasBookName())
        text.append(" of ").append(inQuotes(color.bookName()));
    return text;
}

std::string describe(const std::uint32_t* value) {
    return value ? std::to_string(*value) : "null";
}

std::string describe(double value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

std::vector<std::string> trace() {
    return theWatch().lines;
}

void clearTrace() {
    theWatch().lines.clear();
    ++theWatch().generation;
}

void observeCalls(std::function<void(const std::string& call)> observer) {
    theWatch().observer = std::move(observer);
}

namespace {

void plan(Fault fault) {
    theWatch().faults.push_back(std::move(fault));
    theWatch().struck = false;
    theWatch().struckOperation.clear();
}

void strike(const std::string& operation) {
    theWatch().struck = true;
    theWatch().struckOperation = operation;
}

} // namespace

void failCall(std::string_view operation, int nth, Vorn::ErrorStatus status) {
    plan({std::string(operation), nth, status, nullptr});
}

void failAnyCall(int nth, Vorn::ErrorStatus status) {
    plan({{}, nth, status, nullptr});
}

void failAnyCall(int nth, StatusOfOperation statusOf) {
    plan({{}, nth, Vorn::eInvalidInput, statusOf});
}

void failAllocation(int nth) {
    theWatch().allocationsLeft = nth;
    theWatch().struck = false;
    theWatch().struckOperation.clear();
}

bool faultStruck() {
    return theWatch().struck;
}

std::string struckOperation() {
    return theWatch().struckOperation;
}

void clearFaults() {
    theWatch().faults.clear();
    theWatch().allocationsLeft = 0;
}

void* allocate(std::size_t size) {
    if (g_watching && theWatch().allocationsLeft > 0 && --theWatch().allocationsLeft == 0) {
        strike("allocation");
        return nullptr;
    }
    return std::calloc(1, size);
}

void entrust(const void* key, std::string_view what) {
    if (!g_watching)
        return;
    Entry& entry = theWatch().entries[key];
    entry.what = what;
    ++entry.count;
}

bool giveBack(const void* key) {
    if (!g_watching)
        return true;
    auto& entries = theWatch().entries;
    const auto found = entries.find(key);
    if (found == entries.end())
        return false;
    if (--found->second.count == 0)
        entries.erase(found);
    return true;
}

std::vector<std::string> ledger() {
    std::vector<std::string> lines;
    for (const auto& [key, entry] : theWatch().entries)
        lines.push_back(entry.count == 1 ? entry.what : entry.what + " (" + std::to_string(entry.count) + " times)");
    return lines;
}

std::vector<const void*> keysOf(std::string_view what) {
    std::vector<const void*> keys;
    for (const auto& [key, entry] : theWatch().entries)
        if (entry.what == what)
            keys.push_back(key);
    return keys;
}

void HostCall::begin(const char* operation, std::string line) {
    m_operation = operation;
    m_index = static_cast<std::ptrdiff_t>(theWatch().lines.size());
    m_generation = theWatch().generation;
    theWatch().lines.push_back(std::move(line));
    if (theWatch().observer)
        theWatch().observer(theWatch().lines.back());
}

std::optional<Vorn::ErrorStatus> HostCall::plannedFault() {
    std::optional<Vorn::ErrorStatus> status;
    for (Fault& fault : theWatch().faults) {
        if (!fault.operation.empty() && fault.operation != m_operation)
            continue;
        if (fault.remaining > 0 && --fault.remaining == 0)
            status = fault.statusOf ? fault.statusOf(m_operation) : fault.status;
    }
    if (status)
        strike(m_operation);
    return status;
}

void HostCall::end() {
    if (m_generation == theWatch().generation)
        theWatch().lines[static_cast<std::size_t>(m_index)] += m_answer + m_outs;
}

} // namespace instruments
