// Values of the host as a mismatch shows them: for people in one line each, for programs whole.
#pragma once

#include "tools/node/DataShape.h"
#include "tools/node/Mismatch.h"

#include <string>

namespace Tolvane::Tools {

// What differs between two leaves of one kind that are not of the same bits. Of a leaf that was not
// written there is no actual value; such a matrix is given whole.
void addValues(const DataPlace& expected, const DataPlace& actual, Mismatch& mismatch);

// The same of values of a leaf of this shape; a short is one of an enum.
void addValues(const DataShape& leaf, const VMatrix& expected, const VMatrix& actual,
               Mismatch& mismatch);
void addValues(const DataShape& leaf, const VString& expected, const VString& actual,
               Mismatch& mismatch);
void addValues(const DataShape& leaf, double expected, double actual, Mismatch& mismatch);
void addValues(const DataShape& leaf, bool expected, bool actual, Mismatch& mismatch);
void addValues(const DataShape& leaf, int expected, int actual, Mismatch& mismatch);
void addValues(const DataShape& leaf, short expected, short actual, Mismatch& mismatch);

// Of two counts or indices.
void addValues(std::int64_t expected, std::int64_t actual, Mismatch& mismatch);

// With as many digits as it takes to tell it from every other number. A NaN comes with its bits.
std::string textOf(double number);

// "1 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 1": its rows.
std::string textOf(const VMatrix& matrix);

// Two texts in quotes, with what cannot be printed written as "\x1b". Long ones are cut around the
// place where they begin to differ: ..."der.left.arm_"... Each takes 60 columns at most.
void addTexts(const std::string& expected, const std::string& actual, Mismatch& mismatch);

}  // namespace Tolvane::Tools
