#include "common/line_reader.h"

#include <limits>

#include "common/file_status.h"

namespace quelcnv {

namespace {

constexpr std::size_t bufferSize = 64 * 1024;
constexpr int endOfFile = -1;
constexpr int ctrlZ = 0x1A;

bool seekFile(std::FILE* file, std::uint64_t offset) {
#ifdef _WIN32
    return _fseeki64(file, static_cast<long long>(offset), SEEK_SET) == 0;
#else
    if (offset > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max())) return false;
    return fseeko(file, static_cast<off_t>(offset), SEEK_SET) == 0;
#endif
}

}  // namespace

LineReader::~LineReader() { close(); }

bool LineReader::open(const std::string& path) {
    close();
    file_ = std::fopen(path.c_str(), "rb");
    if (file_ == nullptr) return false;
    if (isDirectory(file_)) {  // opens on some systems, but is no file to read
        close();
        return false;
    }
    buffer_.resize(bufferSize);
    return true;
}

void LineReader::close() {
    if (file_ != nullptr) std::fclose(file_);
    file_ = nullptr;
    bufferStart_ = bufferEnd_ = 0;
    position_ = 0;
    atEnd_ = ctrlZ_ = failed_ = false;
}

bool LineReader::fill() {
    if (file_ == nullptr) return false;
    bufferStart_ = 0;
    bufferEnd_ = std::fread(buffer_.data(), 1, buffer_.size(), file_);
    if (bufferEnd_ == 0 && std::ferror(file_)) failed_ = true;
    return bufferEnd_ > 0;
}

int LineReader::peekByte() {
    if (bufferStart_ == bufferEnd_ && !fill()) return endOfFile;
    return buffer_[bufferStart_];
}

// Next character in text mode, or endOfFile (setting the end-of-file flag).
int LineReader::nextChar() {
    int c = ctrlZ_ ? endOfFile : peekByte();
    if (c == ctrlZ) ctrlZ_ = true;
    if (c == endOfFile || c == ctrlZ) {
        atEnd_ = true;
        return endOfFile;
    }
    ++bufferStart_;
    ++position_;
    if (c == '\r' && peekByte() == '\n') {
        ++bufferStart_;
        ++position_;
        c = '\n';
    }
    return c;
}

ReadStatus LineReader::read(std::string& text) {
    std::uint64_t start = position_;
    long number = linesEnded_ < 0 ? 0 : linesEnded_ + 1;
    std::string piece;
    while (piece.size() < maxLineLength) {
        int c = nextChar();
        if (c == endOfFile) break;
        piece.push_back(static_cast<char>(c));
        if (c == '\n') {
            if (linesEnded_ >= 0) ++linesEnded_;
            break;
        }
    }
    if (piece.empty() && atEnd_) return ReadStatus::nothing;
    lastStart_ = start;
    lineNumber_ = number;
    std::size_t nul = piece.find('\0');
    if (nul != std::string::npos) piece.resize(nul);
    text = std::move(piece);
    return atEnd_ ? ReadStatus::lastLine : ReadStatus::line;
}

bool LineReader::seek(std::uint64_t offset) {
    if (file_ == nullptr || !seekFile(file_, offset)) return false;
    bufferStart_ = bufferEnd_ = 0;
    linesEnded_ = offset == lastStart_ && lineNumber_ > 0 ? lineNumber_ - 1 : -1;
    position_ = offset;
    atEnd_ = ctrlZ_ = false;
    return true;
}

bool readLineBeforeEnd(LineReader& reader, std::string& text) {
    return reader.read(text) == ReadStatus::line;
}

bool readLineThroughEnd(LineReader& reader, std::string& text) {
    return reader.read(text) != ReadStatus::nothing;
}

int countLines(const std::string& path) {
    LineReader reader;
    if (!reader.open(path)) return 0;
    std::string text;
    int reads = 0;
    while (readLineBeforeEnd(reader, text) && reads < std::numeric_limits<int>::max() - 1) ++reads;
    return reads + 1;
}

std::string_view withoutLineBreak(std::string_view line) {
    if (!line.empty() && line.back() == '\n') line.remove_suffix(1);
    return line;
}

}  // namespace quelcnv
