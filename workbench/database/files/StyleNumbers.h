// The numbers that a drawing's linetypes and plot styles get in its file: the place of their name among the style
// names, which hold only the names that some property uses.
#pragma once

#include "model/Drawing.h"

namespace zdr {

class StyleNumbers {
  public:
    explicit StyleNumbers(const Drawing& drawing);

    /// The number in the file of a name that some property of the drawing uses.
    std::uint32_t number(NameId name) const { return m_numbers[name]; }
    /// The same where -1 stands for none.
    std::int32_t numberOrNone(NameId name) const {
        return name == kNoName ? -1 : static_cast<std::int32_t>(m_numbers[name]);
    }
    /// The names by number; the first is the empty one.
    const std::vector<NameId>& names() const { return m_names; }
    /// Whether all numbers are the drawing's own, so that columns are written as they are. The usual case: a drawing
    /// that was read has its style names in front.
    bool areNames() const { return m_identity; }

  private:
    void collect(const Drawing& drawing);
    void use(NameId name) { m_numbers[name] = 1; }
    void use(const LayerColumns& columns);
    void use(const std::vector<Entity>& entities);

    std::vector<std::uint32_t> m_numbers; // by NameId
    std::vector<NameId> m_names;
    bool m_identity = true;
};

} // namespace zdr
