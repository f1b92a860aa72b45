// What the command line asks of the host, besides what the plugin does: it is a host's program,
// makes nodes, looks at their attributes and listens to messages.
#include "cmake/needs/Needs.h"

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VErrorListener.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VFnEnumAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <OpenVornik/VFnTypedAttribute.h>

// clang-format off
NEEDS(VErrorListener(a<void (*)(const VString&)>()));  // VErrorListener
NEEDS(VString(a<const VString&>()));  // VString::VString
NEEDS(a<const VString&>().asChar());  // VString::asChar
NEEDS(a<const VString&>() == a<const VString&>());  // VString::operator==
NEEDS(a<VMatrix&>()[0][0] = a<const VMatrix&>()[0][0]);  // VMatrix::operator[]
NEEDS(a<const VMatrix&>() == a<const VMatrix&>());  // VMatrix::operator==

NEEDS(VFnDependencyNode().create(a<const VString&>()));  // VFnDependencyNode::create
NEEDS(0u + a<const VFnDependencyNode&>().attributeCount());  // VFnDependencyNode::attributeCount
NEEDS(VObject(a<const VFnDependencyNode&>().attribute(0u)));  // VFnDependencyNode::attribute
NEEDS(VPlug(a<const VFnDependencyNode&>().findPlug(a<const VString&>())));  // VFnDependencyNode::findPlug
NEEDS(VDataBlock(a<const VFnDependencyNode&>().dataBlock()));  // VFnDependencyNode::dataBlock
NEEDS(VDGModifier());  // VDGModifier::VDGModifier
NEEDS(a<const VDataBlock&>().isClean(a<const VObject&>()));  // VDataBlock::isClean
NEEDS(a<VDataBlock&>().setDirty(a<const VObject&>()));  // VDataBlock::setDirty

NEEDS(a<const VPlug&>().isNull());  // VPlug::isNull
NEEDS(a<const VPlug&>().isArray());  // VPlug::isArray
NEEDS(a<const VPlug&>().isCompound());  // VPlug::isCompound
NEEDS(a<const VPlug&>().isElement());  // VPlug::isElement
NEEDS(0u + a<const VPlug&>().logicalIndex());  // VPlug::logicalIndex
NEEDS(0u + a<const VPlug&>().numChildren());  // VPlug::numChildren
NEEDS(VString(a<const VPlug&>().name()));  // VPlug::name
NEEDS(VObject(a<const VPlug&>().node()));  // VPlug::node

NEEDS(a<const VFnAttribute&>().isReadable());  // VFnAttribute::isReadable
NEEDS(a<const VFnAttribute&>().isWritable());  // VFnAttribute::isWritable
NEEDS(a<const VFnAttribute&>().isKeyable());  // VFnAttribute::isKeyable
NEEDS(a<const VFnAttribute&>().isEnforcingUniqueName());  // VFnAttribute::isEnforcingUniqueName
NEEDS(a<const VFnAttribute&>().kind() == VFnAttribute::kCompound);  // VFnAttribute::kind
NEEDS(VString(a<const VFnAttribute&>().name()));  // VFnAttribute::name
NEEDS(0u + VFnEnumAttribute(a<const VObject&>()).numFields());  // VFnEnumAttribute::numFields
NEEDS(VString(a<const VFnEnumAttribute&>().fieldName(0u)));  // VFnEnumAttribute::fieldName
NEEDS(a<const VFnEnumAttribute&>().fieldValue(0u) + 0);  // VFnEnumAttribute::fieldValue
NEEDS(VFnNumericAttribute(a<const VObject&>()).unitType() == VFnNumericData::kDouble);  // VFnNumericAttribute::unitType
NEEDS(VFnTypedAttribute(a<const VObject&>()).attrType() == VFnData::kString);  // VFnTypedAttribute::attrType

NEEDS(a<bool&>() = a<const VDataHandle&>().asBool());  // VDataHandle::asBool
NEEDS(a<int&>() = a<const VDataHandle&>().asInt());  // VDataHandle::asInt
NEEDS(a<short&>() = a<const VDataHandle&>().asShort());  // VDataHandle::asShort
NEEDS(a<VDataHandle&>().setBool(true));  // VDataHandle::setBool
NEEDS(a<VDataHandle&>().setInt(0));  // VDataHandle::setInt
NEEDS(a<VDataHandle&>().setShort(a<short>()));  // VDataHandle::setShort
NEEDS(a<VDataHandle&>().setMatrix(a<const VMatrix&>()));  // VDataHandle::setMatrix
NEEDS(0u + a<VArrayDataHandle&>().elementIndex());  // VArrayDataHandle::elementIndex
NEEDS(a<VArrayDataHandle&>().jumpToElement(0u));  // VArrayDataHandle::jumpToElement
NEEDS(a<VArrayDataHandle&>().jumpToArrayElement(0u));  // VArrayDataHandle::jumpToArrayElement
NEEDS(a<VArrayDataBuilder&>() = VArrayDataBuilder());  // VArrayDataBuilder::VArrayDataBuilder
