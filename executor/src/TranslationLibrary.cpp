#include <TavrikGraph/Executor/LoadError.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <filesystem>
#include <string_view>

#include <dlfcn.h>

namespace TavrikGraph::Executor {
namespace {

constexpr const char* kFactoryName = "createTavrikTypeTranslation";
using Factory = TypeTranslation* (*)();

// The loader's own message about its last failure, without the path that it often begins with.
std::string loaderError(std::string_view path) {
    const char* message = dlerror();
    std::string_view cause = message ? message : "the loader does not say why";
    if (cause.substr(0, path.size()) == path) cause.remove_prefix(path.size());
    while (!cause.empty() && (cause.front() == ':' || cause.front() == ' ')) cause.remove_prefix(1);
    return std::string(cause);
}

void* load(const std::string& path) {
    std::error_code ignored;
    const auto absolute = std::filesystem::absolute(path, ignored);
    if (!std::filesystem::exists(absolute, ignored))
        throw LoadError(path + ": there is no such file");
    if (void* library = dlopen(absolute.c_str(), RTLD_NOW | RTLD_LOCAL)) return library;
    throw LoadError(path + ": cannot be loaded as a library: " + loaderError(absolute.native()));
}

TypeTranslation* create(const std::string& path, void* library) {
    const auto factory = reinterpret_cast<Factory>(dlsym(library, kFactoryName));
    if (!factory) throw LoadError(path + ": is no translation library: it has no " + kFactoryName);
    if (TypeTranslation* translation = factory()) return translation;
    throw LoadError(path + ": gave no translation: " + kFactoryName + " returned null");
}

}  // namespace

TranslationLibrary::TranslationLibrary(const std::string& path)
    : m_path(path), m_library(load(path)), m_translation(create(path, m_library.get())) {}

void TranslationLibrary::Unload::operator()(void* library) const noexcept { dlclose(library); }

}  // namespace TavrikGraph::Executor
