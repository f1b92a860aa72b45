#include "tools/node/LeafText.h"

#include "tools/node/SpoilData.h"
#include "tools/support/Columns.h"

#include <OpenVornik/VFnEnumAttribute.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

namespace Tolvane::Tools {
namespace {

// Of a text that is cut: so much of it is shown, and so much of that is what both begin with.
constexpr std::size_t kTextColumns = 52;
constexpr std::size_t kColumnsAhead = 16;

std::string inHexadecimal(std::uint64_t number) {
    std::array<char, 16> digits{};
    char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    return std::string(digits.data(), end);
}

std::string differenceOf(double expected, double actual) {
    if (expected == actual) return "only in the sign of zero";
    const double difference = actual - expected;
    return std::isfinite(difference) ? textOf(difference) : "";
}

void addNumbers(double expected, double actual, Mismatch& mismatch) {
    mismatch.expected = textOf(expected);
    mismatch.actual = textOf(actual);
    mismatch.difference = differenceOf(expected, actual);
    mismatch.expectedValue = expected;
    mismatch.actualValue = actual;
}

void addMatrices(const VMatrix& expected, const VMatrix& actual, Mismatch& mismatch) {
    std::size_t others = 0;
    for (unsigned row = 0; row < 4; ++row)
        for (unsigned column = 0; column < 4; ++column) {
            const double &a = expected[row][column], &b = actual[row][column];
            if (std::memcmp(&a, &b, sizeof a) == 0) continue;
            if (mismatch.element) {
                ++others;
                continue;
            }
            mismatch.element = MatrixPlace{row, column};
            mismatch.what +=
                " in row " + std::to_string(row) + ", column " + std::to_string(column);
            addNumbers(a, b, mismatch);
        }
    if (others > 0)
        mismatch.what += ", and in " + std::to_string(others) +
                         (others == 1 ? " other element" : " other elements");
}

std::string truth(bool value) { return value ? "true" : "false"; }

// As it stands in quotes.
std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        for (std::size_t i = 0; i < character.bytes; ++i) {
            const auto byte = static_cast<unsigned char>(text[i]);
            if (text[i] == '"' || text[i] == '\\')
                result += std::string("\\") + text[i];
            else if (character.isPrintable)
                result += text[i];
            else if (text[i] == '\n')
                result += "\\n";
            else
                result += (byte < 0x10 ? "\\x0" : "\\x") + inHexadecimal(byte);
        }
        text.remove_prefix(character.bytes);
    }
    return result;
}

// The number, with the name of the field if there is one.
std::string choiceText(const DataShape& shape, short choice) {
    const auto found = std::find(shape.choices.begin(), shape.choices.end(), choice);
    if (found == shape.choices.end()) return std::to_string(choice);
    const VFnEnumAttribute functions(shape.plug.attribute());
    const auto index = static_cast<unsigned>(found - shape.choices.begin());
    return std::to_string(choice) + " (" + printable(functions.fieldName(index).asChar()) + ")";
}

// The places at which characters begin, and the end.
std::vector<std::size_t> charactersOf(std::string_view text) {
    std::vector<std::size_t> places{0};
    while (places.back() < text.size())
        places.push_back(places.back() + firstCharacter(text.substr(places.back())).bytes);
    return places;
}

// From the place `begin` on.
std::string inQuotesFrom(std::size_t begin, std::string_view text) {
    std::string shown;
    std::size_t end = begin;
    while (end < text.size()) {
        const std::string_view rest = text.substr(end);
        const std::string next = printable(rest.substr(0, firstCharacter(rest).bytes));
        if (columnsOf(shown) + columnsOf(next) > kTextColumns) break;
        shown += next;
        end += firstCharacter(rest).bytes;
    }
    return (begin > 0 ? "...\"" : "\"") + shown + (end < text.size() ? "\"..." : "\"");
}

