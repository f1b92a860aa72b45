// A translation of records of the tests' own, whose readers and writers do what each test says.
#pragma once

#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>
#include <Tolvane/RecordTranslation.h>

#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace Tests {

struct First {
    double value = 0;
};
struct Second {
    double value = 0;
};

}  // namespace Tests

namespace TranslationTests {

using Tests::First;
using Tests::Second;

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

template <>
struct Tolvane::Page<Tests::First> {
    static constexpr const char* typeName = "Tests::First";
    static constexpr std::tuple members{&Tests::First::value};
};
template <>
struct Tolvane::Page<Tests::Second> {
    static constexpr const char* typeName = "Tests::Second";
    static constexpr std::tuple members{&Tests::Second::value};
};

namespace TranslationTests {

template <typename Record>
struct ScriptedTranslators {
    static void readValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
        noteCall("");
        Script::s_current->read(value, handle, plug);
    }
    static void readArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
        noteCall(" array");
        Script::s_current->read(value, handle, plug);
    }
    static void write(const Record& record, VDataHandle& handle, VPlug& plug) {
        noteCall("");
        Script::s_current->write(&record, handle, plug);
    }
    static void writeArray(const Pelmor::SharedArray<Record>& array, VDataHandle& handle,
                           VPlug& plug) {
        noteCall(" array");
        Script::s_current->write(&array, handle, plug);
    }

private:
    static void noteCall(const std::string& suffix) {
        const char* name = std::is_same_v<Record, First> ? "first" : "second";
        Script::s_current->called.push_back(name + suffix);
    }
};

}  // namespace TranslationTests

template <>
struct Tolvane::Translators<Tests::First> : TranslationTests::ScriptedTranslators<Tests::First> {};
template <>
struct Tolvane::Translators<Tests::Second> : TranslationTests::ScriptedTranslators<Tests::Second> {
};
