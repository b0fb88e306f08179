#include "suite/payment_method_service.h"

namespace cuvexa::reference {

bool Payment_methods::ValidatePaymentLine(const std::string& payment_method, const std::string& reference_number,
                                          const std::string& bank, double, const std::string&, const std::string&,
                                          const std::string&, const std::string&) {
    return serve(last_error_, [&] {
        const Rows method = context_->query(
            "SELECT Fp_Descripcion, Fp_Requiere_Banco, Fp_Requiere_Referencia FROM Forma_Pago "
            "WHERE Fp_Cve_Forma_Pago = '{}' AND Es_Cve_Estado <> 'BA'",
            payment_method);
        refuse_if(method.eof(), "La forma de pago: {}, no existe o está dada de baja; elija otra", payment_method);
        const std::string name = method.text("Fp_Descripcion");
        refuse_if(method.text("Fp_Requiere_Banco") == "SI" && bank.empty(),
                  "La forma de pago: {} {}, requiere un banco; indique el banco emisor", payment_method, name);
        refuse_if(method.text("Fp_Requiere_Referencia") == "SI" && reference_number.empty(),
                  "La forma de pago: {} {}, requiere una referencia; indique el número de cheque o de operación",
                  payment_method, name);
    });
}

bool Payment_methods::ReleasePaymentLine(const std::string&, const std::string&, const std::string&) {
    last_error_.clear();
    return true;
}

}  // namespace cuvexa::reference
