// The files here are compiled, never run, while the build is configured against platforms from
// packages. Each need stands on a line of its own, and the comment behind it names it to whoever
// has a package that lacks it.
#pragma once

#include <utility>

// That this expression compiles.
#define NEEDS(...) static_assert(noexcept(__VA_ARGS__) || true)

// Some T or, if it is a reference, something that it refers to.
template <typename T>
T&& a() noexcept;
