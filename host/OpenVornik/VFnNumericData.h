// The kinds of number that a numeric attribute holds. The host has more; these are the ones that
// this library stores.
#pragma once

class VFnNumericData {
public:
    enum Type { kInvalid = 0, kBoolean = 1, kInt = 7, kDouble = 14 };
};
