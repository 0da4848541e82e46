// Where the bytes of a drawing file go, and the buffer that turns many small pieces into few large ones.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace zdr {

/// Takes the bytes of a file in order.
class ByteSink {
  public:
    virtual void write(std::span<const std::byte> bytes) = 0;

  protected:
    ~ByteSink() = default;
};

/// Gathers small pieces and hands them to a sink in large ones. The buffer is small enough to stay in the processor's
/// cache, so that the copy costs little.
class SinkBuffer {
  public:
    explicit SinkBuffer(ByteSink& sink) : m_sink(sink) { m_bytes.reserve(kSize); }
    void add(std::span<const std::byte> bytes);
    /// To be called once, at the end.
    void flush();

  private:
    static constexpr std::size_t kSize = std::size_t{256} * 1024;
    ByteSink& m_sink;
    std::vector<std::byte> m_bytes;
};

} // namespace zdr
