#include "tools/types/ParseTypes.h"

#include "tools/support/Error.h"
#include "tools/support/OneLine.h"
#include "tools/types/JsonPlace.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace Tolvane::Tools {
namespace {

// Descriptions nest half as deep.
constexpr int kDeepestNesting = 10;

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

// The parser nests without limit and lets a later member replace one of the same name.
nlohmann::json parseJson(const std::string& text) {
    std::vector<std::set<std::string>> keysOfOpenObjects;
    const auto check = [&](int depth, nlohmann::json::parse_event_t event,
                           const nlohmann::json& parsed) {
        if (depth > kDeepestNesting) throw Error("nests too deep to describe types");
        if (event == nlohmann::json::parse_event_t::object_start) keysOfOpenObjects.emplace_back();
        if (event == nlohmann::json::parse_event_t::object_end) keysOfOpenObjects.pop_back();
        if (event == nlohmann::json::parse_event_t::key &&
            !keysOfOpenObjects.back().insert(parsed.get<std::string>()).second)
            throw Error("has the key " + inQuotes(parsed.get<std::string>()) +
                        " twice in one object");
        return true;
    };
    try {
        return nlohmann::json::parse(text, check);
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
