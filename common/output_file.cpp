#include "common/output_file.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "common/file_status.h"
#include "common/settings.h"

namespace quelcnv {

namespace {

// Text is written to the file in blocks of about this size.
constexpr std::size_t blockSize = 1 << 16;

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
    std::string setting = environmentValue("QUELCNV_NEWLINE").value_or("");
    return setting == "crlf" || setting == "CRLF" ? "\r\n" : "\n";
#endif
}

OutputFile::~OutputFile() {
    if (file_ != nullptr) closeAndRemove();
}

bool OutputFile::open(const std::string& path) {
    if (file_ != nullptr) closeAndRemove();
    file_ = openOutputFile(path);
    if (file_ == nullptr) return false;
    path_ = resolvedPath(path);
    newline_ = std::string(platformNewline());
    plainNewline_ = newline_ == "\n";
    regularFile_ = isRegularFile(file_);
    failed_ = false;
    lines_ = 0;
    filled_ = 0;
    if (block_.size() < 2 * blockSize) block_.resize(2 * blockSize);
    return true;
}

char* OutputFile::room(std::size_t n) {
    if (filled_ + n > block_.size()) {
        flush();
        if (n > block_.size()) block_.resize(n);
    }
    return block_.data() + filled_;
}

void OutputFile::used(std::size_t n) {
    filled_ += n;
    if (filled_ >= blockSize) flush();
}

void OutputFile::write(std::string_view text) {
    if (file_ == nullptr || failed_) return;
    for (std::size_t start = 0; start <= text.size();) {
        std::size_t lineFeed = text.find('\n', start);
        std::size_t end = lineFeed == std::string_view::npos ? text.size() : lineFeed;
        std::size_t length = end - start;
        if (length > 0) {
            std::memcpy(room(length), text.data() + start, length);
            used(length);
        }
        if (lineFeed == std::string_view::npos) break;
        std::memcpy(room(newline_.size()), newline_.data(), newline_.size());
        used(newline_.size());
        ++lines_;
        start = lineFeed + 1;
    }
}

void OutputFile::flush() {
    if (filled_ > 0 && std::fwrite(block_.data(), 1, filled_, file_) != filled_) failed_ = true;
    filled_ = 0;
}

bool OutputFile::finish() {
    if (file_ == nullptr) return false;
    if (!failed_) flush();
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
