// All that the plugin asks of the host.
#include "cmake/needs/Needs.h"

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnCompoundAttribute.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VFnEnumAttribute.h>
#include <OpenVornik/VFnGenericAttribute.h>
#include <OpenVornik/VFnMatrixAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <OpenVornik/VFnTypedAttribute.h>
#include <OpenVornik/VGlobal.h>
#include <OpenVornik/VMatrix.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VStatus.h>
#include <OpenVornik/VString.h>

// clang-format off
NEEDS(VStatus());  // VStatus::VStatus
NEEDS(a<VStatus&>().error() ? 1 : 0);  // VStatus::error

NEEDS(VString(""));  // VString::VString
NEEDS(a<VString&>() = "");  // VString::operator=
NEEDS(a<VString&>() == "" ? 1 : 0);  // VString::operator==
NEEDS(VString(a<VString&>().asChar()));  // VString::asChar
NEEDS(&VString::argUnused);  // VString::argUnused
NEEDS(a<VString&>().format(a<VString&>(), a<VString&>(), a<VString&>(), a<VString&>(), a<VString&>(), a<VString&>(), a<VString&>(), a<VString&>(), a<VString&>(), a<VString&>(), a<VString&>()));  // VString::format
NEEDS(VGlobal::displayError(a<const VString&>()));  // VGlobal::displayError

NEEDS(&VObject::kNullObj);  // VObject::kNullObj
NEEDS(VObject(a<const VObject&>()));  // VObject::VObject
NEEDS(a<const VObject&>() == a<const VObject&>() ? 1 : 0);  // VObject::operator==
NEEDS(a<const VObject&>() != a<const VObject&>() ? 1 : 0);  // VObject::operator!=

NEEDS(VPlug(a<const VPlug&>()));  // VPlug::VPlug
NEEDS(a<VPlug&>() = a<VPlug>());  // VPlug::operator=
NEEDS(VPlug(a<VPlug&>().child(0u, nullptr)));  // VPlug::child
NEEDS(VPlug(a<VPlug&>().elementByLogicalIndex(0u, nullptr)));  // VPlug::elementByLogicalIndex
NEEDS(VObject(a<VPlug&>().attribute()));  // VPlug::attribute

NEEDS(VDataBlock(a<const VDataBlock&>()));  // VDataBlock::VDataBlock
NEEDS(VDataHandle(a<VDataBlock&>().inputValue(a<const VPlug&>())));  // VDataBlock::inputValue
NEEDS(VDataHandle(a<VDataBlock&>().outputValue(a<const VPlug&>())));  // VDataBlock::outputValue
NEEDS(a<VDataBlock&>().setClean(a<const VObject&>()));  // VDataBlock::setClean

static_assert(sizeof(VMatrix) == 16 * sizeof(double));  // VMatrix
NEEDS(a<VDataHandle&>() = a<VDataHandle>());  // VDataHandle::operator=
NEEDS(VDataHandle(a<VDataHandle&>().child(a<const VPlug&>())));  // VDataHandle::child
NEEDS(a<VMatrix*&>() = &a<VDataHandle&>().asMatrix());  // VDataHandle::asMatrix
NEEDS(a<VDataHandle&>().asString().asChar());  // VDataHandle::asString
NEEDS(a<double&>() = a<VDataHandle&>().asDouble());  // VDataHandle::asDouble
NEEDS(a<VDataHandle&>().setString(a<const VString&>()));  // VDataHandle::setString
NEEDS(a<VDataHandle&>().setDouble(0.0));  // VDataHandle::setDouble

