// The mistakes of the faulty library, which is this one built with PLAIN_HAS_FAULTS: it makes the
// one that TOLVANE_TEST_FAULT in the environment names. Most have the names of the cases that
// are to find them. Built without, the library makes none.
#pragma once

#include <cstddef>
#include <string_view>

namespace Plain {

#ifdef PLAIN_HAS_FAULTS

bool fault(std::string_view name);

// What a translation has no business to do while it reads, if the fault is of that kind.
void meddle();

// False if another copy of the library is loaded.
bool isOnlyCopy();

// Memory that nobody frees.
void leak(std::size_t bytes);

// Long enough for other threads to come by.
void dawdle();

#else

constexpr bool fault(std::string_view) { return false; }
inline void meddle() {}
inline bool isOnlyCopy() { return true; }
inline void leak(std::size_t) {}
inline void dawdle() {}

#endif

}  // namespace Plain
