// The point files: the plain list a surveyor keeps (name, X, Y, Z and an
// optional code, separated by blanks or tabs) and the NEVO points file made
// from it ("number,X,Y,Z[,code]"), read into points.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quelcnv {

struct NamedPoint {
    std::string name;  // as the file gives it, in the code page
    double x = 0.0, y = 0.0, z = 0.0;
    std::string code;  // empty when the line has none
};

// One line of the plain list: name, X and Y end at a blank or tab, Z and the
// code also at the line break; a line with fewer than four fields is no
// point.
std::optional<NamedPoint> pointListLine(std::string_view line);

// Every point of the plain list, by the rules puntos2nevo reads it with: a
// last line without a line break is not read. Nothing when the file cannot
// be read.
std::optional<std::vector<NamedPoint>> readPointList(const std::string& path);

// Every "number,X,Y,Z[,code]" line of a NEVO points file, the last one too.
std::optional<std::vector<NamedPoint>> readNevoPoints(const std::string& path);

}  // namespace quelcnv
