// The order of the virtual operations, by which separately built libraries call each other. Each
// slot of an object's table is called as its own function, with the object before the arguments;
// the destructor has two slots in this ABI, the second of which frees the object as well.
#include "tests/support/AllocationCount.h"

#include <TavrikGraph/Executor/TypeTranslation.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace TavrikGraph::Executor;
using Pelmor::AnyValue;
using Pelmor::Array;
using Pelmor::Library;
using Pelmor::String;
using Pelmor::Type;
using TypeList = Pelmor::EntityIndexedList<Type>;
using PluginHostData = TypeTranslation::PluginHostData;

// The operation that was reached last, with those of its arguments that tell it from another.
std::string g_reached;

class ReachedTranslation : public TypeTranslation {
public:
    ReachedTranslation() : TypeTranslation("Reached") {}
    ~ReachedTranslation() override { g_reached = "destructor"; }

    void release() noexcept override { g_reached = "release"; }
    void getSupportedTypes(const Library&, TypeList&) const noexcept override {
        g_reached = "getSupportedTypes";
    }
    void getSupportedTypeNames(Array<String>&) const noexcept override {
        g_reached = "getSupportedTypeNames";
    }
    bool translateFromHost(const Type& type, AnyValue&,
                           const HostContext&) const noexcept override {
        g_reached = std::string("translateFromHost ") + type.getFullyQualifiedName().c_str();
        return true;
    }
    bool translateToHost(const AnyValue& value, const HostContext&) const noexcept override {
        g_reached = "translateToHost " + std::to_string(*value.getIf<double>());
        return true;
    }
    bool portAdded(const String& name, PortDirection direction, const Type& type,
                   std::uint32_t index, std::uint32_t flags,
                   NodeEditContext* context) const noexcept override {
        g_reached = std::string("portAdded ") + name.c_str() + " " +
                    std::to_string(static_cast<int>(direction)) + " " +
                    type.getFullyQualifiedName().c_str() + " " + std::to_string(index) + " " +
                    std::to_string(flags) + (context ? " context" : " null");
        return true;
    }
    bool portRemoved(const String& node, const String& port) const noexcept override {
        g_reached = std::string("portRemoved ") + node.c_str() + " " + port.c_str();
        return true;
    }
    bool portRenamed(const String& node, const String& from,
                     const String& to) const noexcept override {
        g_reached =
            std::string("portRenamed ") + node.c_str() + " " + from.c_str() + " " + to.c_str();
        return true;
    }
    bool registerHostPlugins(const PluginHostData* host) const noexcept override {
        g_reached = host ? "registerHostPlugins" : "registerHostPlugins null";
        return true;
    }
    bool unregisterHostPlugins(const PluginHostData* host) const noexcept override {
        g_reached = host ? "unregisterHostPlugins" : "unregisterHostPlugins null";
        return true;
    }
};

template <typename Result, typename... Arguments>
Result callSlot(unsigned slot, TypeTranslation* object, Arguments... arguments) {
    using Function = Result (*)(TypeTranslation*, Arguments...);
    const void* const* table = *reinterpret_cast<const void* const* const*>(object);
    Function function;
    static_assert(sizeof function == sizeof table[slot]);
    std::memcpy(&function, &table[slot], sizeof function);
    return function(object, arguments...);
}

class TypeTranslationSlots : public testing::Test {
protected:
    void SetUp() override { g_reached.clear(); }

    ReachedTranslation m_translation;
    Library m_library;
    String m_node = "walk", m_first = "pins", m_second = "joints";
    Type m_type = m_library.getType("Rigging::Module::Pins");
    HostContext m_hostContext{};
};

TEST_F(TypeTranslationSlots, DestructorComesFirstAndItsSecondFormFrees) {
    alignas(ReachedTranslation) std::byte storage[sizeof(ReachedTranslation)];
    auto* inStorage = new (storage) ReachedTranslation;
    callSlot<void>(0, inStorage);
    EXPECT_EQ(g_reached, "destructor");

    auto* onHeap = new ReachedTranslation;
    g_reached.clear();
    const TestSupport::AllocationCount count;
    callSlot<void>(1, onHeap);
    EXPECT_EQ(g_reached, "destructor");
    EXPECT_EQ(count.deallocations(), 1u);
}

TEST_F(TypeTranslationSlots, OperationsFollowTheDestructorInTheirOrder) {
    TypeList types;
    Array<String> names;
    AnyValue value = AnyValue::holding(2.5);
    NodeEditContext context{};
    const auto* host = reinterpret_cast<const PluginHostData*>(&m_library);
    callSlot<void>(2, &m_translation);
    EXPECT_EQ(g_reached, "release");
    callSlot<void>(3, &m_translation, &m_library, &types);
    EXPECT_EQ(g_reached, "getSupportedTypes");
    callSlot<void>(4, &m_translation, &names);
    EXPECT_EQ(g_reached, "getSupportedTypeNames");
    EXPECT_TRUE(callSlot<bool>(5, &m_translation, &m_type, &value, &m_hostContext));
    EXPECT_EQ(g_reached, "translateFromHost Rigging::Module::Pins");
    EXPECT_TRUE(callSlot<bool>(6, &m_translation, &value, &m_hostContext));
    EXPECT_EQ(g_reached, "translateToHost 2.500000");
    EXPECT_TRUE(callSlot<bool>(7, &m_translation, &m_first, PortDirection::Input, &m_type,
                               std::uint32_t{4}, std::uint32_t{8}, &context));
    EXPECT_EQ(g_reached, "portAdded pins 1 Rigging::Module::Pins 4 8 context");
    EXPECT_TRUE(callSlot<bool>(8, &m_translation, &m_node, &m_first));
    EXPECT_EQ(g_reached, "portRemoved walk pins");
    EXPECT_TRUE(callSlot<bool>(9, &m_translation, &m_node, &m_first, &m_second));
    EXPECT_EQ(g_reached, "portRenamed walk pins joints");
    EXPECT_TRUE(callSlot<bool>(10, &m_translation, host));
    EXPECT_EQ(g_reached, "registerHostPlugins");
    EXPECT_TRUE(callSlot<bool>(11, &m_translation, host));
    EXPECT_EQ(g_reached, "unregisterHostPlugins");
}

}  // namespace
