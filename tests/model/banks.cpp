// Bank movements: registration, hand-off to accounting, cancellation, balances and the accounting guard.
#include "cuvexa/value.h"
#include "model/treasury.h"

namespace cuvexa::model {

bool Treasury::Registra_Movimiento_Banco(tBnMovimiento& Datos) {
    const Text tag = "Cuvexa.dll - Registra_Movimiento_Banco()";
    const Text tag_with_blank = tag + " ";  // the member's own; three messages stand behind the other one
    return operation(tag_with_blank, [&] {
        const Text stamp = suite_.stamp();
        const Text key = quoted(Datos.Cuenta.Bc_Cve_Banco_Cuenta);
        const auto is_account = [&](const auto& r) { return same(r.Bc_Cve_Banco_Cuenta, key); };
        const auto account = db.Banco_Cuenta.first(is_account);
        fail_if(!account, tagged(tag_with_blank, "No se encontró la cuenta bancaria"));
        fail_if(account->Es_Cve_Estado == "BA", tagged(tag_with_blank, "La cuenta bancaria está dada de baja"));
        if (const Text why = other_day(Datos.Bm_Fecha); !why.empty()) fail(tagged(tag, why));
        const auto type_column = [&](Text rows::Banco_Tipo_Movimiento::*column) {
            return suite_.look_up(db.Banco_Tipo_Movimiento, column,
                                  &rows::Banco_Tipo_Movimiento::Bt_Cve_Banco_Tipo_Movimiento,
                                  Datos.Bt_Cve_Banco_Tipo_Movimiento);
        };
        fail_if(type_column(&rows::Banco_Tipo_Movimiento::Bt_Descripcion).empty(),
                tagged(tag_with_blank, "El tipo de movimiento de banco no existe o está dado de baja"));
        Datos.Cuenta.Bc_Cuenta_Contable = account->Bc_Cuenta_Contable;
        Datos.Cuenta.Mn_Cve_Moneda = account->Mn_Cve_Moneda;
        Datos.Cuenta.Bn_Cve_Banco = account->Bn_Cve_Banco;
        const Text folio = data_.GetNextFolio("", "BANCO_MOVIMIENTO");
        fail_if(folio.empty(), tagged(tag_with_blank, "No se pudo generar el folio de movimiento de bancos"));
        FolioMovimiento = folio;
        if (type_column(&rows::Banco_Tipo_Movimiento::Bt_Tipo) == "2") Datos.Bm_Importe *= -1;
        if (Datos.Bm_Tabla.empty()) Datos.Bm_Tabla = "Cheque";

        rows::Banco_Movimiento row;
        row.Bm_Importe = bare(Datos.Bm_Importe);  // no number fails after a text
        row.Bm_Folio = quoted(folio);
        row.Bc_Cve_Banco_Cuenta = key;
        row.Bm_Tabla = quoted(Datos.Bm_Tabla);
        row.Bm_Documento = quoted(Datos.Bm_Documento);
        row.Bm_Documento_ID = quoted(Datos.Bm_Documento_ID);
        row.Bm_Referencia = quoted(Datos.Bm_Referencia);
        row.Bc_Cuenta_Contable = quoted(account->Bc_Cuenta_Contable);
        row.Bm_Comentario = quoted(Datos.Bm_Comentario);
        row.Bm_Fecha = sql_date(Datos.Bm_Fecha);
        row.Bm_Fecha_Firme = sql_date(Datos.Bm_Fecha_Firme);
        row.Bt_Cve_Banco_Tipo_Movimiento = quoted(Datos.Bt_Cve_Banco_Tipo_Movimiento);
        row.Mn_Cve_Moneda = quoted(account->Mn_Cve_Moneda);
        row.Bm_Tipo_Cambio = bare(Datos.Bm_Tipo_Cambio);
        row.Oper_Alta = row.Oper_Ult_Modif = suite_.user;
        row.Fecha_Alta = row.Fecha_Ult_Modif = stamp;
        row.Es_Cve_Estado = Datos.EnFirme ? "FI" : "TR";
        db.Banco_Movimiento.insert(row);
        db.Banco_Cuenta.update(is_account, [&](auto& r) {
            r.Bc_Saldo += row.Bm_Importe;
            r.Oper_Ult_Modif = suite_.user;
            r.Fecha_Ult_Modif = stamp;
        });
        db.Banco.update([&](const auto& r) { return same(r.Bn_Cve_Banco, account->Bn_Cve_Banco); },
                        [&](auto& r) {
                            r.Bn_Saldo += row.Bm_Importe;
                            r.Oper_Ult_Modif = suite_.user;
                            r.Fecha_Ult_Modif = stamp;
                        });
        if (!Contabiliza_Banco_Movimiento(folio, "", "")) fail(tagged(tag, Text(Error)));
        if (!data_.RegisterDocument("BANCO_MOVIMIENTO", folio)) fail(tagged(tag, data_.LastError));
    });
}

bool Treasury::Registra_Movimiento_Bancario_Cheque(const Text& Ch_Folio) {
    const Text tag = "Cuvexa.dll - Registra_Movimiento_Bancario_Cheque()";
    return operation(tag, [&] {
        const Text key = quoted(Ch_Folio);
        const auto of_check = [&](const auto& r) { return same(r.Ch_Folio, key); };
        const auto check = db.Cheque.first(of_check);
        const auto lines = db.Cheque_x_Aplicar.where(of_check, &rows::Cheque_x_Aplicar::Cxa_ID);
        const auto account = !check ? std::nullopt : db.Banco_Cuenta.first([&](const auto& r) {
            return same(r.Bc_Cve_Banco_Cuenta, check->Bc_Cve_Banco_Cuenta);
        });
        fail_if(lines.empty() || !account, tagged(tag, "No se encontró el cheque o transferencia especificados"));
        tBnMovimiento movement;
        movement.Bm_Comentario = check->Ch_Concepto;
        movement.Bt_Cve_Banco_Tipo_Movimiento = suite_.parameter(
            check->Ch_Transferencia == "SI" ? "TES_MOVIMIENTO_TRANSFERENCIA" : "TES_MOVIMIENTO_CHEQUE");
        movement.Bm_Documento = check->Ch_Folio;
        movement.Bm_Tabla = "Cheque";
        movement.Bm_Referencia = check->Ch_Referencia;
        movement.Bm_Fecha = movement.Bm_Fecha_Firme = date_of(check->Ch_Fecha);
        movement.Cuenta.Bc_Cve_Banco_Cuenta = check->Bc_Cve_Banco_Cuenta;
        movement.Bm_Importe = lines.front().Mn_Cve_Moneda != account->Mn_Cve_Moneda
                                  ? check->Ch_Importe * check->Ch_Tipo_Cambio
                                  : check->Ch_Importe;
        movement.Bm_Tipo_Cambio = check->Ch_Tipo_Cambio;
        stop_unless(Registra_Movimiento_Banco(movement));
    });
}

bool Treasury::Contabiliza_Banco_Movimiento(const Text& Bm_Folio, const Text& Bm_Tabla, const Text& Bm_Documento) {
    const Text tag = "Cuvexa.dll - Contabiliza_Banco_Movimiento()";
    return operation(tag, [&] {
        if (!Accounting(suite_).IsPostingEnabled("BANCO_MOVIMIENTO")) return;
        const Text folio = quoted(Bm_Folio), table = quoted(Bm_Tabla), document = quoted(Bm_Documento);
        for (const auto& movement : db.Banco_Movimiento.rows()) {
            const bool named = same(movement.Bm_Folio, folio) ||
                               (!document.empty() && !table.empty() && same(movement.Bm_Documento, document) &&
                                same(movement.Bm_Tabla, table));
            if (!named || !differs(movement.Es_Cve_Estado, "CA")) continue;
            const auto account = db.Banco_Cuenta.first(
                [&](const auto& r) { return same(r.Bc_Cve_Banco_Cuenta, movement.Bc_Cve_Banco_Cuenta); });
            const auto company = !account ? std::nullopt : db.Empresa.first([&](const auto& r) {
                return same(r.Em_Cve_Empresa, account->Em_Cve_Empresa) && differs(r.Es_Cve_Estado, "BA");
            });
            if (company) return post(tag, "BANCO_MOVIMIENTO", movement.Bm_Folio, company->Em_Cve_Empresa);
        }
        fail(tagged(tag, "No es posible determinar la empresa para la póliza"));
    });
}

// ---- Cancellation ---------------------------------------------------------------------------------------------------

bool Treasury::Cancelar_Movimiento_Bancos(const Text& Bm_Folio) {
    const Text tag = "Cuvexa.dll - Cancelar_Movimiento_Bancos()";
    return operation(tag, [&] {
        const Text key = quoted(Bm_Folio);
        const auto movement = db.Banco_Movimiento.first([&](const auto& r) { return same(r.Bm_Folio, key); });
        const auto account = !movement ? std::nullopt : db.Banco_Cuenta.first([&](const auto& r) {
            return same(r.Bc_Cve_Banco_Cuenta, movement->Bc_Cve_Banco_Cuenta);
        });
        fail_if(!account, tagged(tag, "No se encontró el movimiento de banco: " + Bm_Folio));
        fail_if(movement->Es_Cve_Estado == "CA",
                tagged(tag, "El movimiento:" + movement->Bm_Folio + ", está cancelado!"));
        const Date date = date_of(movement->Bm_Fecha);
        if (const Text why = other_day(date); !why.empty()) fail(tagged(tag, why));
        if (const Text why = closed_period(date); !why.empty()) fail(tagged(tag, why));
        if (!Valida_Poliza_Contable("BANCO_MOVIMIENTO", Bm_Folio)) fail(tagged(tag, Text(Error)));
        reverse(*movement, account->Bn_Cve_Banco);
        // Callers know this failure under the tag of the registration.
        if (!data_.RegisterDocument("BANCO_MOVIMIENTO", movement->Bm_Folio)) {
            fail(tagged("Cuvexa.dll - Registra_Movimiento_Banco()", data_.LastError));
        }
    });
}

bool Treasury::Cancelar_Documento_Bancos(const Text& Bm_Tabla, const Text& Bm_Documento) {
    const Text tag = "Cuvexa.dll - Cancelar_Documento_Bancos()";
    return operation(tag, [&] {
        const Text table = quoted(Bm_Tabla), document = quoted(Bm_Documento);
        bool found = false;
        const auto movements = db.Banco_Movimiento.where(
            [&](const auto& r) { return same(r.Bm_Documento, document) && same(r.Bm_Tabla, table); },
            &rows::Banco_Movimiento::Bm_Folio);
        for (const auto& movement : movements) {
            const auto account = db.Banco_Cuenta.first(
                [&](const auto& r) { return same(r.Bc_Cve_Banco_Cuenta, movement.Bc_Cve_Banco_Cuenta); });
            if (!account) continue;
            found = true;
            fail_if(movement.Es_Cve_Estado == "CA",
                    tagged(tag, "El movimiento:" + movement.Bm_Folio + ", está cancelado!"));
            if (!Valida_Poliza_Contable("BANCO_MOVIMIENTO", movement.Bm_Folio)) fail(tagged(tag, Text(Error)));
            reverse(movement, account->Bn_Cve_Banco);
            if (!data_.RegisterDocument("BANCO_MOVIMIENTO", movement.Bm_Folio)) fail(tagged(tag, data_.LastError));
        }
        fail_if(!found, tagged(tag, "No se encontraron documentos relacionados a la tabla:" + Bm_Tabla +
                                        " y documento:" + Bm_Documento));
    });
}

/// Takes a movement out of the balances and marks it.
void Treasury::reverse(const rows::Banco_Movimiento& movement, const Text& bank) {
    const Text stamp = suite_.stamp();
    const double amount = bare(movement.Bm_Importe);
    db.Banco_Cuenta.update(
        [&](const auto& r) { return same(r.Bc_Cve_Banco_Cuenta, quoted(movement.Bc_Cve_Banco_Cuenta)); },
        [&](auto& r) {
            r.Bc_Saldo -= amount;
            r.Oper_Ult_Modif = suite_.user;
            r.Fecha_Ult_Modif = stamp;
        });
    db.Banco.update([&](const auto& r) { return same(r.Bn_Cve_Banco, quoted(bank)); },
                    [&](auto& r) {
                        r.Bn_Saldo -= amount;
                        r.Oper_Ult_Modif = suite_.user;
                        r.Fecha_Ult_Modif = stamp;
                    });
    db.Banco_Movimiento.update([&](const auto& r) { return same(r.Bm_Folio, quoted(movement.Bm_Folio)); },
                               [&](auto& r) {
                                   r.Es_Cve_Estado = "CA";
                                   r.Oper_Ult_Modif = r.Oper_Baja = suite_.user;
                                   r.Fecha_Ult_Modif = r.Fecha_Baja = stamp;
                               });
}

// ---- Balance and guard ----------------------------------------------------------------------------------------------

double Treasury::GetSaldo(const Text& Bc_Cve_Banco_Cuenta, bool SoloFirme) {
    double balance = 0;
    operation("Cuvexa.dll - GetSaldo()", [&] {
        fail_if(!exists_account(Bc_Cve_Banco_Cuenta), "No existe el número de cuenta");
        const Text key = quoted(Bc_Cve_Banco_Cuenta);
        // The condition follows without a conjunction: no database takes that statement.
        if (SoloFirme) throw Failure{"near \"Es_Cve_Estado\": syntax error"};
        double sum = 0;
        for (const auto& movement : db.Banco_Movimiento.rows()) {
            if (same(movement.Bc_Cve_Banco_Cuenta, key) && differs(movement.Es_Cve_Estado, "CA")) {
                sum += movement.Bm_Importe;
            }
        }
        balance = sum;
    });
    return balance;
}

bool Treasury::Valida_Poliza_Contable(const Text& Tabla, const Text& Documento) {
    const Text tag = "Cuvexa.dll - Valida_Poliza_Contable()";
    return operation(tag, [&] {
        fail_if(trimmed(Tabla).empty(), tagged(tag, "No se especificó la tabla"));
        fail_if(trimmed(Documento).empty(), tagged(tag, "No se especificó el documento"));
        Accounting accounting(suite_);
        if (accounting.IsPostingEnabled(Tabla)) {
            if (!accounting.ValidateVoucherCancellation(Tabla, Documento)) fail(tagged(tag, accounting.LastError));
        } else if (data_.IsDocumentPosted(Tabla, Documento)) {
            fail(tagged(tag, "Imposible cancelar el documento, ya está contabilizado! " + line_break +
                                 (data_.LastError.empty() ? Tabla + ": " + Documento : data_.LastError)));
        }
    });
}

}  // namespace cuvexa::model
