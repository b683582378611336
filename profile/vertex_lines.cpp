#include "profile/vertex_lines.h"

#include "common/line_reader.h"
#include "common/tokenizer.h"

namespace quelcnv {

Outcome readVertexLines(const std::string& path, std::size_t fieldCount, VertexOfFields vertexOf,
                        Profile& vertices) {
    const std::size_t lineCount = static_cast<std::size_t>(countLines(path));
    LineReader reader;
    if (!reader.open(path)) return Outcome::failed(Failure::inputUnreadable);
    std::string line;
    long lineNumber = 0;
    while (readLineBeforeEnd(reader, line)) {
        ++lineNumber;
        if (isCommentLine(line)) continue;
        std::vector<std::string_view> fields =
            leadingFields(line, blanksTabsAndNewlines, fieldCount);
        if (fields.size() < fieldCount) continue;  // an empty line has none
        if (vertices.size() == lineCount) return Outcome::failed(Failure::rejected, lineNumber);
        vertices.push_back(vertexOf(fields));
    }
    if (reader.readFailed()) return Outcome::failed(Failure::inputUnreadable);
    return Outcome::done();
}

}  // namespace quelcnv
