#include "common/conversion_files.h"

namespace quelcnv {

Outcome ConversionFiles::open(const std::string& entrada, const std::string& salida) {
    if (!in.open(entrada)) return Outcome::failed(Failure::inputUnreadable);
    if (!out.open(salida)) return Outcome::failed(Failure::outputUnwritable);
    return Outcome::done();
}

Outcome ConversionFiles::finish() {
    if (in.readFailed()) {
        out.discard();
        return Outcome::failed(Failure::inputUnreadable);
    }
    return out.complete();
}

}  // namespace quelcnv
