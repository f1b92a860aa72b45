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
