#include "tests/model/Shape.h"

#include <algorithm>
#include <map>

namespace Model {
namespace {

struct RecordRow {
    std::string name;
    std::vector<std::string> members;
};

const std::vector<RecordRow>& records() {
    static const std::string matrix = "Math::double4x4";
    static const std::string names = "array<string>";
    static const std::string matrices = "array<Math::double4x4>";
    static const std::string named = "Rigging::Module::NamedTransforms";
    static const std::string pins = "Rigging::Module::Pins";
    static const std::string joints = "Rigging::Module::InputsJoints";
    static const std::string controls = "Rigging::Module::InputsControls";
    static const std::vector<RecordRow> rows{
        {"Core::Transform::Transform",
         {matrix, matrix, matrix, matrix, matrix, matrix, matrix, matrix}},
        {named, {names, "array<Core::Transform::Transform>"}},
        {pins, {names, matrices}},
        {joints, {names, matrices, named}},
        {controls, {names, matrices, "array<double>", named}},
        {"Rigging::Module::Inputs", {pins, joints, controls, controls, "Object", "Object"}},
        {"Rigging::Module::Outputs", {"string", pins, named, named, named, "Object", "Object"}}};
    return rows;
}

const std::map<std::string, Kind>& leaves() {
    static const std::map<std::string, Kind> kinds{{"double", Kind::Number},
                                                   {"string", Kind::Text},
                                                   {"Math::double4x4", Kind::Matrix},
                                                   {"Object", Kind::Object}};
    return kinds;
}

const std::string kArrayStart = "array<";

std::string arrayOf(const std::string& type) { return kArrayStart + type + ">"; }

Shape describe(const std::string& type) {
    if (type.compare(0, kArrayStart.size(), kArrayStart) == 0) {
        const std::size_t length = type.size() - kArrayStart.size() - 1;
        return {type, Kind::Array, {&shapeOf(type.substr(kArrayStart.size(), length))}};
    }
    for (const RecordRow& row : records()) {
        if (row.name != type) continue;
        Shape shape{type, Kind::Record, {}};
        for (const std::string& member : row.members) shape.parts.push_back(&shapeOf(member));
        return shape;
    }
    return {type, leaves().at(type), {}};
}

}  // namespace

const Shape& shapeOf(const std::string& type) {
    static std::map<std::string, Shape> known;
    const auto found = known.find(type);
    if (found != known.end()) return found->second;
    return known.emplace(type, describe(type)).first->second;
}

const std::vector<std::string>& carriedTypes() {
    static const std::vector<std::string> types = [] {
        std::vector<std::string> all;
        for (const RecordRow& row : records()) all.push_back(row.name);
        for (const RecordRow& row : records()) all.push_back(arrayOf(row.name));
        return all;
    }();
    return types;
}

bool isCarried(const std::string& type) {
    const std::vector<std::string>& types = carriedTypes();
    return std::find(types.begin(), types.end(), type) != types.end();
}

}  // namespace Model
