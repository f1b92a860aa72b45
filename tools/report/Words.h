// Small texts that reports are made of.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace Tolvane::Tools {

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
