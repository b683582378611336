// Reading 8-bit text files line by line, as the Windows C runtime reads them
// in text mode with a 256-byte buffer, the same on every platform.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quelcnv {

// What one line read delivered.
enum class ReadStatus {
    line,      // text, and the end of the file was not met
    lastLine,  // text, and the read met the end of the file
    nothing,   // nothing left: the caller's text is left as it was
};

// Reads a text file in lines of at most 255 characters:
// - CR LF reads as LF, a CR not followed by LF stays, and a byte 0x1A
//   (Ctrl-Z) ends the file, as in text mode;
// - a read stops after an LF or after 255 characters, so a longer line goes
//   on in the next read;
// - the end of the file is met only by a read that tries to go past it: a
//   read that stops at an LF, or after 255 characters, never meets it;
// - the text ends at a NUL byte, as the C string in the buffer would.
// Positions are byte offsets in the file, usable to read a line again.
class LineReader {
public:
    static constexpr std::size_t maxLineLength = 255;

    LineReader() = default;
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;
    ~LineReader();

    // False when the file cannot be opened for reading.
    bool open(const std::string& path);
    void close();
    bool isOpen() const { return file_ != nullptr; }
    // The size of the file when it is a regular one, else 0.
    std::uint64_t fileSize() const;

    ReadStatus read(std::string& text);
    // The same, the text handed out as a view that stays valid until the
    // next read, seek or close.
    ReadStatus read(std::string_view& text);
    // True once a read met the end of the file (the C runtime's end-of-file flag).
    bool atEnd() const { return atEnd_; }
    // Byte offset where the next read starts.
    std::uint64_t position() const { return position_; }
    // Goes back (or forth) to a byte offset and clears the end-of-file flag.
    bool seek(std::uint64_t offset);
    // False when a read failed for another reason than the end of the file.
    bool readFailed() const { return failed_; }
    // The 1-based number of the line the last read started in; 0 before the
    // first read, and after a seek elsewhere than to the last read's start.
    long lineNumber() const { return lineNumber_; }

private:
    int peekByte();
    bool fill();
    std::optional<std::string_view> plainLine();
    std::size_t ordinaryRun(std::size_t available);
    std::size_t nextSpecial(std::size_t kind);
    void forgetSpecials();

    static constexpr std::size_t specialKinds = 3;  // CR, Ctrl-Z, NUL

    std::FILE* file_ = nullptr;
    std::vector<char> buffer_;
    std::string piece_;  // a line that could not be handed out from the block
    std::array<std::ptrdiff_t, specialKinds> nextSpecial_{};  // -1: not searched yet
    std::size_t bufferStart_ = 0;
    std::size_t bufferEnd_ = 0;
    std::uint64_t position_ = 0;
    std::uint64_t bufferOffset_ = 0;  // where in the file the block starts
    bool atEnd_ = false;
    bool ctrlZ_ = false;
    bool failed_ = false;
    long lineNumber_ = 0;
    long linesEnded_ = 0;  // line feeds read, or -1 when unknown after a seek
    std::uint64_t lastStart_ = 0;
};

// The read that meets the end of the file is not used: true for every line
// before it, so a last line without a line break is lost.
bool readLineBeforeEnd(LineReader& reader, std::string& text);
bool readLineBeforeEnd(LineReader& reader, std::string_view& text);

// The read that meets the end of the file is used too: false only when a
// read delivered nothing.
bool readLineThroughEnd(LineReader& reader, std::string& text);
bool readLineThroughEnd(LineReader& reader, std::string_view& text);

// What read takes from the file at path, or nothing when the file cannot be
// opened or read: the one shape of every reader that takes a whole file.
template <typename Read>
auto readWhole(const std::string& path, Read read)
    -> std::optional<decltype(read(std::declval<LineReader&>()))> {
    LineReader reader;
    if (!reader.open(path)) return std::nullopt;
    auto taken = read(reader);
    if (reader.readFailed()) return std::nullopt;
    return taken;
}

// Number of line reads before the end of the file, plus one: a file of four
// LF-ended lines gives 5, an empty file 1. Callers size their record arrays
// by it, the extra one being deliberate headroom. 0 when the file cannot be opened.
int countLines(const std::string& path);

// countLines for the rest of an open file, read from where the reader stands,
// which it then goes back to: what a reader reserves its records from, one at
// most per line, instead of growing its table as it goes.
std::size_t linesAhead(LineReader& reader);

// The text of a line read without the line feed that ended it, if one did.
std::string_view withoutLineBreak(std::string_view line);

}  // namespace quelcnv
