// Compares and copies columns between a state and the drawing: in runs of memory where both hold the same layers in the
// same order, otherwise row by row.
#pragma once

#include "LayerMapping.h"

#include <cstring>

namespace engine {

/// Row by row, for a scattered mapping: whether the columns agree in `bits` of each value. The drawing must have all
/// layers of the state.
template <class T>
bool rowsEqual(const T* state, const T* drawing, const LayerMapping& mapping, T bits = static_cast<T>(~T{0})) {
    constexpr std::size_t kBlock = 512;
    const std::uint32_t* const rows = mapping.rows.data();
    for (std::size_t begin = 0; begin < mapping.rows.size(); begin += kBlock) {
        const std::size_t end = std::min(begin + kBlock, mapping.rows.size());
        unsigned difference = 0;
        for (std::size_t i = begin; i < end; ++i)
            difference |= static_cast<unsigned>((state[i] ^ drawing[rows[i]]) & bits);
        if (difference)
            return false;
    }
    return true;
}

template <class T> void copyRows(T* drawing, const T* state, const LayerMapping& mapping) {
    const std::uint32_t* const rows = mapping.rows.data();
    const std::size_t count = mapping.rows.size();
    if (mapping.missing == 0)
        for (std::size_t i = 0; i < count; ++i)
            drawing[rows[i]] = state[i];
    else
        for (std::size_t i = 0; i < count; ++i)
            if (rows[i] != LayerMapping::kAbsent)
                drawing[rows[i]] = state[i];
}

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

/// Writes the state's values over the drawing's. When the state holds just the drawing's layers, they share the column.
template <class T> void copyRuns(zdr::Column<T>& drawing, const zdr::Column<T>& state, const LayerMapping& mapping) {
    if (mapping.whole) {
        drawing = state;
        return;
    }
    T* const to = drawing.write().data();
    const T* const from = state.values().data();
    if (mapping.isScattered())
        copyRows(to, from, mapping);
    else
        for (const LayerMapping::Run& run : mapping.runs)
            std::memcpy(to + run.drawing, from + run.state, run.count * sizeof(T));
}

/// Copies `bits` of each byte and leaves the others.
inline void copyBits(zdr::Column<std::uint8_t>& drawing, const zdr::Column<std::uint8_t>& state,
                     const LayerMapping& mapping, std::uint8_t bits) {
    std::uint8_t* const to = drawing.write().data();
    const std::uint8_t* const from = state.values().data();
    for (const LayerMapping::Run& run : mapping.runs) {
        std::uint8_t* const target = to + run.drawing;
        const std::uint8_t* const source = from + run.state;
        for (std::size_t i = 0; i < run.count; ++i)
            target[i] = static_cast<std::uint8_t>((target[i] & ~bits) | (source[i] & bits));
    }
}

} // namespace engine
