#include "common/line_reader.h"

#include <algorithm>
#include <cstring>
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
    file_ = openInputFile(path);
    if (file_ == nullptr) return false;
    buffer_.resize(bufferSize);
    return true;
}

std::uint64_t LineReader::fileSize() const { return file_ != nullptr ? regularFileSize(file_) : 0; }

void LineReader::close() {
    if (file_ != nullptr) std::fclose(file_);
    file_ = nullptr;
    bufferStart_ = bufferEnd_ = 0;
    position_ = bufferOffset_ = lastStart_ = 0;
    lineNumber_ = linesEnded_ = 0;
    atEnd_ = ctrlZ_ = failed_ = false;
}

bool LineReader::fill() {
    if (file_ == nullptr) return false;
    bufferOffset_ = position_;
    bufferStart_ = 0;
    forgetSpecials();
    bufferEnd_ = std::fread(buffer_.data(), 1, buffer_.size(), file_);
    if (bufferEnd_ == 0 && std::ferror(file_)) failed_ = true;
    return bufferEnd_ > 0;
}

int LineReader::peekByte() {
    if (bufferStart_ == bufferEnd_ && !fill()) return endOfFile;
    return static_cast<unsigned char>(buffer_[bufferStart_]);
}

namespace {

// Bytes a line read cannot hand out as they stand in the block: CR (of a CR
// LF pair), Ctrl-Z and NUL. Their next places in the block are remembered,
// so each is searched for once per block, not once per line.
constexpr char specialBytes[] = {'\r', ctrlZ, '\0'};
constexpr std::size_t carriageReturn = 0, substitute = 1;

}  // namespace

std::size_t LineReader::nextSpecial(std::size_t kind) {
    std::ptrdiff_t& next = nextSpecial_[kind];
    if (next < static_cast<std::ptrdiff_t>(bufferStart_)) {
        const char* from = buffer_.data() + bufferStart_;
        const void* found = std::memchr(from, specialBytes[kind], bufferEnd_ - bufferStart_);
        next = found == nullptr ? static_cast<std::ptrdiff_t>(bufferEnd_)
                                : static_cast<const char*>(found) - buffer_.data();
    }
    return static_cast<std::size_t>(next);
}

void LineReader::forgetSpecials() { nextSpecial_.fill(-1); }

// The bytes from the read position up to the first LF, CR or Ctrl-Z among
// the next `available`.
std::size_t LineReader::ordinaryRun(std::size_t available) {
    std::size_t end = bufferStart_ + available;
    const void* lineFeed = std::memchr(buffer_.data() + bufferStart_, '\n', available);
    if (lineFeed != nullptr) end = static_cast<const char*>(lineFeed) - buffer_.data();
    end = std::min({end, nextSpecial(carriageReturn), nextSpecial(substitute)});
    return end - bufferStart_;
}

// The usual line, handed out from the block as it stands: it ends at an LF
// or after 255 characters within the block, and holds no CR, Ctrl-Z or NUL.
std::optional<std::string_view> LineReader::plainLine() {
    if (ctrlZ_ || bufferStart_ == bufferEnd_) return std::nullopt;
    const char* bytes = buffer_.data() + bufferStart_;
    std::size_t available = std::min(bufferEnd_ - bufferStart_, maxLineLength);
    const void* lineFeed = std::memchr(bytes, '\n', available);
    if (lineFeed == nullptr && available < maxLineLength) return std::nullopt;  // goes on
    std::size_t length =
        lineFeed == nullptr ? available : static_cast<const char*>(lineFeed) - bytes + 1;
    std::size_t end = bufferStart_ + length;
    for (std::size_t kind = 0; kind < specialKinds; ++kind)
        if (nextSpecial(kind) < end) return std::nullopt;
    bufferStart_ = end;
    position_ += length;
    if (lineFeed != nullptr && linesEnded_ >= 0) ++linesEnded_;
    return std::string_view(bytes, length);
}

