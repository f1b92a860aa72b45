// What the built plugin file has of its own for each type that it carries, whatever the linker made
// of what looks unused: the records of identity and the managers of holders.
#include "tests/support/CarriedTypes.h"

#include <Pelmor/TypeInfo.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <regex>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

#include <cxxabi.h>
#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;

// The names in the plugin's symbol table, as they are in the source. What link-time optimisation
// hangs on to one, such as ".lto_priv.0", is taken off.
Names symbolsOfPlugin() {
    const std::string command = std::string(SYMBOL_LISTER) + " -C '" + TOLVANE_PLUGIN + "'";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(command.c_str(), "r"),
                                                                 pclose);
    if (!output) throw std::runtime_error("the symbols cannot be listed");
    const std::regex suffix(R"(( \[clone [^\]]*\]|\.(lto_priv|isra|constprop|part)(\.\d+)*)+$)");
    Names names;
    std::string line;
    for (int c = std::fgetc(output.get()); c != EOF; c = std::fgetc(output.get())) {
        if (c != '\n') {
            line += static_cast<char>(c);
            continue;
        }
        // The address in sixteen digits, a blank, a letter, a blank, the name.
        if (line.size() > 19) names.push_back(std::regex_replace(line.substr(19), suffix, ""));
        line.clear();
    }
    return names;
}

template <typename T>
std::string sourceName() {
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> name(
        abi::__cxa_demangle(typeid(T).name(), nullptr, nullptr, &status), std::free);
    return name ? name.get() : "";
}

template <typename T, std::uint32_t depth>
std::string identityName() {
    return sourceName<Pelmor::Internal::Identity<T, depth>>() + "::s_record";
}

template <typename Held>
std::string managerName() {
    const std::string held = sourceName<Held>();
    return "void Pelmor::Internal::manageHeld<" + held + (held.back() == '>' ? " >" : ">") +
           "(Pelmor::AnyValueRequest*)";
}

template <typename... Records>
Names identitiesOf(testing::Types<Records...>) {
    return {identityName<Records, 0>()..., identityName<Records, 1>()...};
}
template <typename... Held>
Names managersOf(testing::Types<Held...>) {
    return {managerName<Held>()...};
}

Names sorted(Names names) {
    std::sort(names.begin(), names.end());
    return names;
}

TEST(PluginSymbols, HaveTwoIdentitiesForEachRecordAndOneForStrings) {
    Names expected = identitiesOf(TestSupport::RecordTypes());
    expected.push_back(identityName<Pelmor::String, 0>());
    Names found;
    const std::string start = "Pelmor::Internal::Identity<", end = ">::s_record";
    for (const std::string& name : symbolsOfPlugin())
        if (name.compare(0, start.size(), start) == 0 && name.size() > end.size() &&
            name.compare(name.size() - end.size(), end.size(), end) == 0)
            found.push_back(name);
    EXPECT_EQ(found.size(), TestSupport::carriedTypes().size() + 1);
    EXPECT_EQ(sorted(found), sorted(expected));
}

TEST(PluginSymbols, HaveTheManagerOfEachHeldType) {
    const Names symbols = symbolsOfPlugin();
    for (const std::string& manager : managersOf(TestSupport::HeldTypes()))
        EXPECT_EQ(std::count(symbols.begin(), symbols.end(), manager), 1) << manager;
}

}  // namespace
