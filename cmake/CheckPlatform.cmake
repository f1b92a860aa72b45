# What the product needs of each platform: "header: name: expression" for each class and operation.
set(Pelmor_needs
    "Pelmor/String.h: Pelmor::String: Pelmor::String().asChar()"
    "Pelmor/Array.h: Pelmor::Array: std::declval<Pelmor::Array<double>&>().elementRep()"
    "Pelmor/Ptr.h: Pelmor::makePtr: Pelmor::makePtr<double>()"
    "Pelmor/ElementTraits.h: Pelmor::ElementTraits: Pelmor::ElementTraits<double>::kindCode"
    "Pelmor/UntypedTypeRep.h: Pelmor::Internal::UntypedTypeRep: std::declval<Pelmor::Internal::UntypedTypeRep&>().allocate(1)"
    "Pelmor/TypeInfo.h: Pelmor::Internal::TypeInfo: &Pelmor::Internal::TypeInfo::s_void"
    "Pelmor/AnyValue.h: Pelmor::AnyValue: std::declval<Pelmor::AnyValue&>().moveAssign(std::declval<Pelmor::AnyValue&>())"
    "Pelmor/Type.h: Pelmor::Type: std::declval<const Pelmor::Type&>().getTypeKind()"
    "Pelmor/ArrayType.h: Pelmor::ArrayType: std::declval<const Pelmor::ArrayType&>().getElementType()"
    "Pelmor/StructType.h: Pelmor::StructType: std::declval<const Pelmor::StructType&>().begin()"
    "Pelmor/EnumType.h: Pelmor::EnumType: std::declval<const Pelmor::EnumType&>().begin()"
    "Pelmor/DefaultClass.h: Pelmor::Internal::getDefaultClass: Pelmor::Internal::getDefaultClass<Tavrik::Object>()"
    "Tavrik/Object.h: Tavrik::Object: sizeof(Tavrik::Object*)"
    "Math/double4x4.h: Math::double4x4: sizeof(Math::double4x4)")
