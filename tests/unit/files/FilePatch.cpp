#include "FilePatch.h"

#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <stdexcept>

FilePatch::FilePatch(const zdr::Drawing& drawing) {
    std::wstring reason;
    if (zdr::drawingBytes(drawing, m_bytes, reason) != Vorn::eOk)
        throw std::runtime_error(zdr::toUtf8(reason));
}

void FilePatch::setText(const flatbuffers::String* string, const std::string& text) {
    if (text.size() != string->size())
        throw std::runtime_error("the texts have different lengths");
    write(string->c_str(), text.data(), text.size());
}

const void* FilePatch::fieldAddress(const void* table, flatbuffers::voffset_t field) {
    const void* address = static_cast<const flatbuffers::Table*>(table)->GetAddressOf(field);
    if (!address)
        throw std::runtime_error("the field isn't in the file");
    return address;
}

void FilePatch::write(const void* address, const void* value, std::size_t size) {
    const auto offset = static_cast<const std::byte*>(address) - m_bytes.data();
    std::memcpy(m_bytes.data() + offset, value, size);
}
