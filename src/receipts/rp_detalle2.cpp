// The extras of a receipt line: held by reference, never handed back.
#include "core/operation.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {

void Tesoreria::RpDetalle2(std::shared_ptr<clsRpDetalle> value) {
    receipt_line_extras_ = std::move(value);
}

void Tesoreria::RpDetalle2_mismatch() {
    // No line break behind the tag: callers know the text so.
    error_ = "Cuvexa.dll - Property Let RpDetalle2()No coinciden los tipos";
}

std::shared_ptr<clsRpDetalle> Tesoreria::RpDetalle2() const {
    // Callers rely on this failure: the property never gave the object back.
    throw Automation_error(error_object_not_set, "Variable de objeto o bloque With no establecido");
}

}  // namespace cuvexa
