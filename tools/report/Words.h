// Small texts that reports are made of.
#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// A line such as "Rig      walk.bvh", where `column` is that of the name. A name that is too long
// loses its middle or, if it is to be whole, goes on in further lines.
void printFact(std::ostream& out, const std::string& head, const std::string& name,
               bool whole = false, std::size_t column = 9);

// 1234567 as "1,234,567".
std::string grouped(std::size_t number);

// "1 file", "1,234 files"
std::string counted(std::size_t count, const std::string& one, const std::string& many);

// "a, b, c"
std::string joined(const std::vector<std::string>& parts);

// With so many digits behind the point.
std::string withDigits(double number, int digits);

// With at most six digits: "0.0166667".
std::string shortText(double number);

// "394 ns", "12.5 µs"
std::string inWords(std::chrono::nanoseconds time);

}  // namespace Tolvane::Tools
