// Compares and copies columns between a state and the drawing: in runs of memory where both hold the same layers in the
// same order, otherwise row by row.
#pragma once

#include "LayerMapping.h"

#include <cstring>

namespace engine {

/// Row by row, for a scattered mapping: whether the columns agree in `bits` of each value that both have.
template <class T>
bool rowsEqual(const T* state, const T* drawing, const LayerMapping& mapping, T bits = static_cast<T>(~T{0})) {
    constexpr std::size_t kBlock = 512;
    const std::uint32_t* const rows = mapping.rows.data();
    for (std::size_t begin = 0; begin < mapping.rows.size(); begin += kBlock) {
        const std::size_t end = std::min(begin + kBlock, mapping.rows.size());
        unsigned difference = 0;
        if (mapping.missing == 0)
            for (std::size_t i = begin; i < end; ++i)
                difference |= static_cast<unsigned>((state[i] ^ drawing[rows[i]]) & bits);
        else
            for (std::size_t i = begin; i < end; ++i)
                if (rows[i] != LayerMapping::kAbsent)
                    difference |= static_cast<unsigned>((state[i] ^ drawing[rows[i]]) & bits);
        if (difference)
            return false;
    }
    return true;
}

/// Row by row, for a scattered mapping: the drawing's values, and in the places of those that the state has what `join`
/// makes of the drawing's and the state's. Each is written once, one behind the other. Unrolled: the loops that GCC
/// makes of them at -O3 by itself take longer.
template <class T, class Join>
zdr::Column<T> joinRows(const T* drawing, const T* state, const LayerMapping& mapping, const Join& join) {
    const std::uint32_t* const sources = mapping.sources.data();
    const std::size_t count = mapping.sources.size();
    std::vector<T> values(count);
    T* const to = values.data();
    if (mapping.held == count)
#pragma GCC unroll 8
        for (std::size_t i = 0; i < count; ++i)
            to[i] = join(drawing[i], state[sources[i]]);
    else
#pragma GCC unroll 8
        for (std::size_t i = 0; i < count; ++i)
            to[i] = sources[i] == LayerMapping::kAbsent ? drawing[i] : join(drawing[i], state[sources[i]]);
    return zdr::Column<T>(std::move(values));
}

/// Whether the columns agree in each value that both have.
template <class T>
bool runsEqual(const zdr::Column<T>& state, const zdr::Column<T>& drawing, const LayerMapping& mapping) {
    const T* const left = state.values().data();
    const T* const right = drawing.values().data();
    if (left == right && mapping.whole)
        return true;
    if (mapping.isScattered())
        return rowsEqual(left, right, mapping);
    for (const LayerMapping::Run& run : mapping.runs)
        if (std::memcmp(left + run.state, right + run.drawing, run.count * sizeof(T)) != 0)
            return false;
    return true;
}

/// Whether the bytes agree in `bits`; compares eight bytes at a time.
inline bool bitsEqual(const std::uint8_t* left, const std::uint8_t* right, std::size_t count, std::uint8_t bits) {
    const std::uint64_t mask = 0x0101010101010101 * bits;
    constexpr std::size_t kWord = sizeof mask, kBlock = 64 * kWord;
    std::size_t i = 0;
    while (i + kWord <= count) {
        std::uint64_t difference = 0;
        const std::size_t end = std::min(count - count % kWord, i + kBlock);
        for (; i < end; i += kWord) {
            std::uint64_t a, b;
            std::memcpy(&a, left + i, kWord);
            std::memcpy(&b, right + i, kWord);
            difference |= a ^ b;
        }
        if (difference & mask)
            return false;
    }
    for (; i < count; ++i)
        if ((left[i] ^ right[i]) & bits)
            return false;
    return true;
}

/// Whether the columns agree in `bits` of each value that both have.
inline bool bitsMatch(const zdr::Column<std::uint8_t>& state, const zdr::Column<std::uint8_t>& drawing,
                      const LayerMapping& mapping, std::uint8_t bits) {
    const std::uint8_t* const left = state.values().data();
    const std::uint8_t* const right = drawing.values().data();
    if (mapping.isScattered())
        return rowsEqual(left, right, mapping, bits);
    return std::ranges::all_of(mapping.runs, [&](const LayerMapping::Run& run) {
        return bitsEqual(left + run.state, right + run.drawing, run.count, bits);
    });
}

/// The drawing's values with the state's in their places, where the runs follow each other in both: each value is
/// written once.
template <class T>
zdr::Column<T> joinRuns(const T* drawing, std::size_t count, const T* state, const LayerMapping& mapping) {
    std::vector<T> values;
    values.reserve(count);
    const auto keepUpTo = [&](std::size_t end) { values.insert(values.end(), drawing + values.size(), drawing + end); };
    for (const LayerMapping::Run& run : mapping.runs) {
        keepUpTo(run.drawing);
        values.insert(values.end(), state + run.state, state + run.state + run.count);
    }
    keepUpTo(count);
    return zdr::Column<T>(std::move(values));
}

/// Writes the state's values over the drawing's. When the state holds just the drawing's layers, they share the column.
/// A column that has the values already, as most have of what users rarely change, stays as it is, so that the steps of
/// undo go on sharing it.
template <class T> void copyRuns(zdr::Column<T>& drawing, const zdr::Column<T>& state, const LayerMapping& mapping) {
    if (mapping.whole) {
        drawing = state;
        return;
    }
    if (runsEqual(state, drawing, mapping))
        return;
    const T* const from = state.values().data();
    if (mapping.isScattered())
        drawing = joinRows(drawing.values().data(), from, mapping, [](T, T value) { return value; });
    else if (std::ranges::is_sorted(mapping.runs, {}, &LayerMapping::Run::drawing))
        drawing = joinRuns(drawing.values().data(), drawing.size(), from, mapping);
    else
        for (T* const to = drawing.write().data(); const LayerMapping::Run& run : mapping.runs)
            std::memcpy(to + run.drawing, from + run.state, run.count * sizeof(T));
}

/// Copies `bits` of each byte and leaves the others. A column that has them already stays as it is.
inline void copyBits(zdr::Column<std::uint8_t>& drawing, const zdr::Column<std::uint8_t>& state,
                     const LayerMapping& mapping, std::uint8_t bits) {
    if (bitsMatch(state, drawing, mapping, bits))
        return;
    const auto join = [bits](std::uint8_t own, std::uint8_t other) {
        return static_cast<std::uint8_t>((own & ~bits) | (other & bits));
    };
    const std::uint8_t* const from = state.values().data();
    if (mapping.isScattered()) {
        drawing = joinRows(drawing.values().data(), from, mapping, join);
        return;
    }
    // The compiler has to assume that writing a byte changes anything, so the loops read nothing but the two columns.
    std::uint8_t* const to = drawing.write().data();
    for (const LayerMapping::Run& each : mapping.runs) {
        const LayerMapping::Run run = each;
        for (std::size_t i = 0; i < run.count; ++i)
            to[run.drawing + i] = join(to[run.drawing + i], from[run.state + i]);
    }
}

} // namespace engine
