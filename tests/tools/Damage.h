// Ways to damage a file. The same seed always does the same damage.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

struct Damage {
    const char* name;
    // `content` is not empty.
    void (*inflict)(std::string& content, std::uint32_t seed);
};

inline void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.name; }

const std::vector<Damage>& damages();
