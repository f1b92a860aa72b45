// A value in a JSON document, and where it stands, for messages. Whatever is not as a reader wants
// it throws Error, which names the place.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

namespace Tolvane::Tools {

class JsonPlace {
public:
    // The document as a whole, which outlives its places.
    explicit JsonPlace(const nlohmann::json& document) : m_value(document) {}

    // This object's member of that name.
    JsonPlace member(const char* key) const;
    // None if this object has no member of that name.
    std::vector<JsonPlace> elementsIfAny(const char* key) const;
    std::vector<JsonPlace> elements() const;
    // Without a NUL.
    std::string text() const;
    std::int32_t integer() const;

    void refuseOtherKeysThan(std::initializer_list<const char*> keys) const;
    [[noreturn]] void refuse(const std::string& cause) const;

private:
    JsonPlace(const nlohmann::json& value, std::string path)
        : m_value(value), m_path(std::move(path)) {}

    const nlohmann::json& m_value;
    // Such as "structs[1].members"; empty for the document.
    std::string m_path;
};

}  // namespace Tolvane::Tools
