// The form that asks where receipts are deposited and whether the money is firm.
#pragma once

#include <string>

#include "cuvexa/dialogs.h"

namespace cuvexa::dialogs {

class frmDeposito : public Form {
public:
    explicit frmDeposito(Module& module);

    // ---- What the caller sets before showing -----------------------------------------------------------------------

    Date FechaDeposito;          ///< the earliest firm date
    std::string Mn_Cve_Moneda;   ///< only accounts of this currency
    std::string Em_Cve_Empresa;  ///< and of this company or of all; empty: of any

    /// Proposes the deposit date as firm date, and the state of the box.
    void prepare(int firm);

    /// The account, the firm date and the box, as the caller takes them apart.
    std::string answer();

    CaptionLabel Label1;
    LookupTextBox txt_Bc_Cve_Banco_Cuenta;
    LookupTextBox txt_Bc_Descripcion;
    Check_box chkFirme;
    CaptionLabel Etiqueta1;
    DatePicker dpFecha;

private:
    void Form_Load();
    void chkFirme_Click();
    void txt_Bc_Cve_Banco_Cuenta_GotFocus();
    void Controles_B1Click();
};

}  // namespace cuvexa::dialogs
