#include "landxml/selection_list.h"

#include "common/output_file.h"

namespace quelcnv {

Outcome writeSelectionList(const std::vector<std::string>& names, const std::string& path) {
    return writeWholeFile(path, [&](OutputFile& out) {
        for (const std::string& name : names) out.print("%s\n", name);
    });
}

}  // namespace quelcnv
