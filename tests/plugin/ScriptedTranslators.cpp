#include "tests/plugin/ScriptedTranslators.h"

#include "convert/ReadArrays.h"
#include "convert/ReadRecords.h"
#include "convert/WriteArrays.h"
#include "convert/WriteRecords.h"

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

namespace Rigging::Module {

#define SCRIPTED_TRANSLATORS(Record)                                                            \
    void read##Record##Value(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) { \
        PluginTests::read("read" #Record "Value", value, handle, plug);                         \
    }                                                                                           \
    void read##Record##ArrayValue(Pelmor::AnyValue& value, VDataHandle& handle,                 \
                                  const VPlug& plug) {                                          \
        PluginTests::read("read" #Record "ArrayValue", value, handle, plug);                    \
    }                                                                                           \
    void write##Record(const Record& record, VDataHandle& handle, const VPlug& plug) {          \
        PluginTests::write("write" #Record, &record, handle, plug);                             \
    }                                                                                           \
    void write##Record##Array(const Pelmor::SharedArray<Record>& array, VDataHandle& handle,    \
                              const VPlug& plug) {                                              \
        PluginTests::write("write" #Record "Array", &array, handle, plug);                      \
    }

SCRIPTED_TRANSLATORS(Transform)
SCRIPTED_TRANSLATORS(NamedTransforms)
SCRIPTED_TRANSLATORS(Pins)
SCRIPTED_TRANSLATORS(InputsJoints)
SCRIPTED_TRANSLATORS(InputsControls)
SCRIPTED_TRANSLATORS(Inputs)
SCRIPTED_TRANSLATORS(Outputs)

#undef SCRIPTED_TRANSLATORS

}  // namespace Rigging::Module