void addBoth(const DataPlace& expected, const DataPlace& actual, Mismatch& mismatch) {
    const VDataHandle &a = expected.handle, &b = actual.handle;
    const DataShape& shape = expected.shape;
    switch (shape.kind) {
        case DataShape::Kind::Matrix:
            return addValues(shape, a.asMatrix(), b.asMatrix(), mismatch);
        case DataShape::Kind::String:
            return addValues(shape, a.asString(), b.asString(), mismatch);
        case DataShape::Kind::Double:
            return addValues(shape, a.asDouble(), b.asDouble(), mismatch);
        case DataShape::Kind::Int:
            return addValues(shape, a.asInt(), b.asInt(), mismatch);
        case DataShape::Kind::Bool:
            return addValues(shape, a.asBool(), b.asBool(), mismatch);
        case DataShape::Kind::Enum:
            return addValues(shape, a.asShort(), b.asShort(), mismatch);
        case DataShape::Kind::Compound:
        case DataShape::Kind::Empty:
        case DataShape::Kind::Unknown:
            break;
    }
}

}  // namespace

void addValues(const DataPlace& expected, const DataPlace& actual, Mismatch& mismatch) {
    const bool wasWritten = !isSpoilt(actual);
    if (!wasWritten && actual.shape.kind == DataShape::Kind::Matrix) {
        // No element says more than another.
        mismatch.expected = textOf(expected.handle.asMatrix());
        mismatch.expectedValue = expected.handle.asMatrix();
        return;
    }
    addBoth(expected, actual, mismatch);
    if (wasWritten) return;
    mismatch.actual.clear();
    mismatch.difference.clear();
    mismatch.actualValue = std::monostate();
}

void addValues(const DataShape&, const VMatrix& expected, const VMatrix& actual,
               Mismatch& mismatch) {
    addMatrices(expected, actual, mismatch);
}

void addValues(const DataShape&, const VString& expected, const VString& actual,
               Mismatch& mismatch) {
    addTexts(expected.asChar(), actual.asChar(), mismatch);
}

void addValues(const DataShape&, double expected, double actual, Mismatch& mismatch) {
    addNumbers(expected, actual, mismatch);
}

void addValues(const DataShape&, bool expected, bool actual, Mismatch& mismatch) {
    mismatch.expected = truth(expected);
    mismatch.actual = truth(actual);
    mismatch.expectedValue = expected;
    mismatch.actualValue = actual;
}

void addValues(const DataShape&, int expected, int actual, Mismatch& mismatch) {
    addValues(expected, actual, mismatch);
}

void addValues(const DataShape& leaf, short expected, short actual, Mismatch& mismatch) {
    mismatch.expected = choiceText(leaf, expected);
    mismatch.actual = choiceText(leaf, actual);
    mismatch.expectedValue = std::int64_t{expected};
    mismatch.actualValue = std::int64_t{actual};
}

void addValues(std::int64_t expected, std::int64_t actual, Mismatch& mismatch) {
    mismatch.expected = std::to_string(expected);
    mismatch.actual = std::to_string(actual);
    mismatch.difference = std::to_string(actual - expected);
    mismatch.expectedValue = expected;
    mismatch.actualValue = actual;
}

std::string textOf(double number) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    if (std::isnan(number)) return "nan 0x" + inHexadecimal(bits);
    std::array<char, 32> digits{};
    char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return std::string(digits.data(), end);
}

std::string textOf(const VMatrix& matrix) {
    std::string text;
    for (unsigned i = 0; i < 16; ++i) {
        if (i > 0) text += i % 4 == 0 ? ", " : " ";
        text += textOf(matrix[i / 4][i % 4]);
    }
    return text;
}

void addTexts(const std::string& expected, const std::string& actual, Mismatch& mismatch) {
    mismatch.expectedValue = expected;
    mismatch.actualValue = actual;
    const std::vector<std::size_t> places = charactersOf(expected);
    // The first character that is not the same.
    std::size_t same = 0;
    while (same + 1 < places.size() &&
           actual.compare(places[same], places[same + 1] - places[same], expected, places[same],
                          places[same + 1] - places[same]) == 0)
        ++same;
    const bool isLong =
        std::max(columnsOf(printable(expected)), columnsOf(printable(actual))) > kTextColumns;
    std::size_t first = isLong ? same : 0;
    while (first > 0 && columnsOf(printable(std::string_view(expected).substr(
                            places[first - 1], places[same] - places[first - 1]))) <= kColumnsAhead)
        --first;
    mismatch.expected = inQuotesFrom(places[first], expected);
    mismatch.actual = inQuotesFrom(places[first], actual);
    mismatch.difference = "from character " + std::to_string(same) + " on";
}

}  // namespace Tolvane::Tools
