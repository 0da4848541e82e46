// See XmlFile.h. XmlLite comes with the system, but the compiler has no import library for it, so it is loaded.

#include "XmlFile.h"

#include <windows.h>

#include <objbase.h>
#include <shlwapi.h>
#include <xmllite.h>

#include <cwctype>
#include <memory>

namespace framework {
namespace {

constexpr ULONGLONG kLargestFile = 4u << 20;

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class T> using ComPointer = std::unique_ptr<T, Release>;

ComPointer<IStream> openFile(const std::wstring& path) {
    IStream* stream = nullptr;
    if (FAILED(SHCreateStreamOnFileEx(path.c_str(), STGM_READ | STGM_SHARE_DENY_WRITE, 0, FALSE, nullptr, &stream)))
        return nullptr;
    ComPointer<IStream> owned(stream);
    STATSTG facts = {};
    if (FAILED(owned->Stat(&facts, STATFLAG_NONAME)) || facts.cbSize.QuadPart > kLargestFile)
        return nullptr;
    return owned;
}

ComPointer<IXmlReader> makeReader() {
    using Create = HRESULT(WINAPI*)(REFIID, void**, IMalloc*);
    // The library stays loaded, as an import would.
    static const HMODULE library = LoadLibraryW(L"xmllite.dll");
    const auto create =
        library ? reinterpret_cast<Create>(reinterpret_cast<void*>(GetProcAddress(library, "CreateXmlReader")))
                : nullptr;
    void* reader = nullptr;
    if (!create || FAILED(create(__uuidof(IXmlReader), &reader, nullptr)))
        return nullptr;
    return ComPointer<IXmlReader>(static_cast<IXmlReader*>(reader));
}

/// Appends with each run of white space as one space, across calls.
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
    const ComPointer<IStream> stream = openFile(path);
    const ComPointer<IXmlReader> reader = stream ? makeReader() : nullptr;
    if (!reader || FAILED(reader->SetInput(stream.get())))
        return std::nullopt;
    TreeBuilder tree;
    XmlNodeType type = XmlNodeType_None;
    HRESULT result = S_OK;
    while ((result = reader->Read(&type)) == S_OK)
        addNode(*reader, type, tree);
    // The end of a well-formed file is S_FALSE; everything else is an error in it.
    return result == S_FALSE ? tree.takeRoot() : std::nullopt;
}

} // namespace framework
