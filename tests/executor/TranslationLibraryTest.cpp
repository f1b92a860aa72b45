#include "tests/executor/libraries/LibraryEvents.h"

#include <Pelmor/Array.h>
#include <TavrikGraph/Executor/LoadError.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdlib.h>

namespace {

std::vector<std::string> g_events;

}  // namespace

void noteLibraryEvent(const char* what) { g_events.push_back(what); }

namespace {

namespace fs = std::filesystem;
using TavrikGraph::Executor::LoadError;
using TavrikGraph::Executor::TranslationLibrary;
using Events = std::vector<std::string>;

bool isLoaded(const std::string& path) {
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (library) dlclose(library);
    return library != nullptr;
}

// Empty where loading succeeds.
std::string whyNot(const std::string& path) {
    try {
        const TranslationLibrary library(path);
        return {};
    } catch (const LoadError& error) {
        return error.what();
    }
}

void expectOneLine(const std::string& message, const std::string& path, const std::string& cause) {
    EXPECT_EQ(message.rfind(path + ": ", 0), 0u) << message;
    EXPECT_NE(message.find(cause), std::string::npos) << message;
    EXPECT_GT(message.size(), path.size() + 2);
    EXPECT_EQ(message.find('\n'), std::string::npos) << message;
    // Named at the beginning alone.
    EXPECT_EQ(message.find(path, 1), std::string::npos) << message;
}

// Each test has a folder of its own, and the working folder back when it is done.
class TranslationLibraryFile : public testing::Test {
protected:
    void SetUp() override {
        g_events.clear();
        std::string pattern = (fs::temp_directory_path() / "tolvane_library.XXXXXX").string();
        ASSERT_TRUE(mkdtemp(pattern.data())) << pattern;
        m_folder = pattern;
    }
    void TearDown() override {
        fs::current_path(m_formerFolder);
        fs::remove_all(m_folder);
    }

    std::string fileWith(const std::string& content) const {
        const fs::path file = m_folder / "library.so";
        std::ofstream(file, std::ios::binary) << content;
        return file.string();
    }

