// All that the plugin asks of the graph library.
#include "cmake/needs/Needs.h"

#include <Math/double4x4.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>
#include <Pelmor/ArrayType.h>
#include <Pelmor/DefaultClass.h>
#include <Pelmor/ElementTraits.h>
#include <Pelmor/EnumType.h>
#include <Pelmor/Ptr.h>
#include <Pelmor/String.h>
#include <Pelmor/StructType.h>
#include <Pelmor/Type.h>
#include <Pelmor/TypeInfo.h>
#include <Pelmor/UntypedTypeRep.h>
#include <Tavrik/Object.h>

// clang-format off
using namespace Pelmor;

NEEDS(String());  // Pelmor::String::String
NEEDS(String(""));  // Pelmor::String::String
NEEDS(String(a<const String&>()));  // Pelmor::String::String
NEEDS(a<String&>() = "");  // Pelmor::String::operator=
NEEDS(a<const String&>() == "" ? 1 : 0);  // Pelmor::String::operator==
NEEDS(String(a<const String&>() + ""));  // Pelmor::String::operator+
NEEDS(String(a<const String&>().asChar()));  // Pelmor::String::asChar
NEEDS(a<const String&>().compare(a<const String&>()) < 0);  // Pelmor::String::compare

NEEDS(Array<double>());  // Pelmor::Array::Array
NEEDS(Array<double>(a<Array<double>>()));  // Pelmor::Array::Array
NEEDS(0u + a<const Array<String>&>().size());  // Pelmor::Array::size
NEEDS(String(a<const Array<String>&>()[0]));  // Pelmor::Array::operator[]
NEEDS(String(*a<Array<String>&>().begin()));  // Pelmor::Array::begin
NEEDS(a<Array<String>&>().end() != a<Array<String>&>().begin());  // Pelmor::Array::end
NEEDS(a<Array<String>&>().append(a<const String&>()));  // Pelmor::Array::append
NEEDS(a<Array<String>&>().clear());  // Pelmor::Array::clear
NEEDS(a<Array<String>&>().swap(a<Array<String>&>()));  // Pelmor::Array::swap
NEEDS(a<Array<double>&>().elementRep());  // Pelmor::Array::elementRep
NEEDS(SharedArray<double>(a<Ptr<Array<double>>>()));  // Pelmor::SharedArray

NEEDS(Ptr<double>());  // Pelmor::Ptr::Ptr
NEEDS(Ptr<double>(a<const Ptr<double>&>()));  // Pelmor::Ptr::Ptr
NEEDS(a<Ptr<double>&>() = a<Ptr<double>>());  // Pelmor::Ptr::operator=
NEEDS(!a<const Ptr<double>&>());  // Pelmor::Ptr::operator-bool
NEEDS(*a<const Ptr<double>&>() + 0.0);  // Pelmor::Ptr::operator*
NEEDS(a<const Ptr<String>&>()->asChar());  // Pelmor::Ptr::operator->
NEEDS(Ptr<double>(makePtr<double>()));  // Pelmor::makePtr

static_assert(ElementTraits<double, void>::kindCode == 0);  // Pelmor::ElementTraits
NEEDS(a<ElementOperations>()(a<ElementOperation>(), a<void*>(), a<void*>(), a<std::uint64_t>()));  // Pelmor::ElementOperations
NEEDS(ElementOperation::DefaultConstruct);  // Pelmor::ElementOperation::DefaultConstruct
NEEDS(ElementOperation::ConstructCopies);  // Pelmor::ElementOperation::ConstructCopies
NEEDS(ElementOperation::CopyConstruct);  // Pelmor::ElementOperation::CopyConstruct
NEEDS(ElementOperation::MoveConstruct);  // Pelmor::ElementOperation::MoveConstruct
NEEDS(ElementOperation::CopyAssign);  // Pelmor::ElementOperation::CopyAssign
NEEDS(ElementOperation::MoveAssign);  // Pelmor::ElementOperation::MoveAssign
NEEDS(ElementOperation::Destroy);  // Pelmor::ElementOperation::Destroy
NEEDS(static_cast<double*>(a<const Internal::UntypedTypeRep&>().allocate(1)));  // Pelmor::Internal::UntypedTypeRep::allocate
NEEDS(a<const Internal::UntypedTypeRep&>().deallocate(a<void*>(), 1));  // Pelmor::Internal::UntypedTypeRep::deallocate

