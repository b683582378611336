// What the command says of itself: its usage, the help of every operation
// and of every order of its own, and the list of operations. The operations'
// names, arguments and help texts come from the table of entry points; the
// orders' from the table here. Texts are UTF-8.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/operations.h"

namespace quelcnv::cli {

// An order of the command beside the operations (lote, info, dibujo...).
struct Order {
    std::string_view name;
    std::string_view usage;    // after "quelcnv "
    std::string_view summary;  // one line
    std::string_view details;  // the options and what it does, lines of text
};

std::span<const Order> orders();
const Order* findOrder(std::string_view name);

// "Uso: ..." with a line for every way of calling the command.
std::string usageText();

// quelcnv --help: the usage, what the command does, its options and exit
// statuses.
std::string generalHelp();

// "quelcnv aistram2nevo entrada salida pathAp": the operation's signature.
std::string operationSignature(const Operation& op);

// quelcnv ayuda OPERACION (and OPERACION --help).
std::string operationHelp(const Operation& op);

// quelcnv ayuda ORDEN (and ORDEN --help).
std::string orderHelp(const Order& order);

// quelcnv lista: a line for every operation, its arguments and its help
// text, marked when it is not provided or reads without converting.
std::string operationList();

// What the list and the help add to an operation that does not convert:
// empty for one that does.
std::string_view availabilityNote(const Operation& op);

}  // namespace quelcnv::cli
