#include "tools/types/ParseTypes.h"

#include "tools/support/Error.h"
#include "tools/support/OneLine.h"
#include "tools/types/JsonPlace.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Tolvane::Tools {
namespace {

// Descriptions nest half as deep.
constexpr std::size_t kDeepestNesting = 10;

bool isIdentifier(std::string_view text) {
    const auto isLetter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    return !text.empty() && isLetter(text.front()) &&
           std::all_of(text.begin(), text.end(),
                       [&](char c) { return isLetter(c) || (c >= '0' && c <= '9'); });
}

bool isQualifiedName(std::string_view text) {
    for (std::size_t end; (end = text.find("::")) != std::string_view::npos;
         text.remove_prefix(end + 2))
        if (!isIdentifier(text.substr(0, end))) return false;
    return isIdentifier(text);
}

std::string typeName(const JsonPlace& place) {
    std::string name = place.text();
    if (!isQualifiedName(name))
        place.refuse(inQuotes(name) + " is no name for a type: identifiers, joined by \"::\"");
    return name;
}

std::string memberName(const JsonPlace& place) {
    std::string name = place.text();
    if (!isIdentifier(name)) place.refuse(inQuotes(name) + " is no identifier");
    return name;
}

StructDescription structOf(const JsonPlace& place) {
    place.refuseOtherKeysThan({"name", "members"});
    StructDescription description{typeName(place.member("name")), {}};
    for (const JsonPlace& member : place.member("members").elements()) {
        member.refuseOtherKeysThan({"name", "type"});
        description.members.push_back(
            {memberName(member.member("name")), member.member("type").text()});
    }
    return description;
}

EnumDescription enumOf(const JsonPlace& place) {
    place.refuseOtherKeysThan({"name", "fields"});
    EnumDescription description{typeName(place.member("name")), {}};
    for (const JsonPlace& field : place.member("fields").elements()) {
        field.refuseOtherKeysThan({"name", "value"});
        const std::string name = memberName(field.member("name"));
        description.fields.emplace_back(name.c_str(), field.member("value").integer());
    }
    return description;
}

std::string lineAndColumn(std::string_view text, std::size_t bytesRead) {
    const std::string_view before = text.substr(0, bytesRead > 0 ? bytesRead - 1 : 0);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t lineEnd = before.rfind('\n');
    const std::size_t column =
        before.size() - (lineEnd == std::string_view::npos ? 0 : lineEnd + 1) + 1;
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

bool isUtf8(const std::string& text) {
    try {
        static_cast<void>(nlohmann::json(text).dump());
        return true;
    } catch (const nlohmann::json::type_error&) {
        return false;
    }
}

// The parser's message ends with what it found or expected. What it had read by then is left out:
// it can be the whole file.
std::string whyNoJson(const nlohmann::json::parse_error& error) {
    const std::string_view message = error.what();
    const std::string_view opening = " - ";
    const std::size_t opened = message.find(opening);
    if (opened == std::string_view::npos) return "is not JSON";
    const std::size_t begin = opened + opening.size();
    const std::size_t end = message.find("; last read: ", begin);
    std::string found(message.substr(begin, end - begin));
    // As this program's own messages quote.
    std::replace(found.begin(), found.end(), '\'', '"');
    return "is not JSON: " + found;
}

// Throws Error for what the parser takes as it comes: any depth, and several members of one name,
// of which it keeps the last. What is not JSON is left to the parser to refuse.
class DepthAndKeys : public nlohmann::json_sax<nlohmann::json> {
public:
    bool start_object(std::size_t) override { return open(); }
    bool start_array(std::size_t) override { return open(); }
    bool end_object() override { return close(); }
    bool end_array() override { return close(); }
    bool key(std::string& key) override {
        if (!m_open.back().insert(key).second)
            throw Error("has the key " + inQuotes(key) + " twice in one object");
        return true;
    }

    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(std::int64_t) override { return true; }
    bool number_unsigned(std::uint64_t) override { return true; }
    bool number_float(double, const std::string&) override { return true; }
    bool string(std::string&) override { return true; }
    bool binary(nlohmann::json::binary_t&) override { return true; }
    bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) override {
        return false;
    }

private:
    bool open() {
        m_open.emplace_back();
        if (m_open.size() > kDeepestNesting) throw Error("nests too deep to describe types");
        return true;
    }
    bool close() {
        m_open.pop_back();
        return true;
    }

    // The keys of each object, and none for each array, from the outside in.
    std::vector<std::set<std::string>> m_open;
};

nlohmann::json parseJson(const std::string& text) {
    DepthAndKeys check;
    nlohmann::json::sax_parse(text, &check);
    try {
        return nlohmann::json::parse(text);
    } catch (const nlohmann::json::parse_error& error) {
        throw Error(lineAndColumn(text, error.byte) + ": " +
                    (isUtf8(text) ? whyNoJson(error) : "is not JSON in UTF-8"));
    } catch (const nlohmann::json::out_of_range&) {
        throw Error("has a number that is too big to read");
    }
}

}  // namespace

TypeDescriptions parseTypes(const std::string& text) {
    const nlohmann::json json = parseJson(text);
    const JsonPlace document(json);
    document.refuseOtherKeysThan({"structs", "enums"});
    TypeDescriptions types;
    for (const JsonPlace& place : document.elementsIfAny("structs"))
        types.structs.push_back(structOf(place));
    for (const JsonPlace& place : document.elementsIfAny("enums"))
        types.enums.push_back(enumOf(place));
    return types;
}

}  // namespace Tolvane::Tools