set(OpenVornik_needs
    "OpenVornik/VStatus.h: VStatus::error: VStatus().error()"
    "OpenVornik/VString.h: VString::format: std::declval<VString&>().format(VString(\"\"), VString::argUnused, VString::argUnused, VString::argUnused, VString::argUnused, VString::argUnused, VString::argUnused, VString::argUnused, VString::argUnused, VString::argUnused, VString::argUnused)"
    "OpenVornik/VString.h: VString::asChar: std::declval<VString&>().asChar()"
    "OpenVornik/VObject.h: VObject::kNullObj: std::declval<const VObject&>() != VObject::kNullObj"
    "OpenVornik/VPlug.h: VPlug::child: std::declval<VPlug&>().child(0u, nullptr)"
    "OpenVornik/VPlug.h: VPlug::elementByLogicalIndex: std::declval<VPlug&>().elementByLogicalIndex(0u, nullptr)"
    "OpenVornik/VPlug.h: VPlug::attribute: std::declval<VPlug&>().attribute()"
    "OpenVornik/VDataBlock.h: VDataBlock::inputValue: std::declval<VDataBlock&>().inputValue(std::declval<const VPlug&>())"
    "OpenVornik/VDataBlock.h: VDataBlock::outputValue: std::declval<VDataBlock&>().outputValue(std::declval<const VPlug&>())"
    "OpenVornik/VDataBlock.h: VDataBlock::setClean: std::declval<VDataBlock&>().setClean(std::declval<const VObject&>())"
    "OpenVornik/VMatrix.h: VMatrix: sizeof(VMatrix)"
    "OpenVornik/VDataHandle.h: VDataHandle::child: std::declval<VDataHandle&>().child(std::declval<const VPlug&>())"
    "OpenVornik/VDataHandle.h: VDataHandle::asMatrix: std::declval<VDataHandle&>().asMatrix()"
    "OpenVornik/VDataHandle.h: VDataHandle::asString: std::declval<VDataHandle&>().asString()"
    "OpenVornik/VDataHandle.h: VDataHandle::asDouble: std::declval<VDataHandle&>().asDouble()"
    "OpenVornik/VDataHandle.h: VDataHandle::setString: std::declval<VDataHandle&>().setString(VString(\"\"))"
    "OpenVornik/VDataHandle.h: VDataHandle::setDouble: std::declval<VDataHandle&>().setDouble(0.0)"
    "OpenVornik/VArrayDataHandle.h: VArrayDataHandle: VArrayDataHandle(std::declval<VDataHandle&>(), nullptr)"
    "OpenVornik/VArrayDataHandle.h: VArrayDataHandle::elementCount: std::declval<VArrayDataHandle&>().elementCount()"
    "OpenVornik/VArrayDataHandle.h: VArrayDataHandle::inputValue: std::declval<VArrayDataHandle&>().inputValue()"
    "OpenVornik/VArrayDataHandle.h: VArrayDataHandle::outputValue: std::declval<VArrayDataHandle&>().outputValue(nullptr)"
    "OpenVornik/VArrayDataHandle.h: VArrayDataHandle::next: std::declval<VArrayDataHandle&>().next()"
    "OpenVornik/VArrayDataHandle.h: VArrayDataHandle::builder: std::declval<VArrayDataHandle&>().builder()"
    "OpenVornik/VArrayDataHandle.h: VArrayDataHandle::set: std::declval<VArrayDataHandle&>().set(std::declval<VArrayDataBuilder&>())"
    "OpenVornik/VArrayDataHandle.h: VArrayDataHandle::setAllClean: std::declval<VArrayDataHandle&>().setAllClean()"
    "OpenVornik/VArrayDataBuilder.h: VArrayDataBuilder::addElement: std::declval<VArrayDataBuilder&>().addElement(0u)"
    "OpenVornik/VArrayDataBuilder.h: VArrayDataBuilder::removeElement: std::declval<VArrayDataBuilder&>().removeElement(0u)"
    "OpenVornik/VArrayDataBuilder.h: VArrayDataBuilder::elementCount: std::declval<VArrayDataBuilder&>().elementCount()"
    "OpenVornik/VFnAttribute.h: VFnAttribute::setEnforcingUniqueName: VFnAttribute(VObject::kNullObj).setEnforcingUniqueName(false)"
    "OpenVornik/VFnAttribute.h: VFnAttribute::setReadable: std::declval<VFnAttribute&>().setReadable(true)"
    "OpenVornik/VFnAttribute.h: VFnAttribute::setWritable: std::declval<VFnAttribute&>().setWritable(true)"
    "OpenVornik/VFnAttribute.h: VFnAttribute::setKeyable: std::declval<VFnAttribute&>().setKeyable(true)"
    "OpenVornik/VFnAttribute.h: VFnAttribute::setArray: std::declval<VFnAttribute&>().setArray(true)"
    "OpenVornik/VFnNumericAttribute.h: VFnNumericAttribute::create: VFnNumericAttribute().create(VString(\"\"), VString(\"\"), VFnNumericData::Type(14), 0.0)"
    "OpenVornik/VFnTypedAttribute.h: VFnTypedAttribute::create: VFnTypedAttribute().create(VString(\"\"), VString(\"\"), VFnData::Type(4), VObject::kNullObj)"
    "OpenVornik/VFnMatrixAttribute.h: VFnMatrixAttribute::create: VFnMatrixAttribute().create(VString(\"\"), VString(\"\"), VFnMatrixAttribute::Type(1))"
    "OpenVornik/VFnEnumAttribute.h: VFnEnumAttribute::create: VFnEnumAttribute().create(VString(\"\"), VString(\"\"), 0)"
    "OpenVornik/VFnEnumAttribute.h: VFnEnumAttribute::addField: VFnEnumAttribute().addField(VString(\"\"), 0)"
    "OpenVornik/VFnGenericAttribute.h: VFnGenericAttribute::create: VFnGenericAttribute().create(VString(\"\"), VString(\"\"))"
    "OpenVornik/VFnCompoundAttribute.h: VFnCompoundAttribute::create: VFnCompoundAttribute().create(VString(\"\"), VString(\"\"))"
    "OpenVornik/VFnCompoundAttribute.h: VFnCompoundAttribute::addChild: VFnCompoundAttribute().addChild(VObject::kNullObj)"
    "OpenVornik/VFnCompoundAttribute.h: VFnCompoundAttribute::numChildren: VFnCompoundAttribute().numChildren()"
    "OpenVornik/VFnCompoundAttribute.h: VFnCompoundAttribute::child: VFnCompoundAttribute().child(0u)"
    "OpenVornik/VFnDependencyNode.h: VFnDependencyNode::attribute: VFnDependencyNode(VObject::kNullObj).attribute(VString(\"\"))"
    "OpenVornik/VFnDependencyNode.h: VFnDependencyNode::name: VFnDependencyNode(VObject::kNullObj).name()"
    "OpenVornik/VDGModifier.h: VDGModifier::addAttribute: std::declval<VDGModifier&>().addAttribute(VObject::kNullObj, VObject::kNullObj)"
    "OpenVornik/VDGModifier.h: VDGModifier::doIt: std::declval<VDGModifier&>().doIt()"
    "OpenVornik/VGlobal.h: VGlobal::displayError: VGlobal::displayError(VString(\"\"))")
