// What every part of the reader needs: the texts of the file as wide texts, its style names as names of the drawing,
// and a limit on what a file can make of few bytes.
#pragma once

#include "Refusal.h"

#include <flatbuffers/flatbuffers.h>

#include <memory>
#include <set>

namespace zdr {

class ReadContext {
  public:
    /// `bytes` are the file's, kept alive by `owner`; texts become names of `names`.
    ReadContext(std::span<const std::byte> bytes, std::shared_ptr<const void> owner, NameTable& names)
        : m_owner(std::move(owner)), m_unclaimed(bytes.size()), m_unclaimedColumns(bytes.size()), m_names(names) {}

    /// A text of the file; empty for one that the file doesn't have.
    std::wstring text(const flatbuffers::String* source, const Place& place);
    /// The same as a name of the drawing.
    NameId name(const flatbuffers::String* source, const Place& place);
    /// The name at an index of the file's style names; -1 and 0 mean none.
    NameId style(std::int64_t index, const Place& place) const;

    /// Enters the file's style names; must come before style() and styles().
    void readStyleNames(const flatbuffers::Vector<flatbuffers::Offset<flatbuffers::String>>& source);
    std::size_t styleCount() const { return m_styles.size(); }
    /// Whether the numbers of styles in the file are the drawing's own.
    bool stylesAreNames() const { return m_identity; }

    /// Counts `bytes` of the file that are about to be copied. Parts of a sound file don't overlap, so that all copies
    /// together are no larger than the file; a file whose copies would be larger is refused.
    void claim(std::size_t bytes);
    /// Counts `count` flags that the file only implies: a viewport's, of all layers up to the last frozen one. Refuses
    /// a file that implies too many.
    void claimFlags(std::size_t count);

    /// A column that uses the file's bytes in place.
    template <class T> Column<T> view(const flatbuffers::Vector<T>& source) {
        claimColumn(source.data(), source.size() * sizeof(T));
        return Column<T>(m_owner, std::span<const T>(source.data(), source.size()));
    }
    /// A column of style numbers as names of the drawing: the file's bytes themselves when they agree.
    Column<NameId> styles(const flatbuffers::Vector<std::uint32_t>& source, const Place& place);

  private:
    /// Columns may be the same, but not overlap: each is looked at once, and all together are no larger than the file.
    void claimColumn(const void* values, std::size_t bytes);

    std::shared_ptr<const void> m_owner;
    std::size_t m_unclaimed, m_unclaimedColumns;
    std::set<std::pair<const void*, std::size_t>> m_columns;
    std::size_t m_unclaimedFlags = std::size_t{1} << 30; // 128 MB of flags: 50,000 viewports over 20,000 layers
    NameTable& m_names;
    std::vector<NameId> m_styles;
    bool m_identity = true;
};

/// The values of a vector of doubles or points; refuses one that isn't aligned as the processor wants it.
template <class T> std::span<const T> alignedValues(const flatbuffers::Vector<T>& source, const Place& place) {
    if (source.size() == 0)
        return {}; // an empty vector may stand anywhere
    if (reinterpret_cast<std::uintptr_t>(source.data()) % alignof(T) != 0)
        refuse(place, L"has values at an address that isn't aligned");
    return {source.data(), source.size()};
}

} // namespace zdr
