// The host's data by the C++ type of the value, for code that is the same for all of them.
#pragma once

#include <OpenVornik/VDataHandle.h>

#include <cstring>

namespace Tolvane::Tools {

inline VMatrix& held(const VDataHandle& handle, const VMatrix&) { return handle.asMatrix(); }
inline VString& held(const VDataHandle& handle, const VString&) { return handle.asString(); }
inline double& held(const VDataHandle& handle, double) { return handle.asDouble(); }
inline bool& held(const VDataHandle& handle, bool) { return handle.asBool(); }
inline int& held(const VDataHandle& handle, int) { return handle.asInt(); }
inline short& held(const VDataHandle& handle, short) { return handle.asShort(); }

inline void put(VDataHandle handle, const VMatrix& value) { handle.setMatrix(value); }
inline void put(VDataHandle handle, const VString& value) { handle.setString(value); }
inline void put(VDataHandle handle, double value) { handle.setDouble(value); }
inline void put(VDataHandle handle, bool value) { handle.setBool(value); }
inline void put(VDataHandle handle, int value) { handle.setInt(value); }
inline void put(VDataHandle handle, short value) { handle.setShort(value); }

// A NaN equals one of the same bits; 0.0 does not equal -0.0.
template <typename Value>
bool sameBits(const Value& a, const Value& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}
inline bool sameBits(const VString& a, const VString& b) { return a == b; }

}  // namespace Tolvane::Tools
