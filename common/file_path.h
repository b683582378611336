// Taking a path apart into drive, folder, base name and extension, by the
// rules of the platform the library runs on.
#pragma once

#include <string>
#include <string_view>

namespace quelcnv {

// The path with its extension replaced, drive, folder and base name kept; a
// path without extension gets one. The extension is the text from the last
// "." of the file name (after the last folder separator) on, so a dot in a
// folder name is no extension. Windows splits at "\" and "/" and knows a
// drive ("C:"); elsewhere the separator is "/" and there is no drive.
// "C:\obs\job.txt" with "cod" gives "C:\obs\job.cod"; "/obs/job" gives "/obs/job.cod".
std::string replaceExtension(std::string_view path, std::string_view extension);

// The file name without drive, folder and extension, by the same rules:
// "D:\obras\eje1.xml" gives "eje1" on Windows, "/obras/eje1.xml" everywhere.
std::string baseName(std::string_view path);

}  // namespace quelcnv
