// Where a generator takes its choices from: a seeded engine, or bytes. What was chosen is kept as
// bytes, which make the same choices again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <utility>
#include <vector>

namespace ModelTests {

using Bytes = std::vector<std::uint8_t>;

class Choices {
public:
    explicit Choices(std::uint64_t seed) : m_engine(seed) {}
    // All choices after the last byte are 0.
    explicit Choices(Bytes bytes) : m_bytes(std::move(bytes)) {}

    // A number from 0 to `count` - 1; `count` is at most 256. A generator gives 0 the simplest
    // meaning, so that less is simpler.
    unsigned below(unsigned count) { return take() % count; }
    // True once in `count` times.
    bool oneIn(unsigned count) { return below(count) == count - 1; }

    // The next choice begins something that could be left out as a whole.
    void beginPart() { m_parts.push_back(m_taken.size()); }

    const Bytes& taken() const noexcept { return m_taken; }
    const std::vector<std::size_t>& parts() const noexcept { return m_parts; }

private:
    std::uint8_t take() {
        const std::size_t position = m_taken.size();
        if (m_engine)
            m_taken.push_back(static_cast<std::uint8_t>((*m_engine)()));
        else
            m_taken.push_back(position < m_bytes.size() ? m_bytes[position] : std::uint8_t{0});
        return m_taken.back();
    }

    std::optional<std::mt19937_64> m_engine;
    Bytes m_bytes;
    Bytes m_taken;
    std::vector<std::size_t> m_parts;
};

}  // namespace ModelTests
