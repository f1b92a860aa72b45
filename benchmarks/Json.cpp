#include "benchmarks/Json.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VFnTypedAttribute.h>
#include <OpenVornik/VString.h>

#include <nlohmann/json.hpp>

namespace Floor {

void to_json(nlohmann::json& json, const Matrix& matrix) { json = matrix.values; }
void from_json(const nlohmann::json& json, Matrix& matrix) { json.get_to(matrix.values); }

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Transform, matrices)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(NamedTransforms, names, transforms)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Pins, names, matrices)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(InputsJoints, names, matrices, namedTransforms)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(InputsControls, names, matrices, weights, namedTransforms)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Inputs, pins, joints, controls0, controls1)

}  // namespace Floor

namespace Benchmarks {

JsonPort::JsonPort() {
    VFnDependencyNode functions;
    m_node = functions.create("node");
    VFnTypedAttribute attribute;
    const VObject text = attribute.create("text", "text", VFnData::kString, VObject::kNullObj);
    VDGModifier modifier;
    modifier.addAttribute(m_node, text);
    modifier.doIt();
    m_plug = VPlug(m_node, text);
    m_block = functions.dataBlock();
}

Floor::Inputs JsonPort::read() {
    return nlohmann::json::parse(m_block.inputValue(m_plug).asString().asChar())
        .get<Floor::Inputs>();
}

void JsonPort::write(const Floor::Inputs& record) {
    const std::string text = nlohmann::json(record).dump();
    m_block.outputValue(m_plug).setString(VString(text.c_str()));
    m_block.setClean(m_plug.attribute());
}

}  // namespace Benchmarks
