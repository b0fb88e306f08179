// Documents of as many lines as wanted, and every operation on them: what the time per line, and the work per line, must not
// grow with.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cuvexa/tesoreria.h"

namespace cuvexa::bench {

struct Long_document {
    std::string name;  ///< of the operation and of what there are many

    /// Makes what the operation needs, so long, and gives its folio or its folios.
    std::function<std::string(Tesoreria& treasury, int lines)> given;

    std::function<bool(Tesoreria& treasury, const std::string& document, int lines)> call;

    /// Each group of lines asks for its own among all of them: with as many groups as lines the work grows with the square.
    bool groups = false;
};

/// They work on the sample company, on 15 March 2024, and each on a database of its own.
const std::vector<Long_document>& long_documents();

/// The statements after which the sample company writes vouchers by itself and takes documents of any length.
const std::vector<std::string>& preparations();

}  // namespace cuvexa::bench
