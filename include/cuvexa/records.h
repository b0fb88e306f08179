// The records exchanged with callers, members in the published order. All are values: a let copies in, a get copies out.
// Strings are UTF-8; a string that was never set is empty.
#pragma once

#include <string>

#include "cuvexa/date.h"

namespace cuvexa {

/// Branch, as the suite publishes it: thirteen members, of which this component reads and writes only the key.
struct tSucursalGeneral {
    std::string Sc_Cve_Sucursal;     ///< branch key
    std::string Sc_Descripcion;      ///< name
    std::string Em_Cve_Empresa;      ///< company
    std::string Sc_Centro_Costo;     ///< cost centre
    std::string Sc_Cuenta_Contable;  ///< ledger account
    std::string Sc_Servidor_Id;      ///< server that owns the branch
    std::string Sc_Calle;            ///< street
    std::string Sc_Colonia;          ///< quarter
    std::string Sc_Ciudad;           ///< town
    std::string Sc_Entidad;          ///< state of the republic
    std::string Sc_Codigo_Postal;    ///< postal code
    std::string Sc_Telefono;         ///< telephone
    std::string Es_Cve_Estado;       ///< state code
    bool operator==(const tSucursalGeneral&) const = default;
};

/// User-defined fields, as the suite publishes them; never read here.
struct tUserDef {
    std::string Ud_Valor_1;
    std::string Ud_Valor_2;
    std::string Ud_Valor_3;
    bool operator==(const tUserDef&) const = default;
};

/// Check header (`Encabezado`).
struct tTsEncabezado {
    std::string Ch_Folio;              ///< check folio; given by the component, never taken from the caller
    Date Ch_Fecha;                     ///< check date
    std::string Tc_Cve_Tipo_Cheque;    ///< check type key; "0000" is no type
    std::string Ch_Transferencia;      ///< "SI" an electronic transfer, anything else a paper check
    std::string Ch_Tabla;              ///< document-table code of the document that the check pays
    std::string Ch_Documento;          ///< folio of that document
    std::string Ch_Referencia;         ///< check number or transfer reference
    std::string Ch_Concepto;           ///< what is paid
    std::string Ch_Beneficiario;       ///< payee
    std::string Bc_Cve_Banco_Cuenta;   ///< bank account the check is drawn on
    std::string Bc_Cve_Banco_Cuenta2;  ///< destination account of a transfer
    std::string Mn_Cve_Moneda;         ///< currency
    double Ch_Tipo_Cambio = 0;         ///< exchange rate, local currency per unit
    std::string Mn_Cve_Moneda_2;       ///< second currency
    double Ch_Tipo_Cambio_2 = 0;       ///< exchange rate of the second currency
    std::string Ch_Solicitar_Valor;    ///< supplier, debtor or customer that the check type asks for
    tSucursalGeneral Sucursal;         ///< branch
    bool operator==(const tTsEncabezado&) const = default;
};

/// Check line (`Detalle`).
struct tTsDetalle {
    std::string Ch_ID;          ///< line number, set by the component
    std::string Ch_Concepto;    ///< concept
    std::string Cxp_Folio;      ///< document that the line pays or creates
    std::string Mn_Cve_Moneda;  ///< currency of the line
    double Ch_Tipo_Cambio = 0;  ///< exchange rate of the line
    double Ch_Importe = 0;      ///< amount, in the line's currency; must not be 0
    bool operator==(const tTsDetalle&) const = default;
};

/// Cash-receipt type.
struct tTrpTipoReciboPago {
    std::string Trp_Cve_Tipo_Recibo_Pago;  ///< key; the component fills the rest from the catalog
    std::string Trp_Descripcion;           ///< description
    bool Trp_Solicitar_Fecha = false;      ///< the type asks for a date
    bool Trp_Solicitar_Vendedor = false;   ///< the type asks for a seller on every line
    bool operator==(const tTrpTipoReciboPago&) const = default;
};

/// Cash-receipt header (`RpEncabezado`).
struct tRpEncabezado {
    std::string Rp_Folio;               ///< receipt folio; empty until the first line is accepted
    Date Rp_Fecha;                      ///< receipt date
    tTrpTipoReciboPago TipoReciboPago;  ///< receipt type
    tSucursalGeneral Sucursal;          ///< branch that issues the receipt
    std::string Rp_Solicitar_Valor;     ///< supplier or customer that the receipt type asks for
    std::string Rp_Tabla;               ///< document-table code of the document that the receipt collects
    std::string Rp_Documento;           ///< folio of that document
    std::string Rp_Referencia;          ///< reference
    std::string Rp_Comentario;          ///< comment
    std::string Mn_Cve_Moneda;          ///< currency
    double Rp_Tipo_Cambio = 0;          ///< exchange rate, local currency per unit; must be greater than 0
    Date Rp_Fecha_Deposito;             ///< date of the deposit that takes the receipt to the bank
    std::string Rp_Folio_Deposito;      ///< folio of that deposit
    std::string Rp_Deposito_ID;         ///< line of that deposit
    bool operator==(const tRpEncabezado&) const = default;
};

/// Payment method; only the key is read.
struct tFormaPago {
    std::string Fp_Cve_Forma_Pago;   ///< key
    std::string Fp_Descripcion;      ///< description
    std::string Fp_Cuenta_Contable;  ///< ledger account
    bool operator==(const tFormaPago&) const = default;
};

/// Cash-receipt line (`RpDetalle`).
struct tRpDetalle {
    std::string Rp_ID;               ///< line number, set by the component
    tFormaPago Fp_Cve_Forma_Pago;    ///< payment method
    std::string Rp_Banco;            ///< issuing bank of the paying check or card, as text
    std::string Rp_Cheque;           ///< check number or payment reference
    std::string Rp_Cuenta_Bancaria;  ///< payer's bank account
    double Rp_Importe = 0;           ///< amount; must not be 0
    bool operator==(const tRpDetalle&) const = default;
};

/// Check-request header (`SchEncabezado`).
struct tSchEncabezado {
    std::string Sch_Folio;            ///< request folio; given by the component
    Date Sch_Fecha;                   ///< request date
    std::string Tc_Cve_Tipo_Cheque;   ///< check type key
    std::string Bc_Cve_Banco_Cuenta;  ///< bank account
    tSucursalGeneral Sucursal;        ///< branch
    std::string Sch_Concepto;         ///< concept
    std::string Sch_Beneficiario;     ///< payee
    std::string Sch_Tabla;            ///< document-table code of the calling module's document
    std::string Sch_Documento;        ///< folio of that document
    std::string Sch_Referencia;       ///< reference
    double Sch_Importe = 0;           ///< amount; must not be 0
    std::string Mn_Cve_Moneda;        ///< currency; validated, not stored
    double Sch_Tipo_Cambio = 0;       ///< exchange rate; must be greater than 0
    std::string Sch_Transferencia;    ///< transfer marker
    std::string Sch_Aplicar;          ///< apply marker
    std::string Sch_Firme;            ///< cleared ("en firme") marker
    std::string Sch_Solicitar_Valor;  ///< beneficiary that the check type asks for
    bool operator==(const tSchEncabezado&) const = default;
};

/// Check-request line (`SchDetalle`).
struct tSchDetalle {
    std::string Sch_Folio;       ///< request folio
    std::string Scd_Id;          ///< line number, set by the component
    std::string Scd_Tabla;       ///< document-table code of the paid document
    std::string Scd_Documento;   ///< its folio
    double Scd_Importe = 0;      ///< amount; must be greater than 0
    std::string Mn_Cve_Moneda;   ///< currency
    double Scd_Tipo_Cambio = 0;  ///< exchange rate; must be greater than 0
    bool operator==(const tSchDetalle&) const = default;
};

/// Bank account, as a movement carries it; only the key is input.
struct tCuenta {
    std::string Bc_Cve_Banco_Cuenta;  ///< key
    std::string Bc_Cuenta_Contable;   ///< ledger account
    std::string Bn_Cve_Banco;         ///< bank
    std::string Mn_Cve_Moneda;        ///< currency
    bool operator==(const tCuenta&) const = default;
};

/// Bank movement (argument of `Registra_Movimiento_Banco`).
struct tBnMovimiento {
    std::string Bm_Folio;                      ///< not read: the folio is always generated
    std::string Bt_Cve_Banco_Tipo_Movimiento;  ///< movement type; its `Bt_Tipo` "2" marks an outflow
    Date Bm_Fecha;                             ///< movement date
    Date Bm_Fecha_Firme;                       ///< date on which the money is firm
    std::string Bm_Tabla;                      ///< document-table code of the source; empty becomes "Cheque"
    std::string Bm_Documento;                  ///< folio of the source document
    std::string Bm_Referencia;                 ///< bank reference
    std::string Bm_Comentario;                 ///< comment
    tCuenta Cuenta;                            ///< account; all but the key is written back
    double Bm_Importe = 0;        ///< amount in the account's currency, positive; outflows come back negated
    double Bm_Tipo_Cambio = 0;    ///< exchange rate stored with the movement
    bool EnFirme = false;         ///< True: firm ('FI'); False: in transit ('TR')
    std::string Bm_Documento_ID;  ///< line of the source document
    bool operator==(const tBnMovimiento&) const = default;
};

/// Branch with its ledger data; published, taken by no member.
struct tTsSucursal {
    std::string Sc_Cve_Sucursal;
    std::string Sc_Centro_Costo;
    std::string Sc_Cuenta_Contable;
    tUserDef UserDef;
    bool operator==(const tTsSucursal&) const = default;
};

/// Supplier with its ledger account; published, taken by no member.
struct tTsProveedor {
    std::string Pv_Cve_Proveedor;
    std::string Pv_Cuenta_Contable;
    tUserDef UserDef;
    bool operator==(const tTsProveedor&) const = default;
};

/// Seller with its ledger data; published, taken by no member.
struct tVnVendedor {
    std::string Vn_Cve_Vendedor;
    std::string Vn_Centro_Costo;
    std::string Vn_Cuenta_Contable;
    bool operator==(const tVnVendedor&) const = default;
};

}  // namespace cuvexa
