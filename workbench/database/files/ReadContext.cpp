#include "ReadContext.h"

#include "TextCoding.h"

namespace zdr {

namespace {

void take(std::size_t bytes, std::size_t& unclaimed) {
    if (bytes > unclaimed)
        throw Refusal{Vorn::eFileCutOff, L"is damaged: its parts overlap, and claim more bytes than the file holds"};
    unclaimed -= bytes;
}

} // namespace

void ReadContext::claim(std::size_t bytes) {
    take(bytes, m_unclaimed);
}

void ReadContext::claimColumn(const void* values, std::size_t bytes) {
    if (m_columns.emplace(values, bytes).second)
        take(bytes, m_unclaimedColumns);
}

void ReadContext::claimFlags(std::size_t count) {
    if (count > m_unclaimedFlags)
        throw Refusal{Vorn::eFileCutOff, L"is damaged: its viewports have more layers than a drawing can hold"};
    m_unclaimedFlags -= count;
}

std::wstring ReadContext::text(const flatbuffers::String* source, const Place& place) {
    if (!source)
        return {};
    claim(sizeof(flatbuffers::uoffset_t) + source->size());
    std::optional<std::wstring> text = fromUtf8({source->c_str(), source->size()});
    if (!text)
        refuse(place, L"has a text that isn't UTF-8");
    return *std::move(text);
}

NameId ReadContext::name(const flatbuffers::String* source, const Place& place) {
    return m_names.intern(text(source, place));
}

NameId ReadContext::style(std::int64_t index, const Place& place) const {
    if (index == -1)
        return kNoName;
    if (index < 0 || static_cast<std::uint64_t>(index) >= m_styles.size())
        refuseIndex(place, L"style name", static_cast<std::uint64_t>(index), m_styles.size());
    return m_styles[static_cast<std::size_t>(index)];
}

void ReadContext::readStyleNames(const flatbuffers::Vector<flatbuffers::Offset<flatbuffers::String>>& source) {
    if (source.size() == 0 || source.Get(0)->size() != 0)
        refuse({L"style name", 0}, L"isn't the empty one that stands first");
    m_styles.reserve(source.size());
    for (flatbuffers::uoffset_t i = 0; i < source.size(); ++i) {
        m_styles.push_back(name(source.Get(i), {L"style name", i}));
        m_identity = m_identity && m_styles.back() == i;
    }
}

Column<NameId> ReadContext::styles(const flatbuffers::Vector<std::uint32_t>& source, const Place& place) {
    // The file's numbers are the drawing's name ids and are used in place. The check of the columns makes sure that
    // none is out of range, which saves a pass here.
    if (m_identity)
        return view(source);
    claim(source.size() * sizeof(NameId));
    std::vector<NameId> names;
    names.reserve(source.size());
    for (flatbuffers::uoffset_t i = 0; i < source.size(); ++i)
        names.push_back(style(source.Get(i), place));
    return Column<NameId>(std::move(names));
}

} // namespace zdr