set(TavrikGraph_needs
    "TavrikGraph/Executor/TypeTranslation.h: TavrikGraph::Executor::TypeTranslation: std::declval<TavrikGraph::Executor::TypeTranslation&>().release()"
    "TavrikGraph/Executor/HostContext.h: TavrikGraph::Executor::HostContext: std::declval<TavrikGraph::Executor::HostContext&>().dataBlock"
    "TavrikGraph/Executor/NodeEditContext.h: TavrikGraph::Executor::NodeEditContext: std::declval<TavrikGraph::Executor::NodeEditContext&>().modifier"
    "TavrikGraph/Executor/PortDirection.h: TavrikGraph::Executor::PortDirection: TavrikGraph::Executor::PortDirection::Input")
set(Pelmor_target Pelmor::Pelmor)
set(OpenVornik_target OpenVornik::OpenVornik)
set(TavrikGraph_target TavrikGraph::Executor)

# tolvane_check_platform(NAME) stops with a list of what the package lacks.
function(tolvane_check_platform platform)
    set(target ${${platform}_target})
    if(NOT TARGET ${target})
        message(FATAL_ERROR "The package ${platform} (${${platform}_DIR}) has no target ${target}")
    endif()
    set(needs ${${platform}_needs})
    tolvane_compiles(${platform}_HAS_ALL ${target} "${needs}")
    if(${platform}_HAS_ALL)
        return()
    endif()
    set(lacking "")
    foreach(need IN LISTS needs)
        string(REGEX MATCH "^([^:]+): ([^ ]+): " ignored "${need}")
        set(what "${CMAKE_MATCH_2} of <${CMAKE_MATCH_1}>")
        unset(has_it CACHE)
        tolvane_compiles(has_it ${target} "${need}")
        if(NOT has_it)
            string(APPEND lacking "\n  ${what}")
        endif()
    endforeach()
    unset(has_it CACHE)
    unset(${platform}_HAS_ALL CACHE)
    message(FATAL_ERROR
        "The package ${platform} (${${platform}_DIR}) lacks what the plugin needs:${lacking}")
endfunction()

# Whether a source that has all these expressions compiles.
function(tolvane_compiles result target needs)
    if(DEFINED CACHE{${result}})
        return()
    endif()
    set(source "#include <utility>\n")
    set(expressions "")
    set(number 0)
    foreach(need IN LISTS needs)
        string(REGEX MATCH "^([^:]+): ([^ ]+): (.*)$" ignored "${need}")
        set(header ${CMAKE_MATCH_1})
        set(expression "${CMAKE_MATCH_3}")
        string(APPEND source "#include <${header}>\n")
        math(EXPR number "${number} + 1")
        string(APPEND expressions "using Needed${number} = decltype(${expression});\n")
    endforeach()
    string(MAKE_C_IDENTIFIER "${result}" name)
    set(file ${CMAKE_BINARY_DIR}/CMakeFiles/${name}.cpp)
    file(WRITE ${file} "${source}${expressions}")
    tolvane_include_folders(folders ${target})
    set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
    try_compile(${result} ${CMAKE_BINARY_DIR}/CMakeFiles/${name} ${file}
        CMAKE_FLAGS "-DINCLUDE_DIRECTORIES=${folders}"
        CXX_STANDARD 17 CXX_STANDARD_REQUIRED ON)
endfunction()

# Where the headers of a target are, and of what it links: a target of this project cannot be linked
# while it is still being configured.
function(tolvane_include_folders result target)
    get_target_property(is_imported ${target} IMPORTED)
    if(is_imported)
        get_target_property(folders ${target} INTERFACE_INCLUDE_DIRECTORIES)
    else()
        get_target_property(folders ${target} SOURCE_DIR)
    endif()
    get_target_property(links ${target} INTERFACE_LINK_LIBRARIES)
    foreach(link IN LISTS links)
        if(TARGET ${link})
            tolvane_include_folders(further ${link})
            list(APPEND folders ${further})
        endif()
    endforeach()
    list(FILTER folders EXCLUDE REGEX "-NOTFOUND$")
    set(${result} "${folders}" PARENT_SCOPE)
endfunction()