    fs::path m_folder;
    fs::path m_formerFolder = fs::current_path();
};

TEST_F(TranslationLibraryFile, LibraryGivesTheTranslationOfItsFactory) {
    const TranslationLibrary library(GOOD_LIBRARY);
    EXPECT_EQ(g_events, Events{"created"});
    EXPECT_EQ(library.path(), GOOD_LIBRARY);
    EXPECT_TRUE(library.translation().name() == "Good");
    Pelmor::Array<Pelmor::String> names;
    library.translation().getSupportedTypeNames(names);
    ASSERT_EQ(names.size(), 1u);
    EXPECT_TRUE(names[0] == "double");
}

TEST_F(TranslationLibraryFile, TranslationIsReleasedThenTheLibraryUnloaded) {
    {
        const TranslationLibrary library(GOOD_LIBRARY);
        EXPECT_TRUE(isLoaded(GOOD_LIBRARY));
    }
    EXPECT_EQ(g_events, (Events{"created", "released", "unloaded"}));
    EXPECT_FALSE(isLoaded(GOOD_LIBRARY));
}

TEST_F(TranslationLibraryFile, LibraryStaysWhileItIsLoadedASecondTime) {
    std::optional<TranslationLibrary> first(GOOD_LIBRARY);
    {
        const TranslationLibrary second(GOOD_LIBRARY);
        EXPECT_NE(&first->translation(), &second.translation());
    }
    EXPECT_EQ(g_events, (Events{"created", "created", "released"}));
    EXPECT_TRUE(first->translation().name() == "Good");
    first.reset();
    EXPECT_EQ(g_events, (Events{"created", "created", "released", "released", "unloaded"}));
}

TEST_F(TranslationLibraryFile, LibraryCanBeLoadedAgain) {
    for (int round = 0; round < 2; ++round) {
        g_events.clear();
        { const TranslationLibrary library(GOOD_LIBRARY); }
        EXPECT_EQ(g_events, (Events{"created", "released", "unloaded"}));
    }
}

TEST_F(TranslationLibraryFile, LibraryIsFoundByARelativePathWithAndWithoutASlash) {
    fs::current_path(fs::path(GOOD_LIBRARY).parent_path());
    const std::string name = fs::path(GOOD_LIBRARY).filename().string();
    const std::string upAndDown =
        "../" + fs::path(GOOD_LIBRARY).parent_path().filename().string() + "/" + name;
    for (const std::string& path : {name, "./" + name, upAndDown}) {
        EXPECT_EQ(whyNot(path), "") << path;
        EXPECT_FALSE(g_events.empty());
        g_events.clear();
    }
}

TEST_F(TranslationLibraryFile, LibraryKeepsThePathAsItWasGiven) {
    fs::current_path(fs::path(GOOD_LIBRARY).parent_path());
    const std::string name = fs::path(GOOD_LIBRARY).filename().string();
    EXPECT_EQ(TranslationLibrary(name).path(), name);
}

// The loader would find this one by its name, before and instead of a file of that name here.
TEST_F(TranslationLibraryFile, LibraryIsNotSearchedForByName) {
    const std::string name = "libc.so.6";
    ASSERT_TRUE(isLoaded(name));
    fs::current_path(m_folder);
    expectOneLine(whyNot(name), name, "there is no such file");
    std::ofstream(m_folder / name) << "no library";
    expectOneLine(whyNot(name), name, "cannot be loaded as a library");
}

TEST_F(TranslationLibraryFile, MissingFileIsRefused) {
    const std::string path = (m_folder / "missing.so").string();
    expectOneLine(whyNot(path), path, "there is no such file");
    fs::current_path(m_folder);
    expectOneLine(whyNot("missing.so"), "missing.so", "there is no such file");
}

TEST_F(TranslationLibraryFile, FolderIsRefused) {
    const std::string path = m_folder.string();
    expectOneLine(whyNot(path), path, "cannot be loaded as a library");
    fs::current_path(m_folder);
    expectOneLine(whyNot("."), ".", "cannot be loaded as a library");
}

TEST_F(TranslationLibraryFile, EmptyPathIsRefused) {
    const std::string message = whyNot("");
    EXPECT_NE(message.find("there is no such file"), std::string::npos) << message;
    EXPECT_EQ(message.find('\n'), std::string::npos);
}

TEST_F(TranslationLibraryFile, FileThatIsEmptyOrTextOrCutShortIsRefused) {
    std::ifstream whole(GOOD_LIBRARY, std::ios::binary);
    std::string start(100, '\0');
    whole.read(start.data(), static_cast<std::streamsize>(start.size()));
    for (const std::string& content :
         {std::string(), std::string("No library.\nTwo lines.\n"), start}) {
        const std::string path = fileWith(content);
        expectOneLine(whyNot(path), path, "cannot be loaded as a library");
        EXPECT_FALSE(isLoaded(path));
    }
}

TEST_F(TranslationLibraryFile, LibraryWithoutTheFactoryIsRefusedAndUnloaded) {
    expectOneLine(whyNot(LIBRARY_WITHOUT_FACTORY), LIBRARY_WITHOUT_FACTORY,
                  "it has no createTavrikTypeTranslation");
    EXPECT_EQ(g_events, Events{"unloaded"});
    EXPECT_FALSE(isLoaded(LIBRARY_WITHOUT_FACTORY));
}

TEST_F(TranslationLibraryFile, LibraryWhoseFactoryGivesNullIsRefusedAndUnloaded) {
    expectOneLine(whyNot(LIBRARY_GIVING_NULL), LIBRARY_GIVING_NULL, "returned null");
    EXPECT_EQ(g_events, (Events{"asked", "unloaded"}));
    EXPECT_FALSE(isLoaded(LIBRARY_GIVING_NULL));
}

}  // namespace
