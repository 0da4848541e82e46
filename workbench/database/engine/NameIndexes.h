// Find what a drawing has by name: layers, linetypes and plot styles by the id of their name, states by its text.
#pragma once

#include "model/Drawing.h"

#include <algorithm>
#include <span>
#include <unordered_map>
#include <vector>

namespace engine {

/// Index of a name in a list of names; zdr::kNone for a name that isn't in it.
class NameIdIndex {
  public:
    template <class List> void fill(const List& objects) {
        m_places.clear();
        for (std::size_t i = 0; i < objects.size(); ++i)
            put(objects[i].name, i);
    }
    void put(zdr::NameId name, std::size_t place) {
        if (name >= m_places.size())
            m_places.resize(name + 1, kAbsent);
        m_places[name] = static_cast<std::uint32_t>(place);
    }
    std::size_t find(zdr::NameId name) const {
        const std::uint32_t place = name < m_places.size() ? m_places[name] : kAbsent;
        return place == kAbsent ? zdr::kNone : place;
    }
    bool has(zdr::NameId name) const { return name < m_places.size() && m_places[name] != kAbsent; }
    /// Whether each name of a column is in the list or is the empty name. A restore asks for every layer, and
    /// neighbours mostly have the same style, so that a look-up for many of them will do.
    bool hasAll(std::span<const zdr::NameId> names) const {
        constexpr std::size_t kBlock = 64;
        while (!names.empty()) {
            const auto block = names.first(std::min(kBlock, names.size()));
            zdr::NameId difference = 0;
            for (const zdr::NameId name : block)
                difference |= name ^ block.front();
            if (!hasEach(difference == 0 ? block.first(1) : block))
                return false;
            names = names.subspan(block.size());
        }
        return true;
    }

  private:
    // The two loops have no branches.
    bool hasEach(std::span<const zdr::NameId> names) const {
        zdr::NameId largest = 0;
        for (const zdr::NameId name : names)
            largest = std::max(largest, name);
        if (largest >= m_places.size())
            return largest == zdr::kNoName;
        unsigned absent = 0;
        for (const zdr::NameId name : names)
            absent |= static_cast<unsigned>(name != zdr::kNoName) & static_cast<unsigned>(m_places[name] == kAbsent);
        return absent == 0;
    }

    static constexpr std::uint32_t kAbsent = ~std::uint32_t{0};
    std::vector<std::uint32_t> m_places;
};

/// Index of a state by its name, without regard to case.
class StateIndex {
  public:
    void fill(const std::vector<zdr::LayerState>& states) {
        m_places.clear();
        for (std::size_t i = 0; i < states.size(); ++i)
            m_places.emplace(states[i].name, i);
    }
    std::size_t find(std::wstring_view name) const {
        const auto found = m_places.find(name);
        return found == m_places.end() ? zdr::kNone : found->second;
    }
    /// @param count how many states there were before
    void inserted(const std::wstring& name, std::size_t index, std::size_t count) {
        if (index < count)
            for (auto& [text, place] : m_places)
                place += place >= index ? 1 : 0;
        m_places.emplace(name, index);
    }
    void removed(const std::wstring& name, std::size_t index, std::size_t count) {
        m_places.erase(name);
        if (index + 1 < count)
            for (auto& [text, place] : m_places)
                place -= place > index ? 1 : 0;
    }
    void renamed(const std::wstring& from, const std::wstring& to, std::size_t index) {
        m_places.erase(from);
        m_places.emplace(to, index);
    }

  private:
    std::unordered_map<std::wstring, std::size_t, zdr::FoldedHash, zdr::FoldedEqual> m_places;
};

} // namespace engine
