// Every operation is interrupted at every statement of its and of the services. What is left is either harmless, so that
// the same call brings everything to where an undisturbed one does, or the audit names a document and says what to do; who
// follows that comes to a database that adds up. And where the call is simply repeated, what was doubled is found.
//
// A few statements of each operation by default; CUVEXA_WALK=whole takes every one and prints how many there were.
#include <cstdlib>
#include <iostream>

#include "interruptions/advice.h"
#include "interruptions/scenario.h"

namespace cuvexa::tests {
namespace {

using Findings = std::vector<Finding>;

bool whole() {
    return std::getenv("CUVEXA_WALK") != nullptr;
}

std::string told(const Findings& findings) {
    std::string text;
    for (const Finding& finding : findings) {
        text += "\n    " + finding.check + ": " + finding.document + ", " + finding.figures;
    }
    return text;
}

/// A company with what the scenario asks for. Time passes between what a caller does, else no stamp would tell what came
/// first.
class Stage {
public:
    explicit Stage(const Scenario& scenario) : scenario_(scenario) {
        for (const char* code : {"RECIBO_PAGO", "BANCO_MOVIMIENTO", "DEPOSITO_PAGO", "CHEQUE"}) {
            company.post_automatically(code);
        }
        if (scenario.given) scenario.given(company);
        a_minute_passes();
        company.mark();
    }

    bool call() { return scenario_.call(company); }

    /// The call up to its n-th statement. False: it has no n-th.
    bool interrupted_at(std::size_t n) {
        company.wire().fail_at(n);
        call();
        const bool met = company.wire().count() >= n;
        statement = met ? company.wire().texts()[n - 1] : "";
        if (scenario_.in_a_new_instance) company.restart();
        company.wire().clear();
        a_minute_passes();
        return met;
    }

    void a_minute_passes() { company.suite()->set_server_date(now_ = add_minutes(now_)); }

    Findings findings() { return audit(company.connection()); }

    /// The money and the documents in force, without folios and stamps.
    std::vector<std::string> books() {
        std::vector<std::string> all;
        const auto sums = [&](const std::string& table, const std::string& amount, const std::string& more = "''") {
            for (const std::string& row :
                 company.rows("SELECT Es_Cve_Estado, " + more + ", COUNT(*), ROUND(SUM(" + amount + "), 2) FROM " +
                              table + " WHERE Es_Cve_Estado <> 'CA' GROUP BY 1, 2 ORDER BY 1, 2")) {
                all.push_back(table + " " + row);
            }
        };
        sums("Recibo_Pago", "Rp_Importe", "Rp_Folio_Deposito <> ''");
        sums("Deposito_Pago", "Dp_Importe");
        sums("Banco_Movimiento", "Bm_Importe", "Bm_Fecha_Firme");
        sums("Cheque", "Ch_Importe");
        sums("Cheque_x_Aplicar", "Cxa_Importe", "Cxp_Folio <> ''");
        sums("Gasto_x_Comprobar", "Gc_Importe");
        sums("Gasto_x_Comprobar_Documento", "Cxc_Importe");
        sums("Solicitud_Cheque", "Sch_Importe");
        sums("Solicitud_Cheque_Detalle", "Scd_Importe");
        sums("Cuenta_x_Cobrar", "Cxc_Precio_Neto_Saldo", "Cxc_Tabla LIKE '%-CA:%'");
        sums("Cuenta_x_Pagar", "Cxp_Precio_Neto_Saldo", "Cxp_Tabla LIKE '%-CA:%'");
        sums("Pago_Cxc", "Pc_Importe");
        sums("Pago_Cxp", "Pc_Importe", "Bn_Cve_Banco");
        sums("Anticipo_Cxc", "An_Importe");
        sums("Poliza", "1", "Pz_Tabla");
        for (const std::string& row :
             company.rows("SELECT Bc_Cve_Banco_Cuenta, ROUND(Bc_Saldo, 2) FROM Banco_Cuenta")) {
            all.push_back(row);
        }
        for (const std::string& row : company.rows("SELECT Bn_Cve_Banco, ROUND(Bn_Saldo, 2) FROM Banco")) {
            all.push_back(row);
        }
        return all;
    }

    Company company;
    std::string statement;

private:
    static Date add_minutes(Date date) {
        const Calendar t = calendar(date);
        return make_date(t.year, t.month, t.day, t.hour + (t.minute + 1) / 60, (t.minute + 1) % 60, t.second);
    }