// A piece: the bytes up to a line feed (CR LF read as one), or 255 of them,
// or the end of the file, which Ctrl-Z marks too.
ReadStatus LineReader::read(std::string_view& text) {
    std::uint64_t start = position_;
    long number = linesEnded_ < 0 ? 0 : linesEnded_ + 1;
    if (std::optional<std::string_view> line = plainLine()) {
        lastStart_ = start;
        lineNumber_ = number;
        text = *line;
        return ReadStatus::line;
    }
    piece_.clear();
    bool lineEnded = false;
    while (piece_.size() < maxLineLength && !lineEnded) {
        if (ctrlZ_ || (bufferStart_ == bufferEnd_ && !fill())) {
            atEnd_ = true;
            break;
        }
        std::size_t available = std::min(bufferEnd_ - bufferStart_, maxLineLength - piece_.size());
        std::size_t run = ordinaryRun(available);
        piece_.append(buffer_.data() + bufferStart_, run);
        bufferStart_ += run;
        position_ += run;
        if (run == available) continue;
        char c = buffer_[bufferStart_];
        if (c == ctrlZ) {
            ctrlZ_ = true;
            continue;
        }
        ++bufferStart_;
        ++position_;
        if (c == '\r' && peekByte() == '\n') {
            ++bufferStart_;
            ++position_;
            c = '\n';
        }
        piece_.push_back(c);
        lineEnded = c == '\n';
    }
    if (piece_.empty() && atEnd_) return ReadStatus::nothing;
    if (lineEnded && linesEnded_ >= 0) ++linesEnded_;
    lastStart_ = start;
    lineNumber_ = number;
    text = std::string_view(piece_).substr(0, piece_.find('\0'));
    return atEnd_ ? ReadStatus::lastLine : ReadStatus::line;
}

ReadStatus LineReader::read(std::string& text) {
    std::string_view view;
    ReadStatus status = read(view);
    if (status != ReadStatus::nothing) text.assign(view);
    return status;
}

bool LineReader::seek(std::uint64_t offset) {
    if (file_ == nullptr) return false;
    if (offset >= bufferOffset_ && offset - bufferOffset_ < bufferEnd_) {
        bufferStart_ = static_cast<std::size_t>(offset - bufferOffset_);  // still in the block
        forgetSpecials();
    } else {
        if (!seekFile(file_, offset)) return false;
        bufferStart_ = bufferEnd_ = 0;
    }
    linesEnded_ = offset == lastStart_ && lineNumber_ > 0 ? lineNumber_ - 1 : -1;
    position_ = offset;
    atEnd_ = ctrlZ_ = false;
    return true;
}

bool readLineBeforeEnd(LineReader& reader, std::string& text) {
    return reader.read(text) == ReadStatus::line;
}

bool readLineBeforeEnd(LineReader& reader, std::string_view& text) {
    return reader.read(text) == ReadStatus::line;
}

bool readLineThroughEnd(LineReader& reader, std::string& text) {
    return reader.read(text) != ReadStatus::nothing;
}

bool readLineThroughEnd(LineReader& reader, std::string_view& text) {
    return reader.read(text) != ReadStatus::nothing;
}

int countLines(const std::string& path) {
    LineReader reader;
    if (!reader.open(path)) return 0;
    std::string_view text;
    int reads = 0;
    while (readLineBeforeEnd(reader, text) && reads < std::numeric_limits<int>::max() - 1) ++reads;
    return reads + 1;
}

std::size_t linesAhead(LineReader& reader) {
    std::uint64_t start = reader.position();
    std::string_view text;
    std::size_t reads = 0;
    while (readLineBeforeEnd(reader, text)) ++reads;
    reader.seek(start);
    return reads + 1;
}

std::string_view withoutLineBreak(std::string_view line) {
    if (!line.empty() && line.back() == '\n') line.remove_suffix(1);
    return line;
}

}  // namespace quelcnv
