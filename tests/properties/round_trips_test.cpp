// There and back over random sequences: receipts, deposits, checks, applications, requests and movements are made and
// taken back in any order. After each cancellation every balance is what it was before the document; balances, payments
// and vouchers add up all the time; no row is ever deleted.
//
// CUVEXA_SEED runs one seed alone. A failing sequence is made as short as it stays failing, and printed as a script.
// CUVEXA_SCRIPTS names a folder in which every sequence leaves its script, for those who replay it elsewhere.
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <random>

#include "cuvexa/suite/audit.h"
#include "journal.h"

namespace cuvexa::tests {
namespace {

using Json = Journal::Json;
using Balances = std::map<std::string, double>;

constexpr int sequences = 40;
constexpr int steps_per_sequence = 250;

enum class Act {
    receipt,
    deposit,
    check,
    apply,
    request,
    movement,
    undo_deposit,
    undo_receipt,
    undo_application,
    undo_check,
    undo_request,
    undo_movement,
    count
};

/// What is done, and three numbers of which each act takes what it needs. They name documents by position, so that a
/// sequence keeps its sense when steps are left out.
struct Step {
    Act act;
    unsigned a, b, c;
};

using Sequence = std::vector<Step>;

Sequence random_sequence(unsigned seed) {
    std::mt19937 random(seed);
    Sequence steps;
    for (int i = 0; i < steps_per_sequence; ++i) {
        steps.push_back({static_cast<Act>(random() % static_cast<unsigned>(Act::count)),
                         static_cast<unsigned>(random()), static_cast<unsigned>(random()),
                         static_cast<unsigned>(random())});
    }
    return steps;
}

/// A document made by the sequence, with all that it moved and has not given back.
struct Document {
    std::string folio;
    std::string kind = {};  ///< of a check: its type
    Balances moved = {};
    std::string deposit = {};                ///< of a receipt: the deposit it is in
    std::vector<std::string> receipts = {};  ///< of a deposit
    bool applied = false;
    bool live = true;
};

class Violation : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One run of a sequence against a company of its own.
class Run {
public:
    explicit Run(bool posting) : journal_(company_) {
        if (posting) {
            for (const char* code : {"RECIBO_PAGO", "BANCO_MOVIMIENTO", "DEPOSITO_PAGO", "CHEQUE"}) {
                company_.post_automatically(code);
            }
        }
        before_ = balances();
        rows_ = row_counts();
    }

    /// Steps that have nothing to work on are passed over.
    void take(const Step& step) {
        switch (step.act) {
            case Act::receipt:
                return make_receipt(step);
            case Act::deposit:
                return make_deposit(step);
            case Act::check:
                return make_check(step);
            case Act::apply:
                return apply_check(step);
            case Act::request:
                return make_request(step);
            case Act::movement:
                return make_movement(step);
            case Act::undo_deposit:
                return undo_deposit(step);
            case Act::undo_receipt:
                return undo_receipt(step);
            case Act::undo_application:
                return undo_application(step);
            case Act::undo_check:
                return undo_check(step);
            case Act::undo_request:
                return undo_request(step);
            case Act::undo_movement:
                return undo_movement(step);
            case Act::count:
                return;
        }
    }

    void finish() {
        for (const Finding& finding : audit(company_.connection())) {
            throw Violation("the audit finds: " + finding.check + ", " + finding.document + ", " + finding.figures);
        }
    }

    std::string script() const { return journal_.script(); }

private:
    // ---- The six documents ----------------------------------------------------------------------------------------