    const Scenario& scenario_;
    Date now_ = Company::now();
};

class Interrupted : public ::testing::TestWithParam<Scenario> {
protected:
    Interrupted() {
        Stage undisturbed(GetParam());
        before_ = told(undisturbed.findings());
        EXPECT_TRUE(undisturbed.call()) << undisturbed.company.treasury().Error();
        statements_ = undisturbed.company.wire().count();
        after_ = told(undisturbed.findings());
        books_ = undisturbed.books();
    }

    /// A document in capture, or one whose movements alone were cancelled, has a finding in its normal course.
    bool is_normal(const Findings& findings) const {
        const std::string text = told(findings);
        return text.empty() || text == before_ || text == after_;
    }

    /// The statements at which the walk stops: all, or about six, other ones for every operation.
    template <class Visit>
    void at_each_statement(Visit&& visit) {
        const std::size_t step = whole() ? 1 : statements_ / 6 + 1;
        for (std::size_t n = whole() ? 1 : 1 + GetParam().name.size() % step; n <= statements_; n += step) {
            Stage stage(GetParam());
            ASSERT_TRUE(stage.interrupted_at(n));
            SCOPED_TRACE("interrupted at statement " + std::to_string(n) + " of " + std::to_string(statements_) + ": " +
                         stage.statement.substr(0, 90));
            ++points_;
            visit(stage);
        }
        if (whole()) std::cout << GetParam().name << ": " << points_ << " points, " << found_ << " with findings\n";
    }

    void expect_advice(const Findings& findings) {
        ++found_;
        for (const Finding& finding : findings) {
            EXPECT_FALSE(finding.document.empty() || finding.figures.empty() || finding.remedy.empty())
                << finding.check;
        }
    }

    void follow_advice(Stage& stage) {
        const Desk desk{stage.company.treasury(), *stage.company.suite(), stage.company.connection()};
        const Followed followed = follow_to_the_end(desk, [&] {
            stage.a_minute_passes();
            return stage.findings();
        });
        EXPECT_EQ(told(followed.left), "") << "after:" << followed.told;
    }

    std::size_t statements_ = 0, points_ = 0, found_ = 0;
    std::string before_, after_;  ///< what is found before and after an undisturbed call
    std::vector<std::string> books_;
};

TEST_P(Interrupted, leaves_nothing_or_a_finding_whose_advice_puts_it_right) {
    at_each_statement([&](Stage& stage) {
        const Findings findings = stage.findings();
        if (is_normal(findings)) {
            if (stage.books() == books_) return;  // all was done but for the answer
            EXPECT_TRUE(stage.call()) << "nothing was found, and the call cannot be repeated: "
                                      << stage.company.treasury().Error();
            EXPECT_EQ(stage.books(), books_) << "nothing was found, and the repeated call does not end where it should";
            EXPECT_EQ(told(stage.findings()), after_);
            return;
        }
        expect_advice(findings);
        follow_advice(stage);
        stage.company.restart();
        // One that is refused may leave something again, and that is found.
        EXPECT_TRUE(!stage.call() || is_normal(stage.findings()))
            << told(stage.findings()) << "\nafter the advice was followed and the call made again";
    });
}

TEST_P(Interrupted, and_simply_repeated_has_what_was_doubled_found) {
    std::size_t unseen = 0;
    at_each_statement([&](Stage& stage) {
        const bool repeated = stage.call();
        stage.a_minute_passes();
        const Findings findings = stage.findings();
        if (GetParam().doubles_unseen(stage.statement)) {
            ++unseen;
            EXPECT_TRUE(stage.books() != books_ && is_normal(findings))
                << "nothing is doubled any more, or a rule tells it: it is no exception, here and in docs/audit.md";
            return;
        }
        if (stage.books() == books_ && is_normal(findings)) return;
        EXPECT_FALSE(is_normal(findings))
            << "the repeated call gave " << repeated << " (" << stage.company.treasury().Error()
            << "), the books differ, and nothing is found";
        expect_advice(findings);
        follow_advice(stage);
    });
    if (whole()) {
        EXPECT_EQ(unseen, GetParam().doubles_unseen_at.size()) << "an exception was not met";
    }
}

INSTANTIATE_TEST_SUITE_P(At_every_statement, Interrupted, ::testing::ValuesIn(scenarios()),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace cuvexa::tests
