// XmlLite comes with the system, but the compiler has no import library for it, so it is loaded.

#include "XmlFile.h"

#include <windows.h>

#include <objbase.h>
#include <xmllite.h>

#include <cwctype>
#include <memory>

namespace framework {
namespace {

constexpr LONGLONG kLargestFile = 4u << 20;
// How deep elements may nest: destroying the tree takes stack for each level.
constexpr std::size_t kDeepest = 64;

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class T> using ComPointer = std::unique_ptr<T, Release>;

/// The bytes of a file; nothing when it can't be read or is too large.
std::optional<std::string> readBytes(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return std::nullopt;
    LARGE_INTEGER size = {};
    std::optional<std::string> bytes;
    if (GetFileSizeEx(file, &size) && size.QuadPart <= kLargestFile) {
        bytes.emplace(static_cast<std::size_t>(size.QuadPart), '\0');
        DWORD read = 0;
        if (!ReadFile(file, bytes->data(), static_cast<DWORD>(bytes->size()), &read, nullptr) || read != bytes->size())
            bytes.reset();
    }
    CloseHandle(file);
    return bytes;
}

/// The bytes as a stream. When a file ends within a text, a comment or a section of character data, Wine's reader asks
/// for more without end. The stream then gives it what closes all of these, and remembers that the file wasn't whole.
class Stream final : public ISequentialStream {
  public:
    explicit Stream(std::string_view bytes) : m_rest(bytes), m_wide(bytes.size() % 2 == 0 && isWide(bytes)) {}

    bool hasOverrun() const { return m_overrun; }