NEEDS(VArrayDataHandle(a<VDataHandle&>(), nullptr));  // VArrayDataHandle::VArrayDataHandle
NEEDS(0u + a<VArrayDataHandle&>().elementCount());  // VArrayDataHandle::elementCount
NEEDS(VDataHandle(a<VArrayDataHandle&>().inputValue()));  // VArrayDataHandle::inputValue
NEEDS(VDataHandle(a<VArrayDataHandle&>().outputValue(a<VStatus*>())));  // VArrayDataHandle::outputValue
NEEDS(a<VArrayDataHandle&>().next().error());  // VArrayDataHandle::next
NEEDS(VArrayDataBuilder(a<VArrayDataHandle&>().builder()));  // VArrayDataHandle::builder
NEEDS(a<VArrayDataHandle&>().set(a<VArrayDataBuilder&>()));  // VArrayDataHandle::set
NEEDS(a<VArrayDataHandle&>().setAllClean());  // VArrayDataHandle::setAllClean
NEEDS(VDataHandle(a<VArrayDataBuilder&>().addElement(0u)));  // VArrayDataBuilder::addElement
NEEDS(a<VArrayDataBuilder&>().removeElement(0u).error());  // VArrayDataBuilder::removeElement
NEEDS(0u + a<VArrayDataBuilder&>().elementCount());  // VArrayDataBuilder::elementCount

NEEDS(VFnAttribute(a<VObject>()));  // VFnAttribute::VFnAttribute
NEEDS(a<VFnAttribute&>().setReadable(true));  // VFnAttribute::setReadable
NEEDS(a<VFnAttribute&>().setWritable(true));  // VFnAttribute::setWritable
NEEDS(a<VFnAttribute&>().setKeyable(true));  // VFnAttribute::setKeyable
NEEDS(a<VFnAttribute&>().setArray(true));  // VFnAttribute::setArray
NEEDS(a<VFnAttribute&>().setEnforcingUniqueName(false));  // VFnAttribute::setEnforcingUniqueName
NEEDS(VFnNumericAttribute());  // VFnNumericAttribute::VFnNumericAttribute
NEEDS(VObject(a<VFnNumericAttribute&>().create(a<const VString&>(), a<const VString&>(), VFnNumericData::Type(14), 0.0)));  // VFnNumericAttribute::create
NEEDS(VFnTypedAttribute());  // VFnTypedAttribute::VFnTypedAttribute
NEEDS(VObject(a<VFnTypedAttribute&>().create(a<const VString&>(), a<const VString&>(), VFnData::Type(4), a<const VObject&>())));  // VFnTypedAttribute::create
NEEDS(VFnMatrixAttribute());  // VFnMatrixAttribute::VFnMatrixAttribute
NEEDS(VObject(a<VFnMatrixAttribute&>().create(a<const VString&>(), a<const VString&>(), VFnMatrixAttribute::Type(1))));  // VFnMatrixAttribute::create
NEEDS(VFnEnumAttribute());  // VFnEnumAttribute::VFnEnumAttribute
NEEDS(VObject(a<VFnEnumAttribute&>().create(a<const VString&>(), a<const VString&>(), 0)));  // VFnEnumAttribute::create
NEEDS(a<VFnEnumAttribute&>().addField(a<const VString&>(), a<short>()));  // VFnEnumAttribute::addField
NEEDS(VFnGenericAttribute());  // VFnGenericAttribute::VFnGenericAttribute
NEEDS(VObject(a<VFnGenericAttribute&>().create(a<const VString&>(), a<const VString&>())));  // VFnGenericAttribute::create
NEEDS(VFnCompoundAttribute());  // VFnCompoundAttribute::VFnCompoundAttribute
NEEDS(VObject(a<VFnCompoundAttribute&>().create(a<const VString&>(), a<const VString&>())));  // VFnCompoundAttribute::create
NEEDS(a<VFnCompoundAttribute&>().addChild(a<const VObject&>()));  // VFnCompoundAttribute::addChild
NEEDS(0u + a<VFnCompoundAttribute&>().numChildren());  // VFnCompoundAttribute::numChildren
NEEDS(VObject(a<VFnCompoundAttribute&>().child(0u)));  // VFnCompoundAttribute::child

NEEDS(VFnDependencyNode(a<const VObject&>()));  // VFnDependencyNode::VFnDependencyNode
NEEDS(VObject(a<VFnDependencyNode&>().attribute(a<const VString&>())));  // VFnDependencyNode::attribute
NEEDS(a<VFnDependencyNode&>().name().asChar());  // VFnDependencyNode::name
NEEDS(a<VDGModifier&>().addAttribute(a<const VObject&>(), a<const VObject&>()).error());  // VDGModifier::addAttribute
NEEDS(a<VDGModifier&>().doIt().error());  // VDGModifier::doIt
