// The form that asks for the bank, account and reference that a payment method requires.
#pragma once

#include <string>

#include "cuvexa/dialogs.h"

namespace cuvexa::dialogs {

class frmFormaPago : public Form {
public:
    explicit frmFormaPago(Module& module);

    // ---- What the caller sets before showing -----------------------------------------------------------------------

    std::string Dcb_Tabla;        ///< document-table code of the owner of the accounts; may be empty
    std::string Dcb_Documento;    ///< key of that owner; may be empty
    bool bSugerirCuenta = false;  ///< suggest the first account known for the chosen bank

    /// Reads the method and makes the form ask for what it requires. False when the form must not open; the reason has
    /// been shown.
    bool Mostrar(const std::string& FormaPago);

    /// Fills bank, reference, account and bank name with what the caller knows.
    void fill_in(const std::string& Banco, const std::string& Referencia, const std::string& Cuenta,
                 const std::string& nBanco);

    /// Bank name, reference, account and bank key, as the caller takes them apart.
    std::string answer() const;

    Frame Frame1;
    CaptionLabel Etiqueta1;
    LookupTextBox txtSucursal;
    CaptionLabel Label7;
    LookupTextBox txtCuenta;
    CaptionLabel Etiqueta2;
    LookupTextBox txtReferencia;
    CaptionLabel Etiqueta4;
    LookupTextBox txtBanco;
    LookupTextBox txtNBanco;
    CaptionLabel lbTabla;
    LookupTextBox txtDocumento;
    CaptionLabel Etiqueta3;
    LookupTextBox txtFormaPago;
    LookupTextBox txtnFormaPago;
    CaptionLabel Etiqueta5;
    CaptionLabel lbInfo;

private:
    struct Rule;

    void Form_Load();
    bool has_document() const { return !Dcb_Tabla.empty() && !Dcb_Documento.empty(); }
    void txtBanco_GotFocus();
    void txtBanco_Enter();
    void search_accounts_of_bank();
    void suggest_account();
    void Controles_B1Click();
    bool passes_rules();
    void remember_account();
    std::string next_account_id();

    bool requires_bank_ = false;
    bool requires_reference_ = false;
    bool requires_account_ = false;
};

}  // namespace cuvexa::dialogs
