// What the company is like, and how it changes: parameters, catalogs, periods, folio series, budgets, posted documents.
#include "simulator/generator.h"

namespace cuvexa::simulator {

std::string Generator::alteration(const Scene& stage) {
    switch (chance_.below(10)) {
        case 0:
        case 1:
        case 2:
            return parameter_alteration();
        case 3:
        case 4:
            return catalog_alteration();
        case 5:
            return budget_alteration(stage);
        default:
            return document_alteration(stage);
    }
}

std::string Generator::parameter_alteration() {
    const auto set = [](const std::string& name, const std::string& value) {
        return "UPDATE Parametro_Sistema SET Ps_Valor = '" + value + "' WHERE Ps_Nombre = '" + name + "'";
    };
    const auto mode = [&] { return chance_.of({"0", "1", "1", "2", "2", "3", "-1"}); };
    switch (chance_.below(16)) {
        case 0:
            return set("GEN_FORZAR_TIEMPO_REAL", chance_.of({"0", "1", "SI", "verdadero", "x"}));
        case 1:
            return set("GEN_VALIDAR_PERIODO_OPERATIVO", chance_.of({"0", "1", "NO", "-1"}));
        case 2:
            return set("TES_AUTORIZAR_SOLICITUD_CHEQUE", chance_.of({"0", "1"}));
        case 3:
            return set("TES_FORMA_PAGO_CHEQUE", chance_.of({"", "02", "99"}));
        case 4:
            return set("TES_FORMA_PAGO_TRANSFERENCIA", chance_.of({"", "03", "03"}));
        case 5:
            return set("TES_MOVIMIENTO_DEPOSITO", chance_.of({"DEP", "DEP", "INT", "ANT", "", "CHQ"}));
        case 6:
            return set("TES_MOVIMIENTO_CHEQUE", chance_.of({"CHQ", "CHQ", "COM", "ANT", ""}));
        case 7:
            return set("TES_MOVIMIENTO_TRANSFERENCIA", chance_.of({"TRF", "TRF", "INT", "NADA"}));
        case 8:
            return set("TES_MODO_AUTORIZAR_ANTICIPO_PROVEEDOR", mode());
        case 9:
            return set("TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR", mode());
        case 10:
            return set("TES_MODO_AUTORIZAR_PRESTAMO_DEUDOR", mode());
        case 11:
            return set("TES_MODO_AUTORIZAR_DEVOLUCION_CLIENTE", mode());
        case 12:
            return set("CXC_FORMA_PAGO_ANTICIPO_CLIENTE", chance_.of({"07", "DA", ""}));
        case 13:
            return set("FIN_MONEDA_LOCAL", chance_.of({"MXN", "USD", "mxn"}));
        case 14:
            // As if it had never been set.
            return "UPDATE Parametro_Sistema SET Ps_Nombre = 'X-' || Ps_Nombre WHERE Ps_Nombre = '" +
                   chance_.of({"GEN_FORZAR_TIEMPO_REAL", "GEN_VALIDAR_PERIODO_OPERATIVO", "TES_MOVIMIENTO_CHEQUE",
                               "TES_MODO_AUTORIZAR_ANTICIPO_PROVEEDOR", "TES_FORMA_PAGO_CHEQUE"}) +
                   "'";
        default:
            return "UPDATE Servidor_Suite SET Sv_Servidor_Id = '" + chance_.of({"CENTRAL", "NORTE", ""}) +
                   "', Sv_Replica = '" + chance_.of({"NO", "NO", "SI"}) + "'";
    }
}

std::string Generator::catalog_alteration() {
    const std::string state = chance_.of({"BA", "AC", "AC"});
    const auto retire = [&](const std::string& table, const std::string& key, const std::string& value) {
        return "UPDATE " + table + " SET Es_Cve_Estado = '" + state + "' WHERE " + key + " = '" + value + "'";
    };
    switch (chance_.below(16)) {
        case 0:
            return retire("Moneda", "Mn_Cve_Moneda", chance_.of({"USD", "EUR"}));
        case 1:
            return retire("Forma_Pago", "Fp_Cve_Forma_Pago", chance_.of({"02", "04", "99"}));
        case 2:
            return retire("Banco_Cuenta", "Bc_Cve_Banco_Cuenta", chance_.of({"PTO-MXN", "SRR-USD", "SRR-OLD"}));
        case 3:
            return retire("Tipo_Cheque", "Tc_Cve_Tipo_Cheque", chance_.of({"0000", "0003", "0099"}));
        case 4:
            return retire("Proveedor", "Pv_Cve_Proveedor", chance_.of({"PV01", "PV02", "PV99"}));
        case 5:
            return retire("Cliente", "Cl_Cve_Cliente", chance_.of({"CL01", "CL02", "DE01", "TARJ"}));
        case 6:
            return retire("Empresa", "Em_Cve_Empresa", chance_.of({"EM01", "EM99"}));
        case 7:
            return retire("Sucursal", "Sc_Cve_Sucursal", chance_.of({"GDL", "LEN"}));
        case 8:
            return retire("Banco_Tipo_Movimiento", "Bt_Cve_Banco_Tipo_Movimiento", chance_.of({"COM", "INT", "ANT"}));
        case 9:
            // Another company with a branch and an account.
            return "INSERT OR IGNORE INTO Empresa (Em_Cve_Empresa, Em_Descripcion) VALUES ('EM02', 'Río Chico'); "
                   "INSERT OR IGNORE INTO Sucursal (Sc_Cve_Sucursal, Sc_Descripcion, Em_Cve_Empresa, "
                   "Sc_Cuenta_Contable) VALUES ('QRO', 'Querétaro', 'EM02', '1105-05'); "
                   "INSERT OR IGNORE INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bn_Cve_Banco, "
                   "Mn_Cve_Moneda, Em_Cve_Empresa) VALUES ('QRO-MXN', 'Querétaro', 'PUERTO', 'MXN', 'EM02')";
        case 10:
            return "UPDATE Sucursal SET Sc_Servidor_Id = '" + chance_.of({"", "NORTE", "CENTRAL"}) +
                   "' WHERE Sc_Cve_Sucursal = '" + chance_.of({"MTY", "TIJ", "GDL"}) + "'";
        case 11:
            return "UPDATE Forma_Pago SET Fp_Depositable = '" + chance_.of({"SI", "NO"}) + "', Fp_Tipo = '" +
                   chance_.of({"01", "02", "03", "04"}) + "' WHERE Fp_Cve_Forma_Pago = '" +
                   chance_.of({"02", "03", "04", "05"}) + "'";
        case 12:
            return "UPDATE Forma_Pago SET Fp_Generar_Cuenta_x_Cobrar = '" + chance_.of({"SI", "NO"}) +
                   "', Fp_Cliente = '" + chance_.of({"TARJ", "CL01", "NADA"}) + "' WHERE Fp_Cve_Forma_Pago = '" +
                   chance_.of({"04", "05", "06"}) + "'";
        case 13:
            return "UPDATE Tipo_Cheque SET Tc_Proveedor_Pago = '" + chance_.of({"SI", "NO"}) +
                   "' WHERE Tc_Cve_Tipo_Cheque IN ('0001', '0006')";
        case 14:
            return "UPDATE Banco_Cuenta SET Bc_Cuenta_Contable = '" + chance_.of({"", "1102-77"}) +
                   "' WHERE Bc_Cve_Banco_Cuenta = '" + chance_.of({"SRR-MXN", "PTO-MXN"}) + "'";
        default:
            return "UPDATE Proveedor SET Gp_Cve_Grupo_Proveedor = '" + chance_.of({"MERC", "SERV", "NADA"}) +
                   "', Pv_Dias_Credito = " + chance_.of({"0", "30", "365"}) + " WHERE Pv_Cve_Proveedor = '" +
                   chance_.of({"PV01", "PV02", "PV03"}) + "'";
    }
}

std::string Generator::budget_alteration(const Scene& stage) {
    struct Kind {
        const char* table;
        const char* prefix;
        std::vector<std::pair<const char*, const char*>> holders;
    };
    static const std::vector<Kind> kinds = {
        {"Anticipo_Proveedor_Presupuesto",
         "App",
         {{"PV", "PV01"},
          {"PV", "PV03"},
          {"GP", "MERC"},
          {"GP", "SERV"},
          {"SC", "GDL"},
          {"SC", "MTY"},
          {"EM", "EM01"}}},
        {"Gasto_x_Comprobar_Presupuesto", "Gcp", {{"DE", "DE01"}, {"DE", "DE02"}, {"SC", "GDL"}, {"EM", "EM01"}}},
        {"Prestamo_Deudor_Presupuesto", "Pdp", {{"DE", "DE01"}, {"DE", "DE02"}, {"SC", "MTY"}, {"EM", "EM01"}}},
        {"Devolucion_Cliente_Presupuesto", "Dcp", {{"CL", "CL01"}, {"CL", "CL02"}, {"SC", "MTY"}, {"EM", "EM01"}}}};
    const Kind& kind = chance_.of(kinds);
    const auto& [level, holder] = chance_.of(kind.holders);
    const Calendar day = calendar(stage.now());
    const std::string prefix = kind.prefix, year = std::to_string(day.year);
    const std::string month = (day.month < 10 ? "0" : "") + std::to_string(day.month);
    const std::string row = "('" + std::string(level) + "', '" + holder + "', " + year + ")";
    return "INSERT OR IGNORE INTO " + std::string(kind.table) + " (" + prefix + "_Tipo, " + prefix + "_Valor, " +
           prefix + "_Periodo) VALUES " + row + "; UPDATE " + kind.table + " SET " + prefix + "_" + month + " = " +
           chance_.of({"0", "-5", "100", "1000", "2500", "0.5", "1000000"}) + " WHERE (" + prefix + "_Tipo, " + prefix +
           "_Valor, " + prefix + "_Periodo) = " + row;
}

std::string Generator::document_alteration(const Scene& stage) {
    const Calendar day = calendar(stage.now());
    const std::string month = std::to_string(day.year) + ", " + std::to_string(day.month);
    const auto posted = [&](const std::string& table, const std::string& folio) {
        return "INSERT OR IGNORE INTO Documento_Contabilizado (Dt_Documento, Dt_Tabla) VALUES ('" + folio + "', '" +
               table + "')";
    };
    switch (chance_.below(14)) {
        case 0:
        case 1:
            return "UPDATE Configuracion_Contable SET Ct_Automatica = '" + chance_.of({"SI", "SI", "NO"}) +
                   "' WHERE Ct_Codigo = '" +
                   chance_.of({"RECIBO_PAGO", "BANCO_MOVIMIENTO", "DEPOSITO_PAGO", "CHEQUE"}) + "'";
        case 2:
            return "UPDATE Configuracion_Contable SET Ct_Cuenta_Cargo = '" + chance_.of({"", "9999"}) +
                   "', Ct_Cuenta_Abono = '" + chance_.of({"", "8888"}) + "'";
        case 3: {
            const std::string module = chance_.of({"FINANZAS", "CONTABILIDAD", "CUENTAS_X_COBRAR", "CUENTAS_X_PAGAR"});
            const std::string state = chance_.of({"AB", "AB", "CE"});
            return "INSERT OR IGNORE INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes) VALUES ('" + module +
                   "', " + month + "); UPDATE Periodo_Operativo SET Po_Estado = '" + state + "' WHERE Po_Modulo = '" +
                   module + "' AND (Po_Ejercicio, Po_Mes) = (" + month + ")";
        }
        case 4:
            return "UPDATE Folio_Serie SET Fs_Abierta = '" + chance_.of({"NO", "SI", "SI", "SI"}) +
                   "' WHERE Fs_Codigo = '" +
                   chance_.of({"RECIBO_PAGO", "CHEQUE", "BANCO_MOVIMIENTO", "DEPOSITO_PAGO", "SOLICITUD_CHEQUE",
                               "POLIZA", "GASTO_X_COMPROBAR", "CUENTA_X_COBRAR", "ANTICIPO_CXC", "CUENTA_X_PAGAR"}) +
                   "'";
        case 5:
            // A series put back gives folios that are taken.
            return "UPDATE Folio_Serie SET Fs_Ultimo = Fs_Ultimo " + chance_.of({"- 1", "+ 5", "- 2", "+ 99999990"}) +
                   " WHERE Fs_Codigo = '" +
                   chance_.of({"RECIBO_PAGO", "CHEQUE", "BANCO_MOVIMIENTO", "DEPOSITO_PAGO", "SOLICITUD_CHEQUE",
                               "POLIZA", "GASTO_X_COMPROBAR", "CUENTA_X_COBRAR", "ANTICIPO_CXC", "CUENTA_X_PAGAR"}) +
                   "' AND Fs_Ultimo > 2";
        case 6:
            return posted("RECIBO_PAGO", folio("Recibo_Pago"));
        case 7:
            return posted("CHEQUE", folio("Cheque"));
        case 8:
            return posted("BANCO_MOVIMIENTO", folio("Banco_Movimiento"));
        case 9:
            return posted("DEPOSITO_PAGO", folio("Deposito_Pago"));
        case 10:
            return posted(chance_.of({"CUENTA_X_COBRAR", "CUENTA_X_COBRAR"}), folio("Cuenta_x_Cobrar"));
        case 11:
            return chance_.in_percent(50) ? posted("CUENTA_X_PAGAR", folio("Cuenta_x_Pagar"))
                                          : posted("ANTICIPO_CXC", folio("Anticipo_Cxc"));
        case 12:
            return "UPDATE Poliza SET Es_Cve_Estado = '" + chance_.of({"CE", "AC"}) + "' WHERE Pz_Folio = '" +
                   folio("Poliza") + "' AND Es_Cve_Estado <> 'CA'";
        default:
            return posted("PAGO_CXC", folio("Pago_Cxc") + ":0001");
    }
}

}  // namespace cuvexa::simulator
