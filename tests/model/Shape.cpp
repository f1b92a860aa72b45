#include "tests/model/Shape.h"

#include <algorithm>
#include <map>

namespace Model {
namespace {

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
    for (const RecordRow& row : recordRows()) {
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
        for (const RecordRow& row : recordRows()) all.push_back(row.name);
        for (const RecordRow& row : recordRows()) all.push_back(arrayOf(row.name));
        return all;
    }();
    return types;
}

bool isCarried(const std::string& type) {
    const std::vector<std::string>& types = carriedTypes();
    return std::find(types.begin(), types.end(), type) != types.end();
}

}  // namespace Model
