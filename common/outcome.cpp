#include "common/outcome.h"

namespace quelcnv {

std::string_view describe(Failure failure) {
    switch (failure) {
        case Failure::none: return "conversion realizada";
        case Failure::inputUnreadable: return "no se puede leer el fichero de entrada";
        case Failure::outputUnwritable: return "no se puede escribir el fichero de salida";
        case Failure::noData: return "el fichero de entrada no contiene datos que convertir";
        case Failure::rejected: return "el fichero de entrada no tiene el formato esperado";
        case Failure::malformed: return "el documento XML no esta bien formado";
        case Failure::tooLarge: return "el fichero de entrada pide un tamano imposible";
        case Failure::scratchUnavailable:
            return "no se puede usar la carpeta de ficheros temporales";
        case Failure::readerUnavailable: return "no se puede crear el lector XML";
        case Failure::invalidArgument: return "un argumento esta fuera de su rango";
        case Failure::notProvided: return "la conversion no esta disponible en esta version";
        case Failure::sameFile: return "la salida es el mismo fichero que una entrada";
    }
    return "error desconocido";
}

}  // namespace quelcnv
