// The records that people's graphs have in them. All other tests go by the plugin's own list; this
// is where one that is missing there shows.
#include "plugin/Records.h"
#include "tests/plugin/Translation.h"

#include <Tolvane/TranslatorRegistry.h>

#include <set>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Rigging::Module;

TEST(CarriedRecords, AreAtLeastTheSevenAndArraysOfEach) {
    Pelmor::Array<Pelmor::String> names;
    PluginTests::newTranslation()->getSupportedTypeNames(names);
    std::set<std::string> carried;
    for (const Pelmor::String& name : names) carried.insert(name.c_str());
    for (const std::string record :
         {"Core::Transform::Transform", "Rigging::Module::NamedTransforms", "Rigging::Module::Pins",
          "Rigging::Module::InputsJoints", "Rigging::Module::InputsControls",
          "Rigging::Module::Inputs", "Rigging::Module::Outputs"}) {
        EXPECT_EQ(carried.count(record), 1u) << record;
        EXPECT_EQ(carried.count("array<" + record + ">"), 1u) << record;
    }
}

// What these names stand for does not show in their types.
TEST(CarriedRecords, AreReadByTheFunctionsOfTheirNames) {
    const auto& registry = Tolvane::TranslatorRegistry::instance<Records>();
    const struct {
        const char* name;
        Tolvane::HostReader read, readArray;
    } readers[] = {
        {"Core::Transform::Transform", readTransformValue, readTransformArrayValue},
        {"Rigging::Module::NamedTransforms", readNamedTransformsValue,
         readNamedTransformsArrayValue},
        {"Rigging::Module::Pins", readPinsValue, readPinsArrayValue},
        {"Rigging::Module::InputsJoints", readInputsJointsValue, readInputsJointsArrayValue},
        {"Rigging::Module::InputsControls", readInputsControlsValue, readInputsControlsArrayValue},
        {"Rigging::Module::Inputs", readInputsValue, readInputsArrayValue},
        {"Rigging::Module::Outputs", readOutputsValue, readOutputsArrayValue}};
    for (const auto& [name, read, readArray] : readers) {
        EXPECT_EQ(registry.findReader(name), read) << name;
        EXPECT_EQ(registry.findReader(Pelmor::String("array<") + name + ">"), readArray) << name;
    }
}

}  // namespace
