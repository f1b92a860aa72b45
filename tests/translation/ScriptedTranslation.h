// A translation of records of the tests' own, whose readers and writers do what each test says.
#pragma once

#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>
#include <Tolvane/RecordTranslation.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

namespace TranslationTests {

template <int number>
struct Scripted {
    double value = 0;
};
using First = Scripted<1>;
using Second = Scripted<2>;

class ScriptedTranslation : public Tolvane::RecordTranslation<Tolvane::RecordList<First, Second>> {
public:
    ScriptedTranslation() : RecordTranslation("scripted") {}
};

// What the readers and writers do while this lives, and which of them were called.
struct Script {
    using Read = std::function<void(Pelmor::AnyValue&, VDataHandle&, const VPlug&)>;
    // Is given the address of the record or the shared array that is to be written.
    using Write = std::function<void(const void*, VDataHandle&, const VPlug&)>;

    Script() { s_current = this; }
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;
    ~Script() { s_current = nullptr; }

    Read read = [](Pelmor::AnyValue&, VDataHandle&, const VPlug&) {};
    Write write = [](const void*, VDataHandle&, const VPlug&) {};
    std::vector<std::string> called;

    inline static Script* s_current = nullptr;
};

}  // namespace TranslationTests

template <int number>
struct Tolvane::Page<TranslationTests::Scripted<number>> {
    using Record = TranslationTests::Scripted<number>;
    static constexpr const char* typeName = number == 1 ? "Tests::First" : "Tests::Second";
    static constexpr std::tuple members{&Record::value};
};

template <int number>
struct Tolvane::Translators<TranslationTests::Scripted<number>> {
    using Record = TranslationTests::Scripted<number>;
    using Script = TranslationTests::Script;

    static void readValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
        Script::s_current->called.push_back(number == 1 ? "first" : "second");
        Script::s_current->read(value, handle, plug);
    }
    static void readArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
        Script::s_current->called.push_back(number == 1 ? "first array" : "second array");
        Script::s_current->read(value, handle, plug);
    }
    static void write(const Record& record, VDataHandle& handle, VPlug& plug) {
        Script::s_current->called.push_back(number == 1 ? "first" : "second");
        Script::s_current->write(&record, handle, plug);
    }
    static void writeArray(const Pelmor::SharedArray<Record>& array, VDataHandle& handle,
                           VPlug& plug) {
        Script::s_current->called.push_back(number == 1 ? "first array" : "second array");
        Script::s_current->write(&array, handle, plug);
    }
};
