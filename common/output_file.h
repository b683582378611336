// Writing an output text file: the platform's newline, write errors detected,
// and no partial file left behind on failure.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "common/outcome.h"
#include "common/text_format.h"

namespace quelcnv {

// The newline an output file writes for each LF: CR LF on Windows; elsewhere
// LF, or CR LF when the environment variable QUELCNV_NEWLINE is "crlf".
std::string_view platformNewline();

// An output file written as a text-mode "w" stream writes it: every LF byte
// becomes the platform's newline, every other byte is written as given. The
// text is gathered in a block and written block by block; write errors are
// remembered. finish() closes the file and reports whether everything
// reached it; a file that failed, or that was never finished (the
// conversion gave up half way), is removed if it is a regular file (a device
// or other special file is never removed).
class OutputFile final : private TextSink {
public:
    OutputFile() = default;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    // Creates or truncates the file. False when it cannot be created.
    bool open(const std::string& path);
    bool isOpen() const { return file_ != nullptr; }

    void write(std::string_view text);
    template <typename... Args>
    void print(const Format& format, const Args&... args) {
        if (file_ == nullptr || failed_) return;
        if (plainNewline_) {  // formatted right into the block
            lines_ += appendFormatted(static_cast<TextSink&>(*this), format, {FormatArg(args)...});
            return;
        }
        formatted_.clear();
        appendFormatted(formatted_, format, {FormatArg(args)...});
        write(formatted_);
    }

    // Flushes and closes. False (and the file removed) when a write failed.
    bool finish();
    // The same as an outcome: done, with the lines written, or
    // outputUnwritable.
    Outcome complete();
    // Line feeds written so far.
    long lines() const { return lines_; }
    // Closes and removes the file: the conversion failed after creating it.
    void discard();

private:
    char* room(std::size_t n) override;
    void used(std::size_t n) override;
    void closeAndRemove();
    void flush();

    std::FILE* file_ = nullptr;
    std::string path_;  // the file itself, symbolic links resolved
    std::string newline_;
    bool plainNewline_ = true;  // the newline is LF: text goes to the file as it stands
    bool regularFile_ = false;
    bool failed_ = false;
    long lines_ = 0;
    std::string block_;       // written text, newlines as the platform writes them
    std::size_t filled_ = 0;  // bytes of the block in use
    std::string formatted_;   // the last print, reused
};

// Creates the file at path, lets fill write its text, and finishes it:
// outputUnwritable when it cannot be created or written.
template <typename Fill>
Outcome writeWholeFile(const std::string& path, Fill&& fill) {
    OutputFile out;
    if (!out.open(path)) return Outcome::failed(Failure::outputUnwritable);
    fill(out);
    return out.complete();
}

}  // namespace quelcnv
