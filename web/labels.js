// What things are called.
import { amount, date, number, rate } from "./format.js";
import { data, h } from "./dom.js";

/** The kinds of documents, in the order of their menu. */
export const kinds = {
    receipts: { title: "Recibos de caja", one: "Recibo de caja" },
    deposits: { title: "Depósitos", one: "Depósito" },
    checks: { title: "Cheques y transferencias", one: "Cheque o transferencia" },
    requests: { title: "Solicitudes de cheque", one: "Solicitud de cheque" },
    movements: { title: "Movimientos de bancos", one: "Movimiento de banco" },
    receivables: { title: "Cuentas por cobrar", one: "Cuenta por cobrar" },
    payables: { title: "Cuentas por pagar", one: "Cuenta por pagar" },
    advances: { title: "Anticipos de clientes", one: "Anticipo de cliente" },
    vouchers: { title: "Pólizas", one: "Póliza" },
    accounts: { title: "Cuentas bancarias", one: "Cuenta bancaria" },
};

const stateNames = {
    AC: "Activo",
    PXA: "Por autorizar",
    AP: "Aplicado",
    DP: "Depositado",
    AD: "Aplicado y depositado",
    TR: "En tránsito",
    FI: "En firme",
    PA: "Pagado",
    CE: "Cerrado",
    CA: "Cancelado",
    BA: "De baja",
};

/** The states that documents of a kind can be in. */
export const statesOf = {
    receipts: ["AC", "AP", "DP", "AD", "CA"],
    deposits: ["AC", "CA"],
    checks: ["AC", "PXA", "AP", "CA"],
    requests: ["AC", "PXA", "CA"],
    movements: ["TR", "FI", "CA"],
    receivables: ["AC", "CA"],
    payables: ["AC", "CA"],
    advances: ["AC", "AP", "CA"],
    vouchers: ["AC", "CE", "CA"],
};

export const stateName = (code) => stateNames[code] ?? code;

/** A state as it is shown; what nobody knows, as it is. */
export function state(code) {
    if (code === null || code === undefined || code === "") return "";
    const known = Object.hasOwn(stateNames, code);
    return h("span", { class: "state", "data-state": known ? code : "?" }, known ? stateNames[code] : data(code));
}

/** Columns that hold other things than text; their names end alike in every table. */
const forms = [
    [/_Fecha(_|$)/, "date"],
    [/(Tipo_Cambio)$/, "rate"],
    [/(^|_)(Importe|Saldo|Pago|Cargo|Abono)$|^Saldo/, "amount"],
    [/^Renglones$/, "number"],
    [/^Es_Cve_Estado$/, "state"],
];

export const formOf = (column) => forms.find(([pattern]) => pattern.test(column))?.[1] ?? "text";

export const isFigure = (column) => ["amount", "rate", "number"].includes(formOf(column));

/** What stands in a cell. */
export function shown(column, value) {
    switch (formOf(column)) {
        case "date":
            return data(date(value));
        case "amount":
            return typeof value === "string" ? data(value) : amount(value);
        case "rate":
            return typeof value === "string" ? data(value) : rate(value);
        case "number":
            return typeof value === "string" ? data(value) : number(value);
        case "state":
            return state(value);
        default:
            return data(value);
    }
}

const headings = {
    Rp_Folio: "Recibo",
    Dp_Folio: "Depósito",
    Ch_Folio: "Cheque",
    Sch_Folio: "Solicitud",
    Bm_Folio: "Movimiento",
    Cxc_Folio: "Cuenta por cobrar",
    Cxp_Folio: "Cuenta por pagar",
    An_Folio: "Anticipo",
    Pz_Folio: "Póliza",
    Cxc_Fecha_Vencimiento: "Vence",
    Cxp_Fecha_Vencimiento: "Vence",
    Cxa_Fecha_Aplicacion: "Aplicado",
    Rp_Solicitar_Valor: "Clave",
    Ch_Solicitar_Valor: "Clave",
    Sch_Solicitar_Valor: "Clave",
    Parte: "Nombre",
    Rp_Folio_Deposito: "Depósito",
    Rp_Deposito_ID: "Línea del depósito",
    Rp_Banco: "Banco",
    Rp_Cheque: "Referencia",
    Rp_Id: "Línea",
    Dp_Id: "Línea",
    Cxa_ID: "Línea",
    Scd_Id: "Línea",
    Pzd_ID: "Línea",
    Pc_ID: "Pago",
    Pc_Fecha: "Fecha",
    Pc_Importe: "Importe",
    Bm_Documento_ID: "Línea",
    Fp_Cve_Forma_Pago: "Forma de pago",
    Trp_Cve_Tipo_Recibo_Pago: "Tipo",
    Tc_Cve_Tipo_Cheque: "Tipo",
    Bt_Cve_Banco_Tipo_Movimiento: "Tipo",
    Bt_Descripcion: "Concepto",
    Ch_Transferencia: "Transferencia",
    Sch_Transferencia: "Transferencia",
    Ch_Beneficiario: "Beneficiario",
    Sch_Beneficiario: "Beneficiario",
    Ch_Aplicar: "Aplicado",
    Ch_Firme: "Firme",
    Ch_Cheque: "Número",
    Ch_Banco_Destino: "Banco destino",
    Ch_Cuenta_Destino: "Cuenta destino",
    Pzd_Cuenta_Contable: "Cuenta contable",
    Bc_Cve_Banco_Cuenta: "Cuenta",
    Bc_Descripcion: "Descripción",
    Bc_Cuenta: "Número",
    Bc_Saldo: "Saldo",
    Bn_Cve_Banco: "Banco",
    Bn_Descripcion: "Nombre del banco",
    Bn_Saldo: "Saldo del banco",
    Saldo_Transito: "En tránsito",
    Saldo_Firme: "En firme",
    Mn_Cve_Moneda: "Moneda",
    Sc_Cve_Sucursal: "Sucursal",
    Em_Cve_Empresa: "Empresa",
    Es_Cve_Estado: "Estado",
    Cl_Cve_Cliente: "Cliente",
    Pv_Cve_Proveedor: "Proveedor",
};