    void make_receipt(const Step& step) {
        static constexpr const char* types[] = {"01", "02", "04", "05"};
        static constexpr const char* methods[] = {"01", "02", "04", "05", "06"};
        const std::string type = types[step.a % 4];
        journal_.run("NuevoReciboCaja");
        journal_.let("RpEncabezado", {{"Rp_Fecha", "2024-03-15"},
                                      {"TipoReciboPago", {{"Trp_Cve_Tipo_Recibo_Pago", type}}},
                                      {"Sucursal", {{"Sc_Cve_Sucursal", step.b % 2 == 0 ? "MTY" : "GDL"}}},
                                      {"Rp_Solicitar_Valor", type == "04"   ? "PV03"
                                                             : type == "02" ? "CL01"
                                                                            : ""},
                                      {"Mn_Cve_Moneda", "MXN"},
                                      {"Rp_Tipo_Cambio", 1},
                                      {"Rp_Fecha_Deposito", "2024-03-15"}});
        if (type == "05") return;  // asks for a seller, which this sequence never names
        for (unsigned line = 0; line <= step.b % 3; ++line) {
            const std::string method = methods[(step.a / 7 + line) % 5];
            journal_.let("RpDetalle", {{"Fp_Cve_Forma_Pago", {{"Fp_Cve_Forma_Pago", method}}},
                                       {"Rp_Banco", method == "02" ? "SIERRA" : ""},
                                       {"Rp_Cheque", method == "01" ? "" : std::to_string(step.c % 9)},
                                       {"Rp_Importe", cents(step.c + line)}});
            must(journal_.call("Add_Recibo_Caja_Detalle"));
        }
        Document receipt{.folio = journal_.get("RpEncabezado").at("Rp_Folio")};
        must(journal_.call("FinReciboCaja", {receipt.folio}));
        made(receipts_, std::move(receipt));
    }

    void make_deposit(const Step& step) {
        Document deposit;
        std::string list;
        for (Document& receipt : receipts_) {
            if (!receipt.live || !receipt.deposit.empty() ||
                (std::hash<std::string>()(receipt.folio) ^ step.a) % 3 != 0) {
                continue;
            }
            list += (list.empty() ? "" : ", ") + receipt.folio;
            deposit.receipts.push_back(receipt.folio);
        }
        if (list.empty()) return;
        must(journal_.call("Genera_Deposito", {step.b % 2 == 0 ? "SRR-MXN" : "PTO-MXN", list, "2024-03-15",
                                               step.c % 2 == 0, "2024-03-16"}));
        const std::string last = deposits_.empty() ? "" : deposits_.back().folio;
        deposit.folio = journal_.get("Dp_Folio");
        if (deposit.folio == last || deposit.folio.empty()) return;  // none of the lines goes to the bank
        for (Document& receipt : receipts_) {
            if (company_.scalar("SELECT COUNT(*) FROM Recibo_Pago WHERE Rp_Folio = '" + receipt.folio +
                                "' AND Rp_Folio_Deposito = '" + deposit.folio + "'") != "0") {
                receipt.deposit = deposit.folio;
            }
        }
        made(deposits_, std::move(deposit));
    }

    void make_check(const Step& step) {
        static constexpr const char* kinds[] = {"0001", "0002", "0003", "0004", "0005"};
        const std::string kind = kinds[step.a % 5];
        journal_.run("Nuevo");
        journal_.let("Encabezado", {{"Ch_Fecha", "2024-03-15"},
                                    {"Tc_Cve_Tipo_Cheque", kind},
                                    {"Ch_Transferencia", step.b % 2 == 0 ? "NO" : "SI"},
                                    {"Ch_Referencia", "R" + std::to_string(++reference_)},
                                    {"Ch_Concepto", "Pago"},
                                    {"Bc_Cve_Banco_Cuenta", step.b % 3 == 0 ? "PTO-MXN" : "SRR-MXN"},
                                    {"Mn_Cve_Moneda", "MXN"},
                                    {"Ch_Tipo_Cambio", 1},
                                    {"Ch_Solicitar_Valor", beneficiary(kind)},
                                    {"Sucursal", {{"Sc_Cve_Sucursal", "MTY"}}}});
        const auto line = [&](unsigned n) {
            journal_.let("Detalle", {{"Cxp_Folio", kind == "0001" ? "CXP-MTY-00000001" : ""},
                                     {"Mn_Cve_Moneda", "MXN"},
                                     {"Ch_Tipo_Cambio", 1},
                                     {"Ch_Importe", cents(step.c + n)}});
        };
        line(0);
        if (kind == "0001" || kind == "0003") must(journal_.call("Add_Cheque_Detalle"));
        if (kind == "0001") {
            line(1);
            must(journal_.call("Add_Cheque_Detalle"));
            must(journal_.call("Crear_Cheque_Pago_Proveedor", {journal_.get("Encabezado").at("Ch_Folio")}));
        } else {
            must(journal_.call(kind == "0002"   ? "Crear_Cheque_Gasto_x_Comprobar"
                               : kind == "0003" ? "Crear_Cheque_Devolucion_Cliente"
                               : kind == "0004" ? "Crear_Cheque_Deudor"
                                                : "Crear_Cheque_Anticipo_Cxp"));
        }
        made(checks_, Document{.folio = journal_.get("Encabezado").at("Ch_Folio"), .kind = kind});
    }

