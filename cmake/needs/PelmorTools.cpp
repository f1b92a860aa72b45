// What the command line asks of the graph library, besides what the plugin does: it defines types
// and looks into values.
#include "cmake/needs/Needs.h"

#include <Pelmor/AnyValue.h>
#include <Pelmor/EntityIndexedList.h>
#include <Pelmor/Library.h>

#include <vector>

// clang-format off
using namespace Pelmor;

NEEDS(Library());  // Pelmor::Library::Library
NEEDS(!a<const Library&>().findType(""));  // Pelmor::Library::findType
NEEDS(Type(a<const Library&>().getType("")));  // Pelmor::Library::getType
NEEDS(Type(Library::arrayOf(a<const Type&>())));  // Pelmor::Library::arrayOf
NEEDS(a<Library&>().defineStruct("", std::vector<StructType::Member>{{"", a<const Type&>()}}));  // Pelmor::Library::defineStruct
NEEDS(a<Library&>().defineEnum("", std::vector<EnumType::Enumeration>{{"", 0}}));  // Pelmor::Library::defineEnum
NEEDS(a<const EntityIndexedList<Type>&>()[0]);  // Pelmor::EntityIndexedList

NEEDS(TypeKind::Bool);  // Pelmor::TypeKind::Bool
NEEDS(TypeKind::Int);  // Pelmor::TypeKind::Int
NEEDS(TypeKind::Double);  // Pelmor::TypeKind::Double
NEEDS(TypeKind::String);  // Pelmor::TypeKind::String
NEEDS(TypeKind::Matrix);  // Pelmor::TypeKind::Matrix
NEEDS(TypeKind::Object);  // Pelmor::TypeKind::Object
NEEDS(TypeKind::Float);  // Pelmor::TypeKind::Float

NEEDS(a<const AnyValue&>().words().manager(a<AnyValueRequest*>()));  // Pelmor::AnyValue::words
NEEDS(AnyValueRequest{AnyValueOp::Get, nullptr, nullptr, nullptr});  // Pelmor::AnyValueRequest
NEEDS(0u + a<const Internal::TypeInfo&>().arrayDepth);  // Pelmor::Internal::TypeInfo::arrayDepth
NEEDS(0u + a<const Internal::UntypedTypeRep&>().elementSize);  // Pelmor::Internal::UntypedTypeRep::elementSize
NEEDS(ElementOperations(a<const Internal::UntypedTypeRep&>().operations));  // Pelmor::Internal::UntypedTypeRep::operations
