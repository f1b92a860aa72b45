#include "tests/plugin/ScriptedTranslators.h"

#include "convert/Translators.h"
#include "types/Inputs.h"
#include "types/Outputs.h"

namespace PluginTests {
namespace {

ScriptedTranslators* s_script = nullptr;

void read(const char* name, Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    s_script->called.push_back(name);
    s_script->read(value, handle, plug);
}

void write(const char* name, const void* value, VDataHandle& handle, const VPlug& plug) {
    s_script->called.push_back(name);
    s_script->write(value, handle, plug);
}

}  // namespace

ScriptedTranslators::ScriptedTranslators() { s_script = this; }
ScriptedTranslators::~ScriptedTranslators() { s_script = nullptr; }

}  // namespace PluginTests

namespace Tolvane {

using namespace Rigging::Module;
using Core::Transform::Transform;
using Pelmor::AnyValue;
using Pelmor::SharedArray;

#define SCRIPTED_TRANSLATORS(Record)                                                               \
    template <>                                                                                    \
    void Translators<Record>::readValue(AnyValue& value, VDataHandle& handle, const VPlug& plug) { \
        PluginTests::read("read" #Record "Value", value, handle, plug);                            \
    }                                                                                              \
    template <>                                                                                    \
    void Translators<Record>::readArrayValue(AnyValue& value, VDataHandle& handle,                 \
                                             const VPlug& plug) {                                  \
        PluginTests::read("read" #Record "ArrayValue", value, handle, plug);                       \
    }                                                                                              \
    template <>                                                                                    \
    void Translators<Record>::write(const Record& record, VDataHandle& handle, VPlug& plug) {      \
        PluginTests::write("write" #Record, &record, handle, plug);                                \
    }                                                                                              \
    template <>                                                                                    \
    void Translators<Record>::writeArray(const SharedArray<Record>& array, VDataHandle& handle,    \
                                         VPlug& plug) {                                            \
        PluginTests::write("write" #Record "Array", &array, handle, plug);                         \
    }

SCRIPTED_TRANSLATORS(Transform)
SCRIPTED_TRANSLATORS(NamedTransforms)
SCRIPTED_TRANSLATORS(Pins)
SCRIPTED_TRANSLATORS(InputsJoints)
SCRIPTED_TRANSLATORS(InputsControls)
SCRIPTED_TRANSLATORS(Inputs)
SCRIPTED_TRANSLATORS(Outputs)

#undef SCRIPTED_TRANSLATORS

}  // namespace Tolvane