    /// Parties that receipts of the sequence do not pay or collect from, or a later document would hold an earlier one.
    static const char* beneficiary(const std::string& kind) {
        if (kind == "0001" || kind == "0005") return "PV01";
        return kind == "0003" ? "CL02" : "DE01";
    }

    void apply_check(const Step& step) {
        Document* check = pick(checks_, step.a, [&](const Document& each) {
            // An expense is applied through advances, which this sequence does not make.
            return !each.applied && each.kind != "0002" && state_of(each) == "AC" &&
                   (each.kind != "0001" || payable_covers(each));
        });
        if (check == nullptr) return;
        must(journal_.call("Aplicar_Cheque", {check->folio, "2024-03-18", step.b % 2 == 0}));
        check->applied = true;
        moved_by(*check);
    }

    bool payable_covers(const Document& check) {
        return company_.scalar(
                   "SELECT Cxp_Precio_Neto_Saldo >= Ch_Importe FROM Cuenta_x_Pagar, Cheque WHERE "
                   "Cxp_Folio = 'CXP-MTY-00000001' AND Cheque.Ch_Folio = '" +
                   check.folio + "'") == "1";
    }

    void make_request(const Step& step) {
        journal_.renew(company_);  // an instance captures one request
        journal_.let("SchEncabezado", {{"Sch_Fecha", "2024-03-15"},
                                       {"Tc_Cve_Tipo_Cheque", "0001"},
                                       {"Bc_Cve_Banco_Cuenta", "SRR-MXN"},
                                       {"Sucursal", {{"Sc_Cve_Sucursal", "MTY"}}},
                                       {"Sch_Importe", cents(step.a)},
                                       {"Mn_Cve_Moneda", "MXN"},
                                       {"Sch_Tipo_Cambio", 1},
                                       {"Sch_Transferencia", "NO"},
                                       {"Sch_Aplicar", "NO"},
                                       {"Sch_Firme", "NO"},
                                       {"Sch_Solicitar_Valor", "PV01"}});
        must(journal_.call("Add_Solicitud_Cheque"));
        const std::string folio = journal_.get("SchEncabezado").at("Sch_Folio");
        journal_.let("SchDetalle", {{"Sch_Folio", folio},
                                    {"Scd_Tabla", "CUENTA_X_PAGAR"},
                                    {"Scd_Documento", "CXP-MTY-00000001"},
                                    {"Scd_Importe", cents(step.a)},
                                    {"Mn_Cve_Moneda", "MXN"},
                                    {"Scd_Tipo_Cambio", 1}});
        must(journal_.call("Add_Solicitud_Cheque_Detalle"));
        if (step.b % 2 == 0) must(journal_.call("Autorizar_Solicitud_Cheque", {folio}));
        made(requests_, Document{.folio = folio});
    }

