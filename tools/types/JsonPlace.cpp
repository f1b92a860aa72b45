#include "tools/types/JsonPlace.h"

#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <limits>

namespace Tolvane::Tools {

JsonPlace JsonPlace::member(const char* key) const {
    const auto found = m_value.find(key);
    if (found == m_value.end()) refuse(std::string("has no \"") + key + "\"");
    return {*found, m_path + (m_path.empty() ? "" : ".") + key};
}

std::vector<JsonPlace> JsonPlace::elementsIfAny(const char* key) const {
    if (!m_value.contains(key)) return {};
    return member(key).elements();
}

std::vector<JsonPlace> JsonPlace::elements() const {
    if (!m_value.is_array()) refuse("is not an array");
    std::vector<JsonPlace> elements;
    for (std::size_t i = 0; i < m_value.size(); ++i)
        elements.push_back({m_value[i], m_path + "[" + std::to_string(i) + "]"});
    return elements;
}

std::string JsonPlace::text() const {
    if (!m_value.is_string()) refuse("is not a string");
    std::string text = m_value.get<std::string>();
    // The graph takes C text, and would not see what follows.
    if (text.find('\0') != std::string::npos) refuse("has a NUL in it");
    return text;
}

std::int32_t JsonPlace::integer() const {
    using Limits = std::numeric_limits<std::int32_t>;
    // A number above the greatest signed one is unsigned.
    const bool fits = m_value.is_number_unsigned()
                          ? m_value.get<std::uint64_t>() <= std::uint64_t{Limits::max()}
                          : m_value.is_number_integer() &&
                                m_value.get<std::int64_t>() >= std::int64_t{Limits::min()};
    if (!fits) refuse("is not a whole number of 32 bits");
    return m_value.get<std::int32_t>();
}

void JsonPlace::refuseOtherKeysThan(std::initializer_list<const char*> keys) const {
    if (!m_value.is_object()) refuse("is not an object");
    for (const auto& item : m_value.items())
        if (std::find(keys.begin(), keys.end(), item.key()) == keys.end())
            refuse("has the unknown key " + inQuotes(item.key()));
}

void JsonPlace::refuse(const std::string& cause) const {
    throw Error(m_path + (m_path.empty() ? "" : ": ") + cause);
}

}  // namespace Tolvane::Tools