const endings = [
    [/_Precio_Neto_Importe$/, "Importe"],
    [/_Precio_Neto_Pago$/, "Pagos"],
    [/_Precio_Neto_Saldo$/, "Saldo"],
    [/_Fecha_Firme$/, "En firme"],
    [/_Fecha$/, "Fecha"],
    [/_Tipo_Cambio$/, "Tipo de cambio"],
    [/_Tabla$/, "Documento"],
    [/_Documento$/, "Folio del documento"],
    [/_Referencia$/, "Referencia"],
    [/_Comentario$/, "Comentario"],
    [/_Concepto$/, "Concepto"],
    [/_Importe$/, "Importe"],
    [/_Cargo$/, "Cargo"],
    [/_Abono$/, "Abono"],
];

/** The heading of a column; its name where it has none. */
export const heading = (column) => headings[column] ?? endings.find(([pattern]) => pattern.test(column))?.[1] ?? column;

/**
 * What the list of a kind shows, the folio first. A plus: where there is room for it, 600 pixels at least; two: 1,000.
 */
const lists = {
    receipts: "Rp_Folio Rp_Fecha ++Sc_Cve_Sucursal +Parte ++Rp_Comentario Importe ++Mn_Cve_Moneda +Es_Cve_Estado",
    deposits:
        "Dp_Folio Dp_Fecha ++Sc_Cve_Sucursal +Bc_Cve_Banco_Cuenta ++Dp_Comentario Importe ++Mn_Cve_Moneda " +
        "+Es_Cve_Estado",
    checks:
        "Ch_Folio Ch_Fecha +Ch_Beneficiario ++Ch_Concepto ++Bc_Cve_Banco_Cuenta Ch_Importe ++Mn_Cve_Moneda " +
        "+Es_Cve_Estado",
    requests: "Sch_Folio Sch_Fecha +Sch_Beneficiario ++Sch_Concepto ++Bc_Cve_Banco_Cuenta Sch_Importe +Es_Cve_Estado",
    movements:
        "Bm_Folio Bm_Fecha +Bc_Cve_Banco_Cuenta ++Bm_Comentario ++Bm_Documento Bm_Importe ++Mn_Cve_Moneda " +
        "+Es_Cve_Estado",
    receivables:
        "Cxc_Folio Cxc_Fecha +Parte ++Cxc_Documento Cxc_Precio_Neto_Importe +Cxc_Precio_Neto_Saldo " +
        "++Mn_Cve_Moneda ++Es_Cve_Estado",
    payables:
        "Cxp_Folio Cxp_Fecha +Parte ++Cxp_Documento Cxp_Precio_Neto_Importe +Cxp_Precio_Neto_Saldo " +
        "++Mn_Cve_Moneda ++Es_Cve_Estado",
    advances: "An_Folio An_Fecha +Parte ++An_Documento An_Importe ++Mn_Cve_Moneda +Es_Cve_Estado",
    vouchers: "Pz_Folio Pz_Fecha +Pz_Concepto ++Pz_Documento Importe ++Renglones +Es_Cve_Estado",
};

/** Its columns: name, and how much room it wants (1: any, 2, 3). */
export function listColumns(kind) {
    return lists[kind].split(" ").map((word) => {
        const name = word.replaceAll("+", "");
        return { name, room: 1 + word.length - name.length };
    });
}

/** Whether documents of a kind are found by branch, and by account. */
export const hasBranch = (kind) => !["movements", "vouchers"].includes(kind);
export const hasAccount = (kind) => ["deposits", "checks", "requests", "movements"].includes(kind);

const codes = {
    RECIBO_PAGO: "receipts",
    DEPOSITO_PAGO: "deposits",
    BANCO_MOVIMIENTO: "movements",
    CHEQUE: "checks",
    SOLICITUD_CHEQUE: "requests",
    ANTICIPO_CXC: "advances",
    CUENTA_X_COBRAR: "receivables",
    CUENTA_X_PAGAR: "payables",
    POLIZA: "vouchers",
};

/** The kind of document that a code names; nothing when it is not shown here. */
export const kindOfCode = (code) => codes[String(code ?? "").toUpperCase()];

/** Whose budget it is. */
export const budgetLevels = {
    EM: "Empresa",
    SC: "Sucursal",
    GP: "Grupo",
    PV: "Proveedor",
    CL: "Cliente",
    DE: "Deudor",
};

const accents = {
    deposito: "depósito",
    poliza: "póliza",
    numero: "número",
    aplicacion: "aplicación",
    cancelacion: "cancelación",
};

/** A rule of the audit: its name in words. */
export function checkName(rule) {
    const text = rule
        .split("-")
        .map((word) => accents[word] ?? word)
        .join(" ");
    return text.charAt(0).toUpperCase() + text.slice(1);
}