    void make_movement(const Step& step) {
        must(journal_.call("Registra_Movimiento_Banco",
                           {{{"Bt_Cve_Banco_Tipo_Movimiento", step.a % 2 == 0 ? "INT" : "COM"},
                             {"Bm_Fecha", "2024-03-15"},
                             {"Bm_Fecha_Firme", "2024-03-15"},
                             {"Bm_Tabla", "ESTADO_CUENTA"},
                             {"Bm_Documento", "EC-1"},
                             {"Cuenta", {{"Bc_Cve_Banco_Cuenta", step.b % 2 == 0 ? "SRR-USD" : "PTO-MXN"}}},
                             {"Bm_Importe", cents(step.c)},
                             {"Bm_Tipo_Cambio", 1},
                             {"EnFirme", step.b % 3 == 0}}}));
        made(movements_, Document{.folio = journal_.get("FolioMovimiento")});
    }

    // ---- The way back from each -------------------------------------------------------------------------------------

    void undo_deposit(const Step& step) {
        Document* deposit = pick(deposits_, step.a);
        if (deposit == nullptr) return;
        must(journal_.call("Cancelar_Deposito", {deposit->folio}));
        leave_deposit(*deposit);
    }

    void leave_deposit(Document& deposit) {
        for (Document& receipt : receipts_) {
            if (receipt.deposit == deposit.folio) receipt.deposit.clear();
        }
        undone(deposit);
    }

    void undo_receipt(const Step& step) {
        Document* receipt = pick(receipts_, step.a, [&](const Document& each) {
            return companions(each) == 0 && deposit_of_first_line(each) == each.deposit;
        });
        if (receipt == nullptr) return;
        must(journal_.call("Cancelar_Recibo_Caja", {receipt->folio, true, true}));
        Document* deposit = nullptr;
        for (Document& each : deposits_) {
            if (each.live && each.folio == receipt->deposit) deposit = &each;
        }
        if (deposit != nullptr) {
            for (const auto& [name, amount] : deposit->moved) receipt->moved[name] += amount;
            deposit->moved.clear();
            deposit->live = false;
            receipt->deposit.clear();
        }
        undone(*receipt);
    }

    /// Receipts that share the deposit of this one: it cannot be cancelled while there are any.
    std::size_t companions(const Document& receipt) {
        if (receipt.deposit.empty()) return 0;
        std::size_t sharing = 0;
        for (const Document& each : receipts_) sharing += each.live && each.deposit == receipt.deposit;
        return sharing - 1;
    }

    /// The cancellation looks at the first line alone: a deposit that took only later lines stays, as callers know it.
    std::string deposit_of_first_line(const Document& receipt) {
        return company_.scalar("SELECT Rp_Folio_Deposito FROM Recibo_Pago WHERE Rp_Folio = '" + receipt.folio +
                               "' ORDER BY Rp_Id LIMIT 1");
    }

    void undo_application(const Step& step) {
        Document* check = pick(checks_, step.a, [](const Document& each) { return each.applied; });
        if (check == nullptr) return;
        must(journal_.call("Cancelar_Aplicacion_Cheque", {check->folio}));
        check->applied = false;
        moved_by(*check);
    }

    void undo_check(const Step& step) {
        Document* check = pick(checks_, step.a);
        if (check == nullptr) return;
        must(journal_.call("Cancelar_Cheque", {check->folio}));
        undone(*check);
    }

    void undo_request(const Step& step) {
        Document* request = pick(requests_, step.a);
        if (request == nullptr) return;
        must(journal_.call("Cancelar_Solicitud_Cheque", {request->folio}));
        undone(*request);
    }

    void undo_movement(const Step& step) {
        Document* movement = pick(movements_, step.a);
        if (movement == nullptr) return;
        must(journal_.call("Cancelar_Movimiento_Bancos", {movement->folio}));
        undone(*movement);
    }

    // ---- What must hold ---------------------------------------------------------------------------------------------

    void must(bool done) {
        if (!done) throw Violation("refused: " + journal_.get("Error").get<std::string>());
    }

