// Update: asks the update server for newer versions and fetches the setup program.
// What of a response has arrived and was not fetched yet.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace vantor {

/// Bytes go in at the end and are taken from the front. What was taken goes with the next bytes that come in, so that
/// many small chunks cost no copy each.
class ResponseBuffer {
  public:
    [[nodiscard]] std::size_t size() const noexcept { return m_bytes.size() - m_begin; }

    void clear() noexcept {
        m_bytes.clear();
        m_begin = 0;
    }
    void append(std::string_view bytes) {
        m_bytes.erase(0, std::exchange(m_begin, 0));
        m_bytes += bytes;
    }
    /// The next bytes, at most `most`; empty when there are none.
    [[nodiscard]] std::string take(std::size_t most) {
        std::string chunk = m_bytes.substr(m_begin, most);
        m_begin += chunk.size();
        return chunk;
    }

  private:
    std::string m_bytes;
    std::size_t m_begin = 0;
};

} // namespace vantor
