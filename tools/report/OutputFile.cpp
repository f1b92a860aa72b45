#include "tools/report/OutputFile.h"

#include "tools/process/FileDescriptor.h"
#include "tools/process/Interruption.h"
#include "tools/report/StandardOutput.h"
#include "tools/support/Error.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tolvane::Tools {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPart = std::size_t{1} << 20;

[[noreturn]] void fail(const std::string& path, const std::string& cause) {
    throw Error(Stage::Writing, path, path + ": " + cause);
}

// Whoever made it. Rigs may begin with a tag too, but with others.
bool isPictureOrPage(const std::string& path) {
    static const std::regex kBegin(R"((\xEF\xBB\xBF)?\s*(<[\s\S]*)?<(svg|html|!doctype html)[\s>])",
                                   std::regex::icase);
    std::string begin(1024, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(begin.data(), static_cast<std::streamsize>(begin.size()));
    begin.resize(static_cast<std::size_t>(file.gcount()));
    return std::regex_search(begin, kBegin, std::regex_constants::match_continuous);
}

// What a path leads to, which need not exist.
fs::path withoutLinks(const std::string& path) {
    fs::path target = path;
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    // Such as links that lead round, or a name that is too long.
    if (!fs::status_known(status)) failToWrite(path, error.value());
    // Renaming would replace a device by a file. What the link of a pipe says is no path at all.
    if (fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status))
        fail(path, "is not a regular file, and will not be replaced");
    while (fs::is_symlink(fs::symlink_status(target, error)))
        target = target.parent_path() / fs::read_symlink(target, error);
    return target;
}

std::string folderOf(const std::string& target) {
    const std::string folder = fs::path(target).parent_path().string();
    return folder.empty() ? "." : folder;
}

void refuseTarget(const std::string& path, const std::string& target) {
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    if (fs::is_directory(status) || !fs::path(target).has_filename())
        fail(path, "is a folder, not a file to write to");
    // What was printed there, and what is going to be, would be lost.
    for (const char* stream : {"/proc/self/fd/1", "/proc/self/fd/2"})
        if (fs::equivalent(target, stream, ignored))
            fail(path, "is where this program prints to, and will not be replaced");
    // A path that was mistyped or forgotten must not cost somebody a rig or a library.
    if (fs::exists(status) && fs::file_size(target, ignored) != 0 && !isPictureOrPage(target))
        fail(path, "is no picture and no page, and will not be replaced");
    if (fs::exists(status) && access(target.c_str(), W_OK) != 0)
        fail(path, "cannot be written: it is protected");
    if (!fs::is_directory(folderOf(target), ignored))
        fail(path, "cannot be written: there is no such folder");
    if (access(folderOf(target).c_str(), W_OK | X_OK) != 0)
        fail(path, "cannot be written: its folder is not writable");
}

// Those of the file that is replaced, or what any new file gets.
mode_t permissionsFor(const std::string& target) {
    struct stat former {};
    if (stat(target.c_str(), &former) == 0) return former.st_mode & 07777;
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// A new file beside the target, which goes with its owner unless it has taken the target's place.
class PartialFile {
public:
    explicit PartialFile(const std::string& target)
        : m_path(folderOf(target) + "/.tolvane-XXXXXX.part"),
          m_file(mkostemps(m_path.data(), 5, O_CLOEXEC)) {
        if (m_file.number() < 0) m_error = errno;
    }
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;
    ~PartialFile() {
        if (!m_path.empty()) unlink(m_path.c_str());
    }

    // Each does nothing after a failure.
    void write(std::string_view text) {
        while (m_error == 0 && !text.empty()) {
            throwIfInterrupted();
            const std::size_t part = std::min(text.size(), kPart);
            const ssize_t written = ::write(m_file.number(), text.data(), part);
            if (written >= 0)
                text.remove_prefix(static_cast<std::size_t>(written));
            else if (errno != EINTR)
                m_error = errno;
        }
    }
    void replace(const std::string& target) {
        note(fchmod(m_file.number(), permissionsFor(target)));
        note(fsync(m_file.number()));
        throwIfInterrupted();
        note(m_error == 0 ? std::rename(m_path.c_str(), target.c_str()) : -1);
        if (m_error == 0) m_path.clear();
    }
    // That of the first failure; 0 if there was none.
    int error() const noexcept { return m_error; }

private:
    void note(int result) {
        if (m_error == 0 && result != 0) m_error = errno;
    }

    std::string m_path;
    int m_error = 0;
    FileDescriptor m_file;
};

}  // namespace

OutputFile::OutputFile(const std::string& path, const std::vector<std::string>& filesRead)
    : m_path(path), m_target(withoutLinks(path).string()) {
    refuseToReplace(filesRead);
    refuseTarget(m_path, m_target);
}

void OutputFile::refuseToReplace(const std::vector<std::string>& filesRead) const {
    std::error_code ignored;
    for (const std::string& read : filesRead)
        if (fs::equivalent(m_target, read, ignored))
            fail(m_path, "is read, and will not be written over");
}

bool OutputFile::isSameFileAs(const OutputFile& other) const {
    std::error_code ignored;
    return fs::equivalent(m_target, other.m_target, ignored) ||
           fs::weakly_canonical(m_target, ignored) == fs::weakly_canonical(other.m_target, ignored);
}

void OutputFile::write(std::string_view text) const {
    PartialFile file(m_target);
    file.write(text);
    file.replace(m_target);
    if (file.error() != 0) failToWrite(m_path, file.error());
}

void OutputFiles::add(const std::string& path) {
    OutputFile file(path, m_filesRead);
    for (const OutputFile& other : m_files)
        if (file.isSameFileAs(other)) fail(path, "is written twice in one run");
    m_files.push_back(std::move(file));
}

void OutputFiles::refuseToReplace(const std::vector<std::string>& filesRead) const {
    for (const OutputFile& file : m_files) file.refuseToReplace(filesRead);
}

void OutputFiles::write(const std::string& path, std::string_view text) const {
    for (const OutputFile& file : m_files)
        if (file.path() == path) file.write(text);
}

}  // namespace Tolvane::Tools
