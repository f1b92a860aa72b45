// Stands in for all readers and writers: each writes down its name and does what the test says.
#pragma once

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>

#include <functional>
#include <string>
#include <vector>

namespace PluginTests {

struct ScriptedTranslators {
    using Read = std::function<void(Pelmor::AnyValue&, VDataHandle&, const VPlug&)>;
    // Is given the address of the record or the shared array that is to be written.
    using Write = std::function<void(const void*, VDataHandle&, const VPlug&)>;

    ScriptedTranslators();
    ScriptedTranslators(const ScriptedTranslators&) = delete;
    ScriptedTranslators& operator=(const ScriptedTranslators&) = delete;
    ~ScriptedTranslators();

    std::vector<std::string> called;
    Read read = [](Pelmor::AnyValue&, VDataHandle&, const VPlug&) {};
    Write write = [](const void*, VDataHandle&, const VPlug&) {};
};

}  // namespace PluginTests
