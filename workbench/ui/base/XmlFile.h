// Reads a small XML file into a tree of elements, by the system's XmlLite.
#pragma once

#include "KelExport.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace framework {

struct XmlElement {
    std::wstring name; ///< without prefix
    std::vector<std::pair<std::wstring, std::wstring>> attributes;
    std::wstring text; ///< the element's own text, trimmed, each run of white space as one space
    std::vector<XmlElement> children;

    /// The attribute's value, or empty.
    std::wstring_view attribute(std::wstring_view attributeName) const;
    /// The first child of that name, or null.
    const XmlElement* child(std::wstring_view childName) const;
};

/// The root element of the file; nothing when the file is missing, too large (over 4 MB), nested deeper than 64
/// elements, or not well-formed.
KELUI_API std::optional<XmlElement> readXmlFile(const std::wstring& path);

} // namespace framework
