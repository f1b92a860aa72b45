// Types as a file describes them. The names have the right form, but need not name anything.
#pragma once

#include <Pelmor/EnumType.h>

#include <string>
#include <vector>

namespace Tolvane::Tools {

struct MemberDescription {
    std::string name;
    std::string typeName;
};

struct StructDescription {
    std::string name;
    std::vector<MemberDescription> members;
};

struct EnumDescription {
    std::string name;
    std::vector<Pelmor::EnumType::Enumeration> fields;
};

struct TypeDescriptions {
    std::vector<StructDescription> structs;
    std::vector<EnumDescription> enums;
};

}  // namespace Tolvane::Tools
