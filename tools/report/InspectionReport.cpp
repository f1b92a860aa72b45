#include "tools/report/InspectionReport.h"

#include "tools/report/Json.h"
#include "tools/report/Words.h"
#include "tools/support/Columns.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <ostream>

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kNameColumns = 42;
constexpr std::size_t kKindColumns = 20;

std::string padded(const std::string& text, std::size_t columns) {
    const std::string cell = shortened(text, columns);
    return cell + std::string(columns - columnsOf(cell), ' ');
}

std::string flagsOf(const AttributeTree& tree) {
    return std::string(tree.isReadable ? "r" : "-") + (tree.isWritable ? "w" : "-") +
           (tree.isKeyable ? "k" : "-") + (tree.enforcesUniqueName ? "u" : "-");
}

std::string kindOf(const AttributeTree& tree) { return tree.kind + (tree.isArray ? "[]" : ""); }

// What is seen of an input's attribute and of an output's, once where it is the same.
template <typename Seen>
std::string bothOf(const AttributeTree* input, const AttributeTree* output, const Seen& seen) {
    const std::string in = input ? seen(*input) : "none";
    const std::string out = output ? seen(*output) : "none";
    return in == out ? in : in + " | " + out;
}

const AttributeTree* childOf(const AttributeTree* tree, std::size_t index) {
    return tree && index < tree->children.size() ? &tree->children[index] : nullptr;
}

void printFields(std::ostream& out, const AttributeTree& tree, std::size_t indent) {
    std::string text;
    for (const auto& [name, value] : tree.fields)
        text += (text.empty() ? "" : ", ") + oneLine(name) + " " + std::to_string(value);
    if (!text.empty()) out << wrapped(text, indent) << "\n";
}

void printTree(std::ostream& out, const AttributeTree* input, const AttributeTree* output,
               const std::string& lead, const std::string& below) {
    const auto nameOf = [](const AttributeTree& tree) { return oneLine(tree.name); };
    out << padded(lead + bothOf(input, output, nameOf), kNameColumns) << " "
        << padded(bothOf(input, output, kindOf), kKindColumns) << " "
        << bothOf(input, output, flagsOf) << "\n";
    printFields(out, input ? *input : *output, columnsOf(below) + 2);
    const std::size_t children =
        std::max(input ? input->children.size() : 0, output ? output->children.size() : 0);
    for (std::size_t i = 0; i < children; ++i) {
        const bool isLast = i + 1 == children;
        printTree(out, childOf(input, i), childOf(output, i), below + (isLast ? "└─ " : "├─ "),
                  below + (isLast ? "   " : "│  "));
    }
}

// Both ports are called "port", as there is one tree for the two.
std::optional<AttributeTree> asPort(std::optional<AttributeTree> tree) {
    if (tree) tree->name = "port";
    return tree;
}

std::optional<AttributeTree> asElement(std::optional<AttributeTree> tree) {
    if (tree) tree->isArray = false;
    return tree;
}

// Of a type, whose arrays mostly get the same attributes.
const TypeInspection* elementOf(const TypeInspection& array, const Inspection& inspection) {
    for (const TypeInspection& type : inspection.types)
        if (array.name == "array<" + type.name + ">" && type.input == asElement(array.input) &&
            type.output == asElement(array.output) && type.input)
            return &type;
    return nullptr;
}

void printType(std::ostream& out, const TypeInspection& type, const Inspection& inspection) {
    std::string behind = type.timesNamed == 0 ? ", which the library does not name" : "";
    if (type.timesNamed > 1)
        behind =
            ", named " + (type.timesNamed == 2 ? "twice" : grouped(type.timesNamed) + " times");
    out << "\n" << shortened(oneLine(type.name), kLineColumns - columnsOf(behind)) << behind;
    if (!type.isKnown) {
        out << "\n  The graph does not know it (see --types).\n";
        return;
    }
    if (const TypeInspection* element = elementOf(type, inspection)) {
        out << "\n"
            << wrapped("An array of the attributes of " + oneLine(element->name) + ".", 2) << "\n";
    } else if (type.input || type.output) {
        out << "\n";
        const auto input = asPort(type.input);
        const auto output = asPort(type.output);
        printTree(out, input ? &*input : nullptr, output ? &*output : nullptr, "  ", "  ");
    } else {
        out << "\n  Its ports get no attribute.\n";
    }
    for (const std::string& message : type.messages)
        out << wrapped("The host displayed: " + oneLine(message), 2) << "\n";
}

Json jsonOf(const std::optional<AttributeTree>& tree);

Json jsonOf(const AttributeTree& tree) {
    Json children = Json::array();
    for (const AttributeTree& child : tree.children) children.push_back(jsonOf(child));
    Json object{{"name", tree.name},
                {"kind", tree.kind},
                {"array", tree.isArray},
                {"readable", tree.isReadable},
                {"writable", tree.isWritable},
                {"keyable", tree.isKeyable},
                {"enforcesUniqueName", tree.enforcesUniqueName}};
    if (!tree.fields.empty()) {
        object["fields"] = Json::array();
        for (const auto& [name, value] : tree.fields)
            object["fields"].push_back({{"name", name}, {"value", value}});
    }
    object["children"] = children;
    return object;
}

Json jsonOf(const std::optional<AttributeTree>& tree) { return tree ? jsonOf(*tree) : Json(); }

}  // namespace

void printInspection(std::ostream& out, const Inspection& inspection) {
    const std::size_t count = inspection.types.size();
    printFact(out, "Library", inspection.library);
    printFact(out, "Name", inspection.name.empty() ? "none" : inspection.name);
    out << "Version  "
        << (inspection.version.empty() ? "it does not tell"
                                       : wrapped(oneLine(inspection.version), 9).substr(9))
        << "\n"
        << "Types    " << grouped(count) << "\n\n"
        << wrapped(
               "Flags: r readable, w writable, k keyable, u enforces a unique name. Input |"
               " output where they differ. [] is an array.",
               0)
        << "\n";
    for (const TypeInspection& type : inspection.types) printType(out, type, inspection);
    if (!inspection.ok()) out << "\n" << verdictOf(inspection);
}

std::string verdictOf(const Inspection& inspection) {
    if (inspection.ok()) return {};
    return "FAILED: ports of " + counted(inspection.failed(), "type", "types") +
           " get no attribute.\n";
}

void printInspectionAsJson(std::ostream& out, const Inspection& inspection) {
    Json types = Json::array();
    for (const TypeInspection& type : inspection.types)
        types.push_back({{"name", type.name},
                         {"named", type.timesNamed > 0},
                         {"timesNamed", type.timesNamed},
                         {"known", type.isKnown},
                         {"input", jsonOf(type.input)},
                         {"output", jsonOf(type.output)},
                         {"hostMessages", Json(type.messages)}});
    const Json object{{"library", inspection.library},
                      {"name", inspection.name},
                      {"version", oneLine(inspection.version)},
                      {"types", types},
                      {"ok", inspection.ok()}};
    out << printed(object);
}

}  // namespace Tolvane::Tools
