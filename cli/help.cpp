#include "cli/help.h"

#include <algorithm>

namespace quelcnv::cli {

namespace {

constexpr Order orderTable[] = {
    {"lote", "lote OPERACIÓN --salida CARPETA [-j N] [--con NOMBRE=VALOR]... ENTRADA...",
     "convierte muchos ficheros con una operación",
     "Convierte cada ENTRADA con OPERACIÓN en CARPETA/NOMBRE.EXT, con el nombre de la\n"
     "entrada y la extensión de costumbre de la salida, y sigue tras un fallo.\n"
     "  --salida CARPETA     la carpeta de las salidas (se crea si no existe)\n"
     "  -j N                 convierte en N procesos (de 1 a 256), cada uno con su\n"
     "                       carpeta de ficheros temporales\n"
     "  --con NOMBRE=VALOR   los demás argumentos de la operación (pathAp=/opt/quelvar,\n"
     "                       selec=0, nombreRas=\"Eje 1: Rasante 1\"...)\n"
     "Sale con 0 si todos se han convertido y con 1 si alguno ha fallado.\n"},
    {"info", "info FICHERO [--json]", "dice qué formato tiene un fichero y qué contiene",
     "Reconoce el formato por el contenido y dice el tipo de datos, cuántos elementos,\n"
     "secciones o puntos tiene, el intervalo de PK, la unidad declarada y los problemas\n"
     "encontrados (XML mal formado con su línea, líneas que no se leen, todo a cero).\n"
     "De un LandXML da además sus ejes (con su índice), rasantes y superficies.\n"
     "  --json               lo mismo en JSON, para otros programas\n"
     "Sale con 0 si ha reconocido el formato y con 1 si no.\n"},
    {"contenido", "contenido FICHERO.xml",
     "los ejes, rasantes y superficies de un documento LandXML",
     "Muestra los ejes (con su índice), las rasantes y las superficies de transversales\n"
     "que ofrecerían las listas de selección, sin convertir nada; las superficies de\n"
     "diseño (DesignCrossSectSurf) se muestran aparte: las conversiones no las leen.\n"},
    {"dibujo",
     "dibujo ENTRADA SALIDA.svg [--tipo TIPO] [--eje NOMBRE|N | --rasante \"EJE: RASANTE\" | "
     "--transversales \"EJE: SUPERFICIE\"]",
     "dibuja un eje, una rasante, un peralte, transversales o puntos",
     "Dibuja en SVG lo que tiene ENTRADA, si reconoce su formato; la extensión de SALIDA\n"
     "decide el formato del dibujo (solo .svg en esta versión).\n"
     "  --tipo TIPO          dice lo que es ENTRADA: eje, rasante, peralte,\n"
     "                       transversales o puntos\n"
     "  --eje NOMBRE|N       de un LandXML, solo ese eje (por nombre o índice)\n"
     "  --rasante \"EJE: RASANTE\"          de un LandXML, esa rasante\n"
     "  --transversales \"EJE: SUPERFICIE\" de un LandXML, esas secciones\n"
     "Sale con 0 si ha dibujado, 1 si no hay nada que dibujar, 3 si no puede leer ENTRADA.\n"},
    {"lista", "lista", "lista todas las operaciones con sus argumentos", ""},
    {"ayuda", "ayuda [OPERACIÓN|ORDEN]", "muestra la ayuda de una operación o de una orden", ""},
};

constexpr std::string_view globalOptions =
    "Opciones (en cualquier lugar de la línea):\n"
    "  --crlf               escribe los finales de línea como CR LF\n"
    "  --silencio           no dice lo que ha escrito una conversión hecha\n"
    "  --scratch CARPETA    usa CARPETA para los ficheros temporales fijos\n"
    "  -h, --help           muestra la ayuda (también tras una operación u orden)\n"
    "  --version            muestra la versión del programa y de la biblioteca\n";

constexpr std::string_view exitStatuses =
    "Estado de salida: 0 hecho, 1 la conversión ha fallado, 2 uso incorrecto,\n"
    "3 no se puede abrir el fichero de entrada.\n";

}  // namespace

std::span<const Order> orders() { return orderTable; }

const Order* findOrder(std::string_view name) {
    auto found = std::ranges::find(orderTable, name, &Order::name);
    return found == std::end(orderTable) ? nullptr : &*found;
}

std::string usageText() {
    std::string text = "Uso: quelcnv [OPCIONES] OPERACIÓN ARGUMENTO...\n";
    for (const Order& order : orderTable) {
        text += "     quelcnv ";
        text += order.usage;
        text += '\n';
    }
    text += "     quelcnv --help | --version\n";
    return text;
}

std::string generalHelp() {
    std::string text = usageText();
    text +=
        "\n"
        "Convierte ficheros de datos de carreteras y de topografía con la biblioteca quelcnv.\n"
        "OPERACIÓN es el nombre de la función de la biblioteca sin \"MyDll_\", y los argumentos\n"
        "van en el orden de la función (selec es un número entero), por ejemplo:\n"
        "  quelcnv aistram2nevo eje.txt eje.nev /opt/quelvar\n"
        "\n"
        "Órdenes:\n";
    for (const Order& order : orderTable) {
        std::string name(order.name);
        name.resize(std::max<std::size_t>(name.size(), 11), ' ');
        text += "  " + name + std::string(order.summary) + "\n";
    }
    text += "\n";
    text += globalOptions;
    text += "\n";
    text += exitStatuses;
    return text;
}

std::string operationSignature(const Operation& op) {
    std::string line = "quelcnv " + std::string(op.name);
    if (!op.arguments.empty()) line += " " + std::string(op.arguments);
    return line;
}

std::string_view availabilityNote(const Operation& op) {
    switch (op.availability) {
        case Availability::built: return "";
        case Availability::readsOnly: return "lee la entrada pero no convierte en esta versión";
        case Availability::unavailable: return "no disponible en esta versión";
    }
    return "";
}

std::string operationHelp(const Operation& op) {
    std::string text = operationSignature(op) + "\n" + std::string(op.help) + "\n";
    if (!availabilityNote(op).empty())
        text += "Esta operación " + std::string(availabilityNote(op)) + ".\n";
    return text;
}

std::string orderHelp(const Order& order) {
    return "Uso: quelcnv " + std::string(order.usage) + "\n" + std::string(order.summary) + "\n" +
           std::string(order.details);
}

std::string operationList() {
    std::string text;
    for (const Operation& op : operations()) {
        std::string line = operationSignature(op).substr(8);
        line.resize(std::max<std::size_t>(line.size(), 48), ' ');
        text += line + "  " + std::string(op.help);
        if (!availabilityNote(op).empty()) text += " (" + std::string(availabilityNote(op)) + ")";
        text += "\n";
    }
    return text;
}

}  // namespace quelcnv::cli
