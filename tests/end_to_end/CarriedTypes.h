// The types that the plugin carries, and the names of tests that are run for each.
#pragma once

#include <cctype>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace TestSupport {

// In the order in which the plugin names them.
inline const std::vector<const char*>& carriedTypes() {
    static const std::vector<const char*> names{"Core::Transform::Transform",
                                                "Rigging::Module::Inputs",
                                                "Rigging::Module::InputsControls",
                                                "Rigging::Module::InputsJoints",
                                                "Rigging::Module::NamedTransforms",
                                                "Rigging::Module::Outputs",
                                                "Rigging::Module::Pins",
                                                "array<Core::Transform::Transform>",
                                                "array<Rigging::Module::Inputs>",
                                                "array<Rigging::Module::InputsControls>",
                                                "array<Rigging::Module::InputsJoints>",
                                                "array<Rigging::Module::NamedTransforms>",
                                                "array<Rigging::Module::Outputs>",
                                                "array<Rigging::Module::Pins>"};
    return names;
}

inline std::string nameOfTest(const testing::TestParamInfo<const char*>& info) {
    std::string name;
    for (const char c : std::string(info.param))
        if (std::isalnum(static_cast<unsigned char>(c))) name += c;
    return name;
}

}  // namespace TestSupport
