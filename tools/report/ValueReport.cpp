#include "tools/report/ValueReport.h"

#include "tools/inspect/AttributeTree.h"
#include "tools/node/LeafText.h"
#include "tools/report/Json.h"
#include "tools/report/Words.h"
#include "tools/support/Columns.h"
#include "tools/support/OneLine.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <ostream>

namespace Tolvane::Tools {
namespace {

using Kind = DataShape::Kind;

// Of an array, so many elements are shown to a person.
constexpr std::size_t kMostElements = 8;
// Between the numbers of a matrix.
constexpr std::size_t kMatrixGap = 2;

using Cells = std::array<std::array<std::string, 4>, 4>;

Cells cellsOf(const VMatrix& matrix) {
    Cells cells;
    for (unsigned i = 0; i < 16; ++i) cells[i / 4][i % 4] = textOf(matrix[i / 4][i % 4]);
    return cells;
}

std::string choiceText(const DataPlace& place) {
    const short choice = place.handle.asShort();
    for (const auto& [name, value] : treeOf(place.shape).fields)
        if (value == choice) return std::to_string(choice) + " (" + oneLine(name) + ")";
    return std::to_string(choice);
}

std::string leafText(const DataPlace& place) {
    switch (place.shape.kind) {
        case Kind::String:
            return inQuotes(oneLine(place.handle.asString().asChar()));
        case Kind::Double:
            return textOf(place.handle.asDouble());
        case Kind::Bool:
            return place.handle.asBool() ? "true" : "false";
        case Kind::Int:
            return std::to_string(place.handle.asInt());
        case Kind::Enum:
            return choiceText(place);
        case Kind::Empty:
            return "no data in the host";
        case Kind::Matrix:
        case Kind::Compound:
        case Kind::Unknown:
            break;
    }
    return "cannot be shown";
}

class Tree {
public:
    explicit Tree(std::ostream& out) : m_out(out) {}

    void print(const FoundData& found, const std::string& name, std::size_t depth) {
        if (found.place.handle.isNull() && found.place.shape.kind != Kind::Empty)
            line(depth, name, "is not there");
        else if (found.place.shape.isArray && !found.isElement)
            printArray(found.place, name, depth);
        else if (found.place.shape.kind == Kind::Compound)
            printChildren(found.place, name, depth);
        else if (found.place.shape.kind == Kind::Matrix)
            printMatrix(found.place, name, depth);
        else
            line(depth, name, leafText(found.place));
    }

private:
    void line(std::size_t depth, const std::string& name, const std::string& value) {
        const std::string text = std::string(2 * depth, ' ') + oneLine(name);
        m_out << shortened(text + (value.empty() ? "" : "  " + value), kLineColumns) << "\n";
    }

    void printArray(const DataPlace& place, const std::string& name, std::size_t depth) {
        VArrayDataHandle array(place.handle);
        const std::size_t count = array.elementCount();
        line(depth, name, count == 1 ? "1 element" : grouped(count) + " elements");
        for (std::size_t i = 0; i < count && i < kMostElements; ++i) {
            print({{place.shape, array.outputValue()}, true},
                  "[" + std::to_string(array.elementIndex()) + "]", depth + 1);
            array.next();
        }
        if (count > kMostElements)
            line(depth + 1, "... and " + grouped(count - kMostElements) + " more", "");
    }

    void printChildren(const DataPlace& place, const std::string& name, std::size_t depth) {
        line(depth, name, "");
        for (std::size_t i = 0; i < place.shape.children.size(); ++i)
            print({place.child(i), false}, place.shape.children[i].name, depth + 1);
    }

    void printMatrix(const DataPlace& place, const std::string& name, std::size_t depth) {
        line(depth, name, "");
        const Cells cells = cellsOf(place.handle.asMatrix());
        std::array<std::size_t, 4> widths{};
        for (const auto& row : cells)
            for (std::size_t i = 0; i < 4; ++i) widths[i] = std::max(widths[i], row[i].size());
        const std::size_t indent = 2 * (depth + 1);
        const std::size_t all =
            std::accumulate(widths.begin(), widths.end(), indent + 3 * kMatrixGap);
        // Numbers with all their digits may need two lines for a row.
        const std::size_t inLine = all <= kLineColumns ? 4 : 2;
        for (const auto& row : cells)
            for (std::size_t i = 0; i < 4; ++i) {
                const bool begins = i % inLine == 0, ends = (i + 1) % inLine == 0;
                const std::size_t before = !begins  ? kMatrixGap
                                           : i == 0 ? indent
                                                    : indent + kMatrixGap;
                m_out << std::string(before + widths[i] - row[i].size(), ' ') << row[i]
                      << (ends ? "\n" : "");
            }
    }

    std::ostream& m_out;
};

Json jsonOf(const FoundData& found);

Json jsonOfArray(const DataPlace& place) {
    Json elements = Json::array();
    VArrayDataHandle array(place.handle);
    for (unsigned left = array.elementCount(); left > 0; --left) {
        elements.push_back(
            {{"index", array.elementIndex()},
             {"value", jsonOf(FoundData{{place.shape, array.outputValue()}, true})}});
        array.next();
    }
    return elements;
}

Json jsonOf(const FoundData& found) {
    const DataPlace& place = found.place;
    if (place.handle.isNull()) return {};
    if (place.shape.isArray && !found.isElement) return jsonOfArray(place);
    switch (place.shape.kind) {
        case Kind::Compound: {
            Json children = Json::object();
            for (std::size_t i = 0; i < place.shape.children.size(); ++i)
                children[place.shape.children[i].name] = jsonOf(FoundData{place.child(i), false});
            return children;
        }
        case Kind::Matrix:
            return jsonMatrix(place.handle.asMatrix());
        case Kind::String:
            return place.handle.asString().asChar();
        case Kind::Double:
            return jsonNumber(place.handle.asDouble());
        case Kind::Bool:
            return place.handle.asBool();
        case Kind::Int:
            return place.handle.asInt();
        case Kind::Enum:
            return place.handle.asShort();
        case Kind::Empty:
        case Kind::Unknown:
            break;
    }
    return {};
}

}  // namespace

void printValues(std::ostream& out, const ValueReport& report, const FoundData& found) {
    printFact(out, "Library", report.library);
    printFact(out, "Data", report.data);
    printFact(out, "Type", report.typeName);
    out << "\n";
    Tree(out).print(found, report.path.empty() ? "port" : report.path, 0);
    for (const std::string& message : report.messages)
        out << "\n" << wrapped("The host displayed: " + oneLine(message), 0) << "\n";
    if (!report.ok()) out << "\n" << verdictOf(report);
}

std::string verdictOf(const ValueReport& report) {
    if (report.ok()) return {};
    return std::string("FAILED: the value was not ") + (report.wasRead ? "written" : "read") +
           ".\n";
}

void printValuesAsJson(std::ostream& out, const ValueReport& report, const FoundData& found) {
    const Json object{{"library", report.library},
                      {"data", report.data},
                      {"type", report.typeName},
                      {"path", report.path},
                      {"value", jsonOf(found)},
                      {"read", report.wasRead},
                      {"written", report.wasWritten},
                      {"hostMessages", Json(report.messages)},
                      {"ok", report.ok()}};
    out << printed(object);
}

}  // namespace Tolvane::Tools
