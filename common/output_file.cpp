#include "common/output_file.h"

#include <cstdlib>
#include <filesystem>

#include "common/file_status.h"

namespace quelcnv {

namespace {

// The file a path names, through symbolic links, so that a failed output
// removes the file that was written and not a link to it.
std::string resolvedPath(const std::string& path) {
    std::error_code error;
    std::filesystem::path target = std::filesystem::canonical(path, error);
    return error ? path : target.string();
}

}  // namespace

std::string_view platformNewline() {
#ifdef _WIN32
    return "\r\n";
#else
    const char* setting = std::getenv("QUELCNV_NEWLINE");
    if (setting != nullptr &&
        (std::string_view(setting) == "crlf" || std::string_view(setting) == "CRLF")) {
        return "\r\n";
    }
    return "\n";
#endif
}

OutputFile::~OutputFile() {
    if (file_ != nullptr) closeAndRemove();
}

bool OutputFile::open(const std::string& path) {
    if (file_ != nullptr) closeAndRemove();
    file_ = std::fopen(path.c_str(), "wb");
    if (file_ == nullptr) return false;
    path_ = resolvedPath(path);
    newline_ = std::string(platformNewline());
    regularFile_ = isRegularFile(file_);
    failed_ = false;
    lines_ = 0;
    return true;
}

void OutputFile::write(std::string_view text) {
    if (file_ == nullptr || failed_) return;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t lineFeed = text.find('\n', start);
        std::size_t end = lineFeed == std::string_view::npos ? text.size() : lineFeed;
        if (std::fwrite(text.data() + start, 1, end - start, file_) != end - start) failed_ = true;
        if (lineFeed == std::string_view::npos) break;
        ++lines_;
        if (std::fwrite(newline_.data(), 1, newline_.size(), file_) != newline_.size()) {
            failed_ = true;
        }
        start = lineFeed + 1;
    }
}

bool OutputFile::finish() {
    if (file_ == nullptr) return false;
    if (std::fflush(file_) != 0) failed_ = true;
    if (std::ferror(file_) != 0) failed_ = true;
    if (failed_) {
        closeAndRemove();
        return false;
    }
    bool closed = std::fclose(file_) == 0;
    file_ = nullptr;
    if (!closed && regularFile_) std::remove(path_.c_str());
    return closed;
}

Outcome OutputFile::complete() {
    long written = lines_;
    if (!finish()) return Outcome::failed(Failure::outputUnwritable);
    Outcome done = Outcome::done();
    done.written.lines = written;
    return done;
}

void OutputFile::discard() {
    if (file_ != nullptr) closeAndRemove();
}

void OutputFile::closeAndRemove() {
    std::fclose(file_);
    file_ = nullptr;
    if (regularFile_) std::remove(path_.c_str());
}

}  // namespace quelcnv