    void made(std::vector<Document>& documents, Document document) {
        moved_by(document);
        documents.push_back(std::move(document));
    }

    /// Takes what moved since the last look for the work of this document.
    void moved_by(Document& document) {
        for (const auto& [name, amount] : settle()) document.moved[name] += amount;
    }

    void undone(Document& document) {
        moved_by(document);
        document.live = false;
        for (const auto& [name, amount] : document.moved) {
            if (std::fabs(amount) >= 0.005) {
                throw Violation(document.folio + " was taken back, but " + name + " is off by " + number_text(amount));
            }
        }
    }

    /// What moved since the last look.
    Balances settle() {
        const Balances now = balances();
        Balances moved;
        for (const auto& [name, amount] : now) moved[name] += amount;
        for (const auto& [name, amount] : before_) moved[name] -= amount;
        before_ = now;

        for (const auto& [table, count] : row_counts()) {
            if (count < rows_[table]) throw Violation("a row of " + table + " is gone");
            rows_[table] = count;
        }
        return moved;
    }

    Balances balances() {
        Balances found;
        const auto add = [&](const char* query) {
            for (const std::string& row : company_.rows(query)) {
                const auto bar = row.find('|');
                found[row.substr(0, bar)] = std::strtod(row.c_str() + bar + 1, nullptr);
            }
        };
        add("SELECT 'account ' || Bc_Cve_Banco_Cuenta, Bc_Saldo FROM Banco_Cuenta");
        add("SELECT 'bank ' || Bn_Cve_Banco, Bn_Saldo FROM Banco");
        add("SELECT 'receivable ' || Cxc_Folio, Cxc_Precio_Neto_Saldo FROM Cuenta_x_Cobrar WHERE Es_Cve_Estado <> 'CA' "
            "AND "
            "Cxc_Tabla NOT LIKE '%-CA:%'");
        add("SELECT 'payable ' || Cxp_Folio, Cxp_Precio_Neto_Saldo FROM Cuenta_x_Pagar WHERE Es_Cve_Estado <> 'CA' AND "
            "Cxp_Tabla NOT LIKE '%-CA:%'");
        add("SELECT 'advance ' || An_Folio, An_Importe FROM Anticipo_Cxc WHERE Es_Cve_Estado <> 'CA'");
        for (const char* account : {"SRR-MXN", "SRR-USD", "PTO-MXN", "PTO-USD"}) {
            const double asked = company_.treasury().GetSaldo(account);
            if (std::fabs(asked - found[std::string("account ") + account]) >= 0.005) {
                throw Violation(std::string("GetSaldo of ") + account + " is " + number_text(asked));
            }
        }
        return found;
    }

    std::map<std::string, long> row_counts() {
        std::map<std::string, long> counts;
        for (const char* table :
             {"Recibo_Pago", "Deposito_Pago", "Banco_Movimiento", "Cheque", "Cheque_x_Aplicar", "Solicitud_Cheque",
              "Solicitud_Cheque_Detalle", "Gasto_x_Comprobar", "Cuenta_x_Cobrar", "Cuenta_x_Pagar", "Pago_Cxc",
              "Pago_Cxp", "Anticipo_Cxc", "Poliza", "Poliza_Detalle"}) {
            counts[table] = std::stol(company_.scalar(std::string("SELECT COUNT(*) FROM ") + table));
        }
        return counts;
    }

    std::string state_of(const Document& check) {
        return company_.scalar("SELECT Es_Cve_Estado FROM Cheque WHERE Ch_Folio = '" + check.folio + "'");
    }

    /// One of the live documents that qualify, or null.
    static Document* pick(
        std::vector<Document>& documents, unsigned choice,
        const std::function<bool(const Document&)>& qualifies = [](const Document&) { return true; }) {
        std::vector<Document*> candidates;
        for (Document& each : documents) {
            if (each.live && qualifies(each)) candidates.push_back(&each);
        }
        return candidates.empty() ? nullptr : candidates[choice % candidates.size()];
    }

