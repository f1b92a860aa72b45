#include "tools/node/LoadedLibrary.h"

#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <TavrikGraph/Executor/LoadError.h>

#include <cstdlib>
#include <filesystem>

#include <dlfcn.h>

namespace Tolvane::Tools {
namespace {

// Nothing if it cannot be loaded.
void* open(const std::string& path) {
    std::error_code ignored;
    return dlopen(std::filesystem::absolute(path, ignored).c_str(), RTLD_NOW | RTLD_LOCAL);
}

using TavrikGraph::Executor::LoadError;
using TavrikGraph::Executor::TranslationLibrary;

// By the variable that makes libraries tell their version as they are loaded, somebody has asked
// for what they print then.
bool wantsPrintsOfLoading() {
    const char* value = std::getenv("QUELMAR_DUMP_VERSION_INFO");
    return value && std::atoi(value) != 0;
}

std::unique_ptr<TranslationLibrary> load(const std::string& path) {
    try {
        return std::make_unique<TranslationLibrary>(path);
    } catch (const LoadError& error) {
        throw Error(Stage::Loading, path, error.what());
    } catch (const std::exception& exception) {
        throw Error(Stage::Loading, path,
                    path + ": throws " + inQuotesWhole(exception.what()) + " while it is loaded");
    } catch (...) {
        throw Error(Stage::Loading, path,
                    path + ": throws something that is no exception while it is loaded");
    }
}

}  // namespace

// A library that cannot be loaded at all is not loaded here either, and then `load` says why.
LoadedLibrary::LoadedLibrary(const std::string& path, ChildSide& process) : m_process(process) {
    process.enter(Stage::Loading);
    m_handle = open(path);
    m_library = load(path);
    if (wantsPrintsOfLoading()) m_process.allowPrints();
    m_process.noticePrints();
}

LoadedLibrary::~LoadedLibrary() {
    m_process.noticePrints();
    m_process.enter(Stage::Releasing);
    m_library.reset();
    m_process.noticePrints();
    m_process.enter(Stage::Unloading);
    dlclose(m_handle);
    m_process.noticePrints();
}

}  // namespace Tolvane::Tools
