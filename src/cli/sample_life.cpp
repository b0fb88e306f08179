#include "cli/sample_life.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "cli/command.h"
#include "cuvexa/suite/administration.h"
#include "cuvexa/unit_of_work.h"

namespace cuvexa::cli {

struct Sample_life::Branch {
    const char* key;
    const char* account;  ///< that its receipts are deposited in
};

namespace {

constexpr std::size_t receipts_of_a_deposit = 40;
constexpr int days_until_firm = 3;

constexpr const char* banks[] = {"Banco de la Sierra", "Banco del Puerto", "Banco Viejo"};

struct Reason {
    const char* type;
    const char* party;
    const char* beneficiary;
    const char* text;
};
constexpr Reason supplier_reasons[] = {
    {"0006", "PV01", "Aceros del Bajío", "Compra de lámina"},
    {"0006", "PV02", "Importadora Tres Ríos", "Compra de refacciones"},
    {"0006", "PV03", "Limpieza Jacaranda", "Servicio de limpieza"},
};

/// Sundays are free; Saturdays bring half of what another day brings.
int weight_of(Date day) {
    const auto weekday = static_cast<long>(day.days) % 7;  // 30 December 1899 was a Saturday
    return weekday == 1 ? 0 : weekday == 0 ? 1 : 2;
}

}  // namespace

Date first_day_of(const Life_plan& plan) {
    const Calendar last = calendar(plan.last_day);
    const int month = last.year * 12 + last.month - 1 - (plan.months - 1);
    return make_date(month / 12, month % 12 + 1, 1);
}

Sample_life::Sample_life(Company& company, const Life_plan& plan)
    : company_(company),
      plan_(plan),
      suite_(company.suite({.user = "CAJA1"})),
      module_(suite_),
      treasury_(module_),
      random_(plan.seed) {}

void Sample_life::require(bool done) const {
    if (!done) throw Refused(treasury_.Error());
}

/// Small amounts are frequent and large ones rare.
double Sample_life::amount(double least, double most) {
    const double share = static_cast<double>(below(10'001)) / 10'000;
    return std::round((least + (most - least) * share * share * share) * 100) / 100;
}

void Sample_life::live(const std::function<void(int receipts)>& progress) {
    for (const char* code : {"RECIBO_PAGO", "DEPOSITO_PAGO", "CHEQUE"}) set_posting(company_.connection(), code, true);
    long weights = 0;
    for (Date day = first_day_of(plan_); day <= plan_.last_day; day = add_days(day, 1)) weights += weight_of(day);
    long lived = 0;
    int receipts = 0;
    for (Date day = first_day_of(plan_); day <= plan_.last_day; day = add_days(day, 1)) {
        if (weight_of(day) == 0) continue;
        lived += weight_of(day);
        const int until = static_cast<int>(static_cast<double>(plan_.receipts) * static_cast<double>(lived) /
                                           static_cast<double>(weights));
        live_day(day, until - receipts);
        receipts = until;
        progress(receipts);
    }
}

void Sample_life::live_day(Date day, int receipts) {
    static constexpr Branch branches[] = {{"MTY", "SRR-MXN"}, {"GDL", "PTO-MXN"}};
    suite_->set_server_date(Date{day.days + 10.0 / 24});
    Unit_of_work whole(company_.connection());
    book_interest_and_fees(day);
    apply_due_checks(day);
    std::vector<std::string> taken[std::size(branches)];
    for (int i = 0; i < receipts; ++i) {
        const std::size_t branch = once_in(3) ? 1 : 0;
        const std::string folio = capture_receipt(branches[branch], day);
        if (!folio.empty()) taken[branch].push_back(folio);
        if (once_in(20)) pay(day);
        if (once_in(60)) request_check(day);
        if (once_in(200)) transfer(day);
    }
    for (std::size_t i = 0; i < std::size(branches); ++i) deposit(branches[i], day, taken[i]);
    whole.commit();
}

/// The folio, where the receipt is to be deposited.
std::string Sample_life::capture_receipt(const Branch& branch, Date day) {
    static constexpr std::pair<const char*, const char*> customers[] = {
        {"02", "CL01"}, {"02", "CL02"}, {"03", "DE01"}, {"03", "DE02"}};
    tRpEncabezado header;
    header.Rp_Fecha = header.Rp_Fecha_Deposito = day;
    header.Sucursal.Sc_Cve_Sucursal = branch.key;
    header.Mn_Cve_Moneda = "MXN";
    header.Rp_Tipo_Cambio = 1;
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "01";
    header.Rp_Referencia = "Ticket " + std::to_string(++references_);
    header.Rp_Comentario = "Venta de mostrador";
    if (once_in(12)) {
        const auto& [type, customer] = customers[below(std::size(customers))];
        header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = type;
        header.Rp_Solicitar_Valor = customer;
        header.Rp_Comentario = "Cobranza";
    }
    treasury_.NuevoReciboCaja();
    treasury_.RpEncabezado(header);
    for (std::size_t lines = 1 + (once_in(3) ? 1 : 0) + (once_in(9) ? 1 : 0); lines > 0; --lines) capture_line();
    std::string folio = treasury_.RpEncabezado().Rp_Folio;
    if (once_in(150)) return {};  // left open by its cashier
    require(treasury_.FinReciboCaja(folio));
    if (once_in(80)) {
        require(treasury_.Cancelar_Recibo_Caja(folio, false, true));
        return {};
    }
    return folio;
}

void Sample_life::capture_line() {
    tRpDetalle line;
    const std::size_t method = below(10);
    line.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = method < 5 ? "01" : method < 6 ? "02" : method < 8 ? "03" : "04";
    if (method >= 5) line.Rp_Cheque = std::to_string(100'000 + below(900'000));
    if (method >= 5 && method < 8) line.Rp_Banco = banks[below(std::size(banks))];
    if (method >= 6 && method < 8) line.Rp_Cuenta_Bancaria = std::to_string(10'000'000 + below(90'000'000));
    line.Rp_Importe = amount(35, method < 5 ? 2'500 : 25'000);
    treasury_.RpDetalle(line);
    require(treasury_.Add_Recibo_Caja_Detalle());
}

void Sample_life::deposit(const Branch& branch, Date day, const std::vector<std::string>& receipts) {
    const bool firm = add_days(day, days_until_firm) <= plan_.last_day;
    for (std::size_t from = 0; from < receipts.size(); from += receipts_of_a_deposit) {
        std::string folios;
        for (std::size_t i = from; i < std::min(from + receipts_of_a_deposit, receipts.size()); ++i) {
            folios += (folios.empty() ? "" : ",") + receipts[i];
        }
        require(
            treasury_.Genera_Deposito(branch.account, folios, day, firm, add_days(day, firm ? 1 : 0), "Corte de caja"));
        if (!once_in(60)) continue;
        require(treasury_.Cancelar_Deposito(treasury_.Dp_Folio()));
        require(
            treasury_.Genera_Deposito(branch.account, folios, day, firm, add_days(day, firm ? 1 : 0), "Corte de caja"));
    }
}

// ---- What is paid ---------------------------------------------------------------------------------------------------

void Sample_life::pay(Date day) {
    switch (below(6)) {
        case 0:
            return write_check("0005", "PV02", "Importadora Tres Ríos", "Anticipo de refacciones", day,
                               &Tesoreria::Crear_Cheque_Anticipo_Cxp, 3'000);
        case 1:
            return write_check("0002", "DE01", "Laura Méndez", "Viáticos", day,
                               &Tesoreria::Crear_Cheque_Gasto_x_Comprobar, 900);
        case 2:
            return write_check("0004", "DE01", "Laura Méndez", "Préstamo personal", day,
                               &Tesoreria::Crear_Cheque_Deudor, 1'500);
        case 3:
            return write_check("0003", "CL01", "Constructora Peña Alta", "Devolución de mercancía", day,
                               &Tesoreria::Crear_Cheque_Devolucion_Cliente, 2'000);
        default:
            const Reason& reason = supplier_reasons[below(std::size(supplier_reasons))];
            return write_check(reason.type, reason.party, reason.beneficiary, reason.text, day, nullptr, 12'000);
    }
}

/// `create` is null for a payment to a supplier.
void Sample_life::write_check(const std::string& type, const std::string& party, const std::string& beneficiary,
                              const std::string& reason, Date day, bool (Tesoreria::*create)(), double most) {
    tTsEncabezado header;
    header.Ch_Fecha = day;
    header.Tc_Cve_Tipo_Cheque = type;
    header.Ch_Transferencia = once_in(2) ? "SI" : "NO";
    header.Ch_Referencia = std::to_string(5'000 + ++references_);
    header.Ch_Concepto = reason;
    header.Ch_Beneficiario = beneficiary;
    header.Ch_Solicitar_Valor = party;
    header.Bc_Cve_Banco_Cuenta = once_in(3) ? "PTO-MXN" : "SRR-MXN";
    header.Mn_Cve_Moneda = "MXN";
    header.Ch_Tipo_Cambio = 1;
    header.Sucursal.Sc_Cve_Sucursal = once_in(3) ? "GDL" : "MTY";
    tTsDetalle line;
    line.Ch_Concepto = reason;
    line.Mn_Cve_Moneda = "MXN";
    line.Ch_Tipo_Cambio = 1;
    line.Ch_Importe = amount(150, most);

    treasury_.Nuevo();
    treasury_.Encabezado(header);
    treasury_.Detalle(line);
    const bool captures_line = create == nullptr || create == &Tesoreria::Crear_Cheque_Devolucion_Cliente;
    if (captures_line) require(treasury_.Add_Cheque_Detalle());
    require(create != nullptr ? (treasury_.*create)()
                              : treasury_.Crear_Cheque_Pago_Proveedor(treasury_.Encabezado().Ch_Folio));
    const std::string folio = treasury_.Encabezado().Ch_Folio;
    if (once_in(40)) return require(treasury_.Cancelar_Cheque(folio));
    require(treasury_.Finalizar_Cheque(folio));
    // An expense is applied when its debtor has justified it, which is another module's matter.
    if (type != "0002") checks_.push_back({folio, add_days(day, static_cast<int>(2 + below(9)))});
}

void Sample_life::request_check(Date day) {
    const Reason& reason = supplier_reasons[below(std::size(supplier_reasons))];
    tSchEncabezado header;
    header.Sch_Fecha = day;
    header.Tc_Cve_Tipo_Cheque = reason.type;
    header.Bc_Cve_Banco_Cuenta = "SRR-MXN";
    header.Sucursal.Sc_Cve_Sucursal = "MTY";
    header.Sch_Concepto = reason.text;
    header.Sch_Beneficiario = reason.beneficiary;
    header.Sch_Solicitar_Valor = reason.party;
    header.Sch_Tabla = "ORDEN_COMPRA";
    header.Sch_Documento = "OC-" + std::to_string(++references_);
    header.Sch_Importe = amount(500, 20'000);
    header.Mn_Cve_Moneda = "MXN";
    header.Sch_Tipo_Cambio = 1;
    header.Sch_Transferencia = "NO";
    header.Sch_Aplicar = header.Sch_Firme = "NO";
    Tesoreria request(module_);  // an instance captures one
    request.SchEncabezado(header);
    const auto require_done = [&](bool done) {
        if (!done) throw Refused(request.Error());
    };
    require_done(request.Add_Solicitud_Cheque());
    tSchDetalle line;
    line.Sch_Folio = request.SchEncabezado().Sch_Folio;
    line.Scd_Tabla = "ORDEN_COMPRA";
    line.Scd_Documento = header.Sch_Documento;
    line.Scd_Importe = header.Sch_Importe;
    line.Mn_Cve_Moneda = "MXN";
    line.Scd_Tipo_Cambio = 1;
    request.SchDetalle(line);
    require_done(request.Add_Solicitud_Cheque_Detalle());
    if (once_in(5)) require_done(request.Cancelar_Solicitud_Cheque(line.Sch_Folio));
}

/// A check that its budget holds back waits for ever: who authorizes it is another module.
void Sample_life::apply_due_checks(Date day) {
    std::vector<Open_check> later;
    for (const Open_check& check : std::exchange(checks_, {})) {
        if (check.due > day) {
            later.push_back(check);
            continue;
        }
        const auto row =
            company_.connection().execute("SELECT Es_Cve_Estado FROM Cheque WHERE Ch_Folio = '" + check.folio + "'");
        if (to_text(row->field("Es_Cve_Estado")) == "PXA") continue;
        require(treasury_.Aplicar_Cheque(check.folio, day, !once_in(4)));
    }
    checks_ = std::move(later);
}

// ---- What the banks do ----------------------------------------------------------------------------------------------

void Sample_life::move(const std::string& account, const std::string& type, double amount, Date day,
                       const std::string& comment) {
    tBnMovimiento movement;
    movement.Bt_Cve_Banco_Tipo_Movimiento = type;
    movement.Bm_Fecha = movement.Bm_Fecha_Firme = day;
    movement.Bm_Tabla = "ESTADO_CUENTA";
    movement.Bm_Documento = "EC-" + std::to_string(++references_);
    movement.Bm_Comentario = comment;
    movement.Cuenta.Bc_Cve_Banco_Cuenta = account;
    movement.Bm_Importe = amount;
    movement.Bm_Tipo_Cambio = 1;
    movement.EnFirme = true;
    require(treasury_.Registra_Movimiento_Banco(movement));
}

void Sample_life::book_interest_and_fees(Date day) {
    if (calendar(day).day > 2) return;
    for (const char* account : {"SRR-MXN", "PTO-MXN"}) {
        if (calendar(day).day == 1) move(account, "INT", amount(20, 900), day, "Intereses del mes");
        if (calendar(day).day == 2) move(account, "COM", amount(60, 400), day, "Comisión por manejo de cuenta");
    }
}

void Sample_life::transfer(Date day) {
    const double moved = amount(1'000, 30'000);
    move("SRR-MXN", "TRF", moved, day, "Traspaso a concentradora");
    move("PTO-GRAL", "DEP", moved, day, "Traspaso de operación");
}

}  // namespace cuvexa::cli
