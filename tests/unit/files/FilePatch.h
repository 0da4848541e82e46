// A drawing file in memory that a test damages on purpose, one value at a time.
#pragma once

#include "model/Drawing.h"

#include <drawing_generated.h>

#include <cstring>
#include <span>
#include <string>
#include <vector>

class FilePatch {
  public:
    /// The file of a drawing.
    explicit FilePatch(const zdr::Drawing& drawing);

    const zdr::file::Drawing& root() const { return *zdr::file::GetDrawing(m_bytes.data()); }
    std::vector<std::byte>& bytes() { return m_bytes; }

    /// Overwrites a field. The field must be in the file: one that has its default value isn't.
    template <class Table, class T> void set(const Table* table, flatbuffers::voffset_t field, T value) {
        write(fieldAddress(table, field), &value, sizeof(value));
    }
    /// Overwrites an element of a vector.
    template <class Element, class T>
    void setElement(const flatbuffers::Vector<Element>* vector, std::size_t index, T value) {
        write(vector->Data() + index * sizeof(T), &value, sizeof(value));
    }
    /// Overwrites the number of elements that a vector or string claims.
    template <class Vector> void setCount(const Vector* vector, std::uint32_t count) {
        write(vector, &count, sizeof(count));
    }
    /// Overwrites the characters of a string.
    void setText(const flatbuffers::String* string, const std::string& text);
    /// Makes an offset field lead to `target`.
    template <class Table> void lead(const Table* table, flatbuffers::voffset_t field, const void* target) {
        const auto* from = static_cast<const std::uint8_t*>(fieldAddress(table, field));
        set(table, field, static_cast<std::uint32_t>(static_cast<const std::uint8_t*>(target) - from));
    }

  private:
    static const void* fieldAddress(const void* table, flatbuffers::voffset_t field);
    void write(const void* address, const void* value, std::size_t size);

    std::vector<std::byte> m_bytes;
};