    static double cents(unsigned number) { return (100 + number % 20'000) / 100.0; }

    Company company_;
    Journal journal_;
    Balances before_;
    std::map<std::string, long> rows_;
    std::vector<Document> receipts_, deposits_, checks_, requests_, movements_;
    int reference_ = 0;
};

struct Failure {
    std::string what;
    std::string script;
};

/// Nothing when the whole sequence holds.
std::optional<Failure> failure_of(const Sequence& sequence, bool posting) {
    Run run(posting);
    try {
        for (const Step& step : sequence) run.take(step);
        run.finish();
        return std::nullopt;
    } catch (const std::exception& violation) {
        return Failure{violation.what(), run.script()};
    }
}

/// Leaves out ever smaller pieces as long as what remains still fails.
Sequence shrunk(Sequence sequence, const std::function<bool(const Sequence&)>& fails) {
    for (std::size_t piece = sequence.size() / 2; piece > 0; piece /= 2) {
        for (std::size_t from = 0; from + piece <= sequence.size();) {
            Sequence shorter = sequence;
            shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(from),
                          shorter.begin() + static_cast<std::ptrdiff_t>(from + piece));
            if (fails(shorter)) {
                sequence = std::move(shorter);
            } else {
                from += piece;
            }
        }
    }
    return sequence;
}

void keep_script(const Sequence& sequence, bool posting, const std::string& path) {
    Run run(posting);
    for (const Step& step : sequence) run.take(step);
    std::ofstream(path) << run.script();
}

class Round_trips : public ::testing::TestWithParam<unsigned> {};

TEST_P(Round_trips, every_cancellation_gives_back_what_its_document_moved) {
    const char* only = std::getenv("CUVEXA_SEED");
    const unsigned seed = only != nullptr ? static_cast<unsigned>(std::strtoul(only, nullptr, 10)) : GetParam();
    const bool posting = seed % 2 == 0;
    RecordProperty("seed", static_cast<int>(seed));
    const Sequence sequence = random_sequence(seed);
    if (!failure_of(sequence, posting)) {
        if (const char* folder = std::getenv("CUVEXA_SCRIPTS")) {
            keep_script(sequence, posting, std::string(folder) + "/seed_" + std::to_string(seed) + ".jsonl");
        }
        return;
    }

    const Sequence shortest =
        shrunk(sequence, [&](const Sequence& shorter) { return failure_of(shorter, posting).has_value(); });
    const Failure failure = failure_of(shortest, posting).value();
    ADD_FAILURE() << "seed " << seed << ", " << shortest.size() << " steps: " << failure.what
                  << "\nReplay on a fresh sample company"
                  << (posting ? ", with posting of RECIBO_PAGO, BANCO_MOVIMIENTO, DEPOSITO_PAGO and CHEQUE on" : "")
                  << ", by: cuvexa rpc --db FILE --server-date 2024-03-15T10:20:30\n"
                  << failure.script;
}

INSTANTIATE_TEST_SUITE_P(Seeds, Round_trips, ::testing::Range(1u, sequences + 1u),
                         [](const auto& info) { return "seed_" + std::to_string(info.param); });

TEST(Shrinking, leaves_only_the_steps_without_which_nothing_fails) {
    Sequence sequence(100, Step{Act::receipt, 0, 0, 0});
    sequence[13].act = Act::check;
    sequence[71].act = Act::undo_check;
    const auto fails = [](const Sequence& steps) {
        bool checked = false, undone = false;
        for (const Step& step : steps) {
            checked |= step.act == Act::check;
            undone |= checked && step.act == Act::undo_check;
        }
        return undone;
    };
    const Sequence shortest = shrunk(sequence, fails);
    ASSERT_EQ(shortest.size(), 2u);
    EXPECT_EQ(shortest[0].act, Act::check);
    EXPECT_EQ(shortest[1].act, Act::undo_check);
}

}  // namespace
}  // namespace cuvexa::tests
