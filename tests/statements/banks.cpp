#include "statements/cases.h"

namespace cuvexa::tests {
namespace {

Call registers(tBnMovimiento movement) {
    return [=](Company& company) {
        tBnMovimiento passed = movement;
        return company.treasury().Registra_Movimiento_Banco(passed);
    };
}

tBnMovimiento inflow() {
    tBnMovimiento movement = Company::movement(100.25);
    movement.Bm_Fecha_Firme = make_date(2024, 3, 18);
    movement.Bm_Tipo_Cambio = 1.0 / 3;
    return movement;
}

tBnMovimiento firm_outflow() {
    tBnMovimiento movement = Company::movement(25.5, "COM");
    movement.Cuenta.Bc_Cve_Banco_Cuenta = "PTO-USD";
    movement.Bm_Tipo_Cambio = 19.5;
    movement.EnFirme = true;
    return movement;
}

void registered(Company& company) {
    registers(Company::movement())(company);
}

void registered_in_two_accounts(Company& company) {
    registered(company);
    registers(firm_outflow())(company);
}

/// A check whose movement is not there yet.
Preparation check_without_movement(const tTsEncabezado& header) {
    return [=](Company& company) {
        company.treasury().Crear_Cheque_Pago_Proveedor(company.capture_check({Company::check_line(400)}, header));
        company.sql("DELETE FROM Banco_Movimiento");
    };
}

tTsEncabezado transfer_in_dollars() {
    tTsEncabezado header = Company::check_header();
    header.Ch_Transferencia = "SI";
    header.Bc_Cve_Banco_Cuenta = "PTO-USD";
    header.Ch_Tipo_Cambio = 19.5;
    return header;
}

bool register_check(Company& company) {
    return company.treasury().Registra_Movimiento_Bancario_Cheque("CH-MTY-00000001");
}

}  // namespace

std::vector<Member_cases> bank_cases() {
    return {
        {"Registra_Movimiento_Banco",
         {{"an inflow in transit", {}, registers(inflow())},
          {"an outflow, firm", {}, registers(firm_outflow())},
          {"movements are posted by themselves",
           [](Company& company) { company.post_automatically("BANCO_MOVIMIENTO"); }, registers(Company::movement())}}},
        {"Registra_Movimiento_Bancario_Cheque",
         {{"of a check", check_without_movement(Company::check_header()), register_check},
          {"of a transfer in another currency than its lines", check_without_movement(transfer_in_dollars()),
           register_check}}},
        {"Cancelar_Movimiento_Bancos",
         {{"one movement", registered,
           [](Company& company) { return company.treasury().Cancelar_Movimiento_Bancos("BM-00000001"); }}}},
        {"Cancelar_Documento_Bancos",
         {{"a document with two movements", registered_in_two_accounts,
           [](Company& company) { return company.treasury().Cancelar_Documento_Bancos("ESTADO_CUENTA", "EC-1"); }}}},
        {"GetSaldo",
         {{"of all movements", registered,
           [](Company& company) { return company.treasury().GetSaldo("SRR-MXN") == 100; }},
          {"of the firm ones alone", registered,
           [](Company& company) {
               company.treasury().GetSaldo("SRR-MXN", true);
               return !company.treasury().Error().empty();
           }}}},
    };
}

}  // namespace cuvexa::tests