NEEDS(&Internal::TypeInfo::s_void);  // Pelmor::Internal::TypeInfo::s_void
NEEDS(Internal::typeInfoLess(a<const Internal::TypeInfo&>(), a<const Internal::TypeInfo&>()));  // Pelmor::Internal::typeInfoLess
NEEDS(&Internal::HeldIdentity<double>::s_record);  // Pelmor::Internal::HeldIdentity
NEEDS(AnyValue(AnyValue::holding(a<const SharedArray<double>&>())));  // Pelmor::AnyValue::holding
NEEDS(a<AnyValue&>().moveAssign(a<AnyValue&>()));  // Pelmor::AnyValue::moveAssign
NEEDS(a<const AnyValue&>().hasValue() ? 1 : 0);  // Pelmor::AnyValue::hasValue
NEEDS(&a<const AnyValue&>().type() == &Internal::TypeInfo::s_void);  // Pelmor::AnyValue::type
NEEDS(*a<const AnyValue&>().getIf<double>() + 0.0);  // Pelmor::AnyValue::getIf

NEEDS(Type(a<const Type&>()));  // Pelmor::Type::Type
NEEDS(a<Type&>() = a<const Type&>());  // Pelmor::Type::operator=
NEEDS(String(a<const Type&>().getFullyQualifiedName()));  // Pelmor::Type::getFullyQualifiedName
NEEDS(TypeKind(a<const Type&>().getTypeKind()));  // Pelmor::Type::getTypeKind
NEEDS(TypeKind::Array);  // Pelmor::TypeKind::Array
NEEDS(TypeKind::Struct);  // Pelmor::TypeKind::Struct
NEEDS(TypeKind::Enum);  // Pelmor::TypeKind::Enum
NEEDS(ArrayType(a<const Type&>()));  // Pelmor::ArrayType::ArrayType
NEEDS(Type(a<const ArrayType&>().getElementType()));  // Pelmor::ArrayType::getElementType
NEEDS(StructType(a<const Type&>()));  // Pelmor::StructType::StructType
using Members = decltype(a<const StructType&>().begin());  // Pelmor::StructType::begin
NEEDS(a<const StructType&>().end());  // Pelmor::StructType::end
NEEDS(++a<Members&>() != a<Members&>());  // Pelmor::StructType::begin
NEEDS(String((*a<Members&>()).getName()));  // Pelmor::StructType::Member::getName
NEEDS(Type((*a<Members&>()).getType()));  // Pelmor::StructType::Member::getType
NEEDS(EnumType(a<const Type&>()));  // Pelmor::EnumType::EnumType
using Enumerations = decltype(a<const EnumType&>().begin());  // Pelmor::EnumType::begin
NEEDS(a<const EnumType&>().end());  // Pelmor::EnumType::end
NEEDS(++a<Enumerations&>() != a<Enumerations&>());  // Pelmor::EnumType::begin
NEEDS(String((*a<Enumerations&>()).getName()));  // Pelmor::EnumType::Enumeration::getName
NEEDS(static_cast<std::uint16_t>((*a<Enumerations&>()).getValue()));  // Pelmor::EnumType::Enumeration::getValue

NEEDS(Ptr<Tavrik::Object>(Internal::getDefaultClass<Tavrik::Object>()));  // Pelmor::Internal::getDefaultClass
NEEDS(a<Tavrik::Object*>());  // Tavrik::Object
static_assert(sizeof(Math::double4x4::rows) == 16 * sizeof(double));  // Math::double4x4::rows
