// The kinds of data that a typed attribute holds. The host has more; these are the ones that this
// library stores.
#pragma once

class VFnData {
public:
    enum Type { kInvalid = 0, kString = 4 };
};
