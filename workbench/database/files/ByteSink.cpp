#include "ByteSink.h"

namespace zdr {

void SinkBuffer::add(std::span<const std::byte> bytes) {
    if (m_bytes.size() + bytes.size() > kSize)
        flush();
    if (bytes.size() >= kSize)
        m_sink.write(bytes);
    else
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
}

void SinkBuffer::flush() {
    if (!m_bytes.empty())
        m_sink.write(m_bytes);
    m_bytes.clear();
}

} // namespace zdr
