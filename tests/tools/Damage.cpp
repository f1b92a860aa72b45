#include "tests/tools/Damage.h"

#include <algorithm>
#include <random>

namespace {

constexpr std::size_t kHeadSize = 2000;

class Chance {
public:
    explicit Chance(std::uint32_t seed) : m_engine(seed) {}

    // A number from 0 on that is less than `limit`.
    std::size_t below(std::size_t limit) { return m_engine() % limit; }
    char byte() { return static_cast<char>(below(256)); }

private:
    std::mt19937 m_engine;
};

void truncate(std::string& content, std::uint32_t seed) {
    content.resize(Chance(seed).below(content.size()));
}

// Half of the flips hit the head of the file, where most formats have their signature and their
// sizes.
void flipBits(std::string& content, std::uint32_t seed) {
    Chance chance(seed);
    const std::size_t mostFlips = std::size_t{1} << chance.below(7);
    for (std::size_t flips = 1 + chance.below(mostFlips); flips > 0; --flips) {
        const bool inHead = chance.below(2) == 0;
        const std::size_t part = inHead ? std::min(kHeadSize, content.size()) : content.size();
        char& byte = content[chance.below(part)];
        byte = static_cast<char>(byte ^ (1 << chance.below(8)));
    }
}

void randomiseFrom(std::size_t start, std::string& content, Chance& chance) {
    std::generate(content.begin() + static_cast<std::ptrdiff_t>(start), content.end(),
                  [&] { return chance.byte(); });
}

void randomiseTail(std::string& content, std::uint32_t seed) {
    Chance chance(seed);
    randomiseFrom(chance.below(content.size()), content, chance);
}

void randomise(std::string& content, std::uint32_t seed) {
    Chance chance(seed);
    content.resize(1 + chance.below(content.size()));
    randomiseFrom(0, content, chance);
}

}  // namespace

const std::vector<Damage>& damages() {
    static const std::vector<Damage> s_damages{{"Truncated", &truncate},
                                               {"BitsFlipped", &flipBits},
                                               {"RandomTail", &randomiseTail},
                                               {"Random", &randomise}};
    return s_damages;
}
