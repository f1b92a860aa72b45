// Values for the leaves of a record or of the host's data, no two of them equal. Trees that are
// walked in one order with equal Numbers get equal leaves, so that a leaf in a wrong place shows.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace TestSupport {

class Numbers {
public:
    // The arrays on the way get `lengths` in turn.
    explicit Numbers(unsigned first = 1, std::vector<unsigned> lengths = {2, 3, 1})
        : m_next(first), m_lengths(std::move(lengths)) {}

    double number() noexcept { return m_next++ + 0.25; }

    // Every other one is longer than what a string of the graph keeps in place.
    std::string text() {
        std::string text = "text " + std::to_string(m_next);
        if (m_next++ % 2 == 0) text += " of more than fifteen characters";
        return text;
    }

    // Sixteen different values, so that a transposition shows.
    void fill(double (&rows)[4][4]) noexcept {
        double value = m_next++;
        for (auto& row : rows)
            for (double& element : row) {
                element = value;
                value += 1.0 / 16;
            }
    }

    unsigned length() noexcept { return m_lengths[m_arrays++ % m_lengths.size()]; }

private:
    unsigned m_next;
    std::size_t m_arrays = 0;
    std::vector<unsigned> m_lengths;
};

}  // namespace TestSupport