    HRESULT STDMETHODCALLTYPE Read(void* target, ULONG size, ULONG* read) override {
        if (m_rest.empty() && ++m_asked > kPatience) {
            m_overrun = true;
            m_rest = m_wide
                         ? std::string_view(reinterpret_cast<const char*>(kWideEnd), sizeof kWideEnd - sizeof *kWideEnd)
                         : std::string_view(kEnd);
        }
        const std::string_view part = m_rest.substr(0, size);
        part.copy(static_cast<char*>(target), part.size());
        m_rest.remove_prefix(part.size());
        if (read)
            *read = static_cast<ULONG>(part.size());
        return part.size() == size ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Write(const void*, ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known = id == __uuidof(IUnknown) || id == __uuidof(ISequentialStream);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // No counting: the stream is on the stack and lives longer than its reader.
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

  private:
    // How often the end may be asked for; a reader that knows it asks once or twice.
    static constexpr int kPatience = 64;
    static constexpr const char* kEnd = ";]]>-->?></";
    static constexpr wchar_t kWideEnd[] = L";]]>-->?></";

    static bool isWide(std::string_view bytes) { return bytes.substr(0, 2) == "\xFF\xFE"; }

    std::string_view m_rest;
    bool m_wide;
    bool m_overrun = false;
    int m_asked = 0;
};

ComPointer<IXmlReader> makeReader() {
    using Create = HRESULT(WINAPI*)(REFIID, void**, IMalloc*);
    // The library stays loaded, as an import would.
    static HMODULE library = nullptr;
    if (!library)
        library = LoadLibraryW(L"xmllite.dll");
    const auto create =
        library ? reinterpret_cast<Create>(reinterpret_cast<void*>(GetProcAddress(library, "CreateXmlReader")))
                : nullptr;
    void* reader = nullptr;
    if (!create || FAILED(create(__uuidof(IXmlReader), &reader, nullptr)))
        return nullptr;
    return ComPointer<IXmlReader>(static_cast<IXmlReader*>(reader));
}

/// Appends the text with each run of white space as one space, also when a run goes on from the call before.
void appendCollapsed(std::wstring& out, std::wstring_view text) {
    for (const wchar_t character : text) {
        if (!std::iswspace(character))
            out += character;
        else if (!out.empty() && out.back() != L' ')
            out += L' ';
    }
}

std::wstring localName(IXmlReader& reader) {
    const wchar_t* name = nullptr;
    UINT length = 0;
    return SUCCEEDED(reader.GetLocalName(&name, &length)) ? std::wstring(name, length) : std::wstring();
}

std::wstring nodeValue(IXmlReader& reader) {
    const wchar_t* value = nullptr;
    UINT length = 0;
    return SUCCEEDED(reader.GetValue(&value, &length)) ? std::wstring(value, length) : std::wstring();
}

XmlElement beginElement(IXmlReader& reader) {
    XmlElement element;
    element.name = localName(reader);
    for (HRESULT result = reader.MoveToFirstAttribute(); result == S_OK; result = reader.MoveToNextAttribute())
        element.attributes.emplace_back(localName(reader), nodeValue(reader));
    reader.MoveToElement();
    return element;
}

/// The elements that are open, outermost first; a closed one becomes a child of the one before it.
class TreeBuilder {
  public:
    void open(XmlElement element) { m_open.push_back(std::move(element)); }
    void addText(std::wstring_view text) {
        if (!m_open.empty())
            appendCollapsed(m_open.back().text, text);
    }
    void close() {
        if (m_open.empty())
            return;
        XmlElement element = std::move(m_open.back());
        m_open.pop_back();
        if (!element.text.empty() && element.text.back() == L' ')
            element.text.pop_back();
        if (m_open.empty())
            m_root = std::move(element);
        else
            m_open.back().children.push_back(std::move(element));
    }
    bool isTooDeep() const { return m_open.size() > kDeepest; }
    std::optional<XmlElement> takeRoot() { return m_open.empty() ? std::move(m_root) : std::nullopt; }

  private:
    std::vector<XmlElement> m_open;
    std::optional<XmlElement> m_root;
};

void addNode(IXmlReader& reader, XmlNodeType type, TreeBuilder& tree) {
    if (type == XmlNodeType_Element) {
        const bool empty = reader.IsEmptyElement();
        tree.open(beginElement(reader));
        if (empty)
            tree.close();
    } else if (type == XmlNodeType_EndElement) {
        tree.close();
    } else if (type == XmlNodeType_Text || type == XmlNodeType_CDATA || type == XmlNodeType_Whitespace) {
        tree.addText(nodeValue(reader));
    }
}

using Position = std::pair<UINT, UINT>; // line and column

Position positionOf(IXmlReader& reader) {
    Position position;
    reader.GetLineNumber(&position.first);
    reader.GetLinePosition(&position.second);
    return position;
}

/// Reads all nodes. False when the file isn't well-formed.
bool readNodes(IXmlReader& reader, TreeBuilder& tree) {
    XmlNodeType type = XmlNodeType_None;
    HRESULT result = S_OK;
    Position last = {};
    while ((result = reader.Read(&type)) == S_OK) {
        // When a file ends before its root element does, Wine's reader makes up the end tag and gives it a position at
        // the beginning.
        const Position position = positionOf(reader);
        if (type == XmlNodeType_EndElement && position <= last)
            return false;
        last = position;
        addNode(reader, type, tree);
        if (tree.isTooDeep())
            return false;
    }
    // The end of a well-formed file is S_FALSE; everything else is an error in it.
    return result == S_FALSE;
}

} // namespace

std::wstring_view XmlElement::attribute(std::wstring_view attributeName) const {
    for (const auto& [key, value] : attributes)
        if (key == attributeName)
            return value;
    return {};
}

const XmlElement* XmlElement::child(std::wstring_view childName) const {
    for (const XmlElement& candidate : children)
        if (candidate.name == childName)
            return &candidate;
    return nullptr;
}

std::optional<XmlElement> readXmlFile(const std::wstring& path) {
    const std::optional<std::string> bytes = readBytes(path);
    if (!bytes)
        return std::nullopt;
    Stream stream(*bytes);
    const ComPointer<IXmlReader> reader = makeReader();
    if (!reader || FAILED(reader->SetInput(&stream)))
        return std::nullopt;
    TreeBuilder tree;
    return readNodes(*reader, tree) && !stream.hasOverrun() ? tree.takeRoot() : std::nullopt;
}

} // namespace framework
