#include "tools/node/SpoilData.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <algorithm>
#include <iterator>

namespace Tolvane::Tools {
namespace {

constexpr double kSpoiltNumber = -8.7654321e300;
constexpr int kSpoiltInteger = -876'543'219;
constexpr short kSpoiltChoice = -8765;
constexpr const char* kSpoiltText = "\x01 spoilt";

const VMatrix kSpoiltMatrix = [] {
    VMatrix matrix;
    for (auto& row : matrix.matrix) std::fill(std::begin(row), std::end(row), kSpoiltNumber);
    return matrix;
}();

void spoilOne(const DataPlace& place) {
    VDataHandle handle = place.handle;
    switch (place.shape.kind) {
        case DataShape::Kind::Compound:
            for (std::size_t i = 0; i < place.shape.children.size(); ++i) spoilData(place.child(i));
            break;
        case DataShape::Kind::Matrix:
            handle.setMatrix(kSpoiltMatrix);
            break;
        case DataShape::Kind::String:
            handle.setString(kSpoiltText);
            break;
        case DataShape::Kind::Double:
            handle.setDouble(kSpoiltNumber);
            break;
        case DataShape::Kind::Bool:
            // Either value may be right, so it is inverted: a bool that is never written then
            // changes each time, and is soon wrong.
            handle.setBool(!handle.asBool());
            break;
        case DataShape::Kind::Int:
            handle.setInt(kSpoiltInteger);
            break;
        case DataShape::Kind::Enum:
            handle.setShort(kSpoiltChoice);
            break;
        case DataShape::Kind::Empty:
        case DataShape::Kind::Unknown:
            break;
    }
}

}  // namespace

bool isSpoilt(const DataPlace& leaf) {
    switch (leaf.shape.kind) {
        case DataShape::Kind::Matrix:
            return leaf.handle.asMatrix() == kSpoiltMatrix;
        case DataShape::Kind::String:
            return leaf.handle.asString() == kSpoiltText;
        case DataShape::Kind::Double:
            return leaf.handle.asDouble() == kSpoiltNumber;
        case DataShape::Kind::Int:
            return leaf.handle.asInt() == kSpoiltInteger;
        case DataShape::Kind::Enum:
            return leaf.handle.asShort() == kSpoiltChoice;
        case DataShape::Kind::Bool:
        case DataShape::Kind::Compound:
        case DataShape::Kind::Empty:
        case DataShape::Kind::Unknown:
            break;
    }
    return false;
}

void spoilData(const DataPlace& place) {
    if (place.handle.isNull()) return;
    if (!place.shape.isArray) return spoilOne(place);
    VArrayDataHandle array(place.handle);
    for (unsigned i = array.elementCount(); i > 0; --i) {
        spoilOne({place.shape, array.outputValue()});
        array.next();
    }
}

}  // namespace Tolvane::Tools
