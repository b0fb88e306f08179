// Rules of the house, checked on the sources themselves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/places.h"

namespace cuvexa::tests {
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;

struct Source {
    std::string path;  ///< from the root, "src/core/date.cpp"
    std::string room;  ///< "core", "database/sqlite", or "include/cuvexa"
    std::string text;
};

// ---- Rooms ----------------------------------------------------------------------------------------------------------

const std::set<std::string> subsystems = {"receipts", "checks", "banks", "deposits", "requests", "advances", "dialogs"};
const std::set<std::string> engines = {"database/sqlite", "database/odbc", "database/postgresql"};
const std::set<std::string> doors = {"automation", "desktop", "service", "cli"};
const std::set<std::string> rooms_of_json = {"reports"};
const std::set<std::string> rooms_of_qt = {"paper"};

/// How far down a room stands; it may include what stands above it. Negative: there is no such room.
int depth_of(const std::string& room) {
    static const std::map<std::string, int> depths = {
        {"include/cuvexa", 0}, {"core", 1},  {"suite", 3},   {"database/dialect", 3}, {"database", 4},
        {"reports", 4},        {"paper", 5}, {"company", 6}, {"automation", 6},       {"desktop", 7},
        {"service", 7},        {"cli", 8},   {"com", 7},     {"com_suite", 8},        {"com_server", 9}};
    if (subsystems.contains(room)) return 2;
    if (engines.contains(room)) return 5;
    const auto depth = depths.find(room);
    return depth == depths.end() ? -1 : depth->second;
}

/// The room of a path from `src/` or of an include: the innermost folder that is a room.
std::string room_of(const std::string& path) {
    const auto first = path.find('/');
    const auto second = path.find('/', first + 1);
    const std::string inner = path.substr(0, second);
    if (second != std::string::npos && depth_of(inner) >= 0) return inner;
    const std::string outer = path.substr(0, first);
    return outer == "cuvexa" ? "include/cuvexa" : outer;
}

std::vector<Source> sources_under(const std::string& folder) {
    const fs::path root = tests::in_source("");
    std::vector<Source> sources;
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") continue;
        std::stringstream text;
        text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        const fs::path relative = fs::relative(entry.path(), root);
        const std::string path = relative.generic_string();
        sources.push_back({path, room_of(path.substr(path.find('/') + 1)), text.str()});
    }
    std::sort(sources.begin(), sources.end(), [](const Source& a, const Source& b) { return a.path < b.path; });
    return sources;
}

std::vector<Source> product() {
    std::vector<Source> all = sources_under("src");
    for (Source& source : sources_under("include")) all.push_back(std::move(source));
    return all;
}

std::string text_of(const std::string& path) {
    std::stringstream text;
    text << std::ifstream(tests::in_source(path), std::ios::binary).rdbuf();
    return text.str();
}

std::vector<std::string> includes_of(const Source& source) {
    static const std::regex line(R"(^[ \t]*#[ \t]*include[ \t]*([<"][^>"]+[>"]))", std::regex::multiline);
    std::vector<std::string> found;
    for (std::sregex_iterator at(source.text.begin(), source.text.end(), line), end; at != end; ++at) {
        found.push_back((*at)[1]);
    }
    return found;
}

// ---- Who may include whom -------------------------------------------------------------------------------------------

/// The rooms of Windows: what each of them sees is said one by one, and no other room sees any of them.
const std::map<std::string, std::set<std::string>> rooms_of_windows = {
    {"com", {"include/cuvexa"}},
    {"com_suite", {"include/cuvexa", "core", "database", "com"}},
    {"com_server", {"include/cuvexa", "core", "automation", "com", "com_suite"}},
};

/// The kit knows what values and failures are, and of the component nothing else.
const std::set<std::string> values_of_the_kit = {"cuvexa/date.h", "cuvexa/errors.h", "cuvexa/value.h"};

bool may_include_room(const std::string& room, const std::string& other) {
    if (room == other) return true;
    if (const auto seen = rooms_of_windows.find(room); seen != rooms_of_windows.end()) {
        return seen->second.contains(other);
    }
    return !rooms_of_windows.contains(other) && depth_of(other) >= 0 && depth_of(other) < depth_of(room);
}

bool is_standard_header(const std::string& name) {
    return std::all_of(name.begin(), name.end(),
                       [](unsigned char c) { return std::islower(c) != 0 || std::isdigit(c) != 0 || c == '_'; });
}

/// What the standard library lacks where a company's file is made: to bring its name to the disk.
bool is_file_system_header(const std::string& include) {
    return include == "<fcntl.h>" || include == "<unistd.h>" || include == "<sys/file.h>" ||
           include == "<sys/stat.h>" || include == "<io.h>";
}

/// Whether a header is one of the Windows system.
bool is_windows_header(const std::string& include) {
    static const std::regex name(
        R"(<(windows|win\w+|comm\w+|uxtheme|shell\w+|shlobj|ole\w*|oa\w+|obj\w+|unknwn|dispex)\.h>)",
        std::regex::icase);
    return std::regex_match(include, name);
}

bool may_include_others(const std::string& room, const std::string& include) {
    if (rooms_of_windows.contains(room)) return is_windows_header(include);
    if (rooms_of_json.contains(room)) return include == "<nlohmann/json.hpp>";
    if (rooms_of_qt.contains(room)) return include.starts_with("<Q");
    return engines.contains(room) || doors.contains(room) || (room == "company" && is_file_system_header(include));
}

/// Why a room may not include that; empty when it may.
std::string objection(const std::string& room, const std::string& include) {
    const std::string name = include.substr(1, include.size() - 2);
    if (include.front() == '<') {
        return is_standard_header(name) || may_include_others(room, include) ? "" : "a header of others";
    }
    if (name.find('/') == std::string::npos) return "";  // of its own folder
    const std::string other = room_of(name);
    if (room == "com" && other == "include/cuvexa" && !values_of_the_kit.contains(name)) return "more than values";
    return may_include_room(room, other) ? "" : "a room it may not see";
}

TEST(House, each_room_includes_only_what_stands_above_it) {
    std::vector<std::string> objections;
    std::size_t looked_at = 0;
    for (const Source& source : product()) {
        ASSERT_GE(depth_of(source.room), 0) << source.path << " stands in a room that the house does not have";
        for (const std::string& include : includes_of(source)) {
            ++looked_at;
            const std::string why = objection(source.room, include);
            if (!why.empty()) objections.push_back(source.path + ": " + include + ", " + why);
        }
    }
    EXPECT_THAT(objections, IsEmpty());
    EXPECT_GT(looked_at, 200u) << "the sources were not found";
}

TEST(House, the_include_rule_objects_to_what_it_should) {
    EXPECT_EQ(objection("receipts", "\"core/operation.h\""), "");
    EXPECT_EQ(objection("receipts", "<string>"), "");
    EXPECT_EQ(objection("database/sqlite", "<sqlite3.h>"), "");
    EXPECT_EQ(objection("database/odbc", "<sql.h>"), "");
    EXPECT_EQ(objection("database/odbc", "\"database/row_set.h\""), "");
    EXPECT_EQ(objection("database/postgresql", "<libpq-fe.h>"), "");
    EXPECT_EQ(objection("database", "\"database/dialect/lexer.h\""), "");
    EXPECT_EQ(objection("suite", "\"cuvexa/suite/reference_suite.h\""), "");
    EXPECT_EQ(objection("cli", "\"cuvexa/database/sqlite_connection.h\""), "");
    EXPECT_EQ(objection("core", "\"core/case.h\""), "");
    EXPECT_EQ(objection("company", "\"database/connection_string.h\""), "");
    EXPECT_EQ(objection("company", "<unistd.h>"), "");
    EXPECT_EQ(objection("cli", "\"company/engine.h\""), "");
    EXPECT_EQ(objection("paper", "<QPainter>"), "");
    EXPECT_EQ(objection("service", "\"paper/statement_form.h\""), "");
    EXPECT_NE(objection("paper", "<nlohmann/json.hpp>"), "");
    EXPECT_NE(objection("reports", "<QPainter>"), "");
    EXPECT_NE(objection("reports", "\"paper/statement_form.h\""), "");
    EXPECT_NE(objection("core", "\"receipts/x.h\""), "");
    EXPECT_NE(objection("core", "<sqlite3.h>"), "");
    EXPECT_NE(objection("suite", "<nlohmann/json.hpp>"), "");
    EXPECT_NE(objection("dialogs", "<QDialog>"), "");
    EXPECT_NE(objection("receipts", "\"banks/x.h\""), "");
    EXPECT_NE(objection("deposits", "\"suite/context.h\""), "");
    EXPECT_NE(objection("suite", "\"database/row_set.h\""), "");
    EXPECT_NE(objection("database", "<sqlite3.h>"), "");
    EXPECT_NE(objection("database", "\"database/sqlite/functions.h\""), "");
    EXPECT_NE(objection("database/dialect", "<sqlite3.h>"), "");
    EXPECT_NE(objection("database/dialect", "\"database/row_set.h\""), "");
    EXPECT_NE(objection("database/sqlite", "\"database/odbc/handle.h\""), "");
    EXPECT_NE(objection("database/postgresql", "\"database/sqlite/engine.h\""), "");
    EXPECT_NE(objection("company", "<libpq-fe.h>"), "");
    EXPECT_NE(objection("company", "<sqlite3.h>"), "");
    EXPECT_NE(objection("company", "\"automation/members.h\""), "");
    EXPECT_NE(objection("automation", "\"company/engine.h\""), "");
    EXPECT_NE(objection("suite", "\"company/engine.h\""), "");
    EXPECT_NE(objection("database", "\"company/engine.h\""), "");
    EXPECT_NE(objection("include/cuvexa", "\"core/operation.h\""), "");

    EXPECT_EQ(objection("com_suite", "\"com/late.h\""), "");
    EXPECT_EQ(objection("com_suite", "\"database/row_set.h\""), "");
    EXPECT_EQ(objection("com_server", "\"com_suite/automation_suite.h\""), "");
    EXPECT_EQ(objection("com_server", "\"automation/members.h\""), "");
    EXPECT_EQ(objection("com", "\"cuvexa/value.h\""), "");
    EXPECT_EQ(objection("com", "<oleauto.h>"), "");
    EXPECT_NE(objection("com", "\"cuvexa/tesoreria.h\""), "");
    EXPECT_NE(objection("com", "\"core/case.h\""), "");
    EXPECT_NE(objection("com", "\"automation/members.h\""), "");
    EXPECT_NE(objection("com", "\"com_suite/contract.h\""), "");
    EXPECT_NE(objection("com_server", "<nlohmann/json.hpp>"), "");
    EXPECT_NE(objection("com_suite", "\"com_server/identifiers.h\""), "");
    EXPECT_NE(objection("com_suite", "\"automation/members.h\""), "");
    EXPECT_NE(objection("com_server", "\"receipts/x.h\""), "");
    EXPECT_NE(objection("cli", "\"com/late.h\""), "");
    EXPECT_NE(objection("automation", "\"com_server/record_layout.h\""), "");
}

/// Whether a file may include headers of the Windows system.
bool may_see_windows(const Source& source) {
    return source.path.starts_with("src/desktop/win32/") || rooms_of_windows.contains(source.room);
}

TEST(House, windows_is_seen_by_its_own_rooms_alone) {
    std::vector<std::string> elsewhere;
    std::size_t inside = 0;
    for (const Source& source : product()) {
        for (const std::string& include : includes_of(source)) {
            if (!is_windows_header(include)) continue;
            ++inside;
            if (!may_see_windows(source)) elsewhere.push_back(source.path + ": " + include);
        }
    }
    EXPECT_THAT(elsewhere, IsEmpty());
    EXPECT_GT(inside, 0u) << "the rule knows no header";
    EXPECT_TRUE(is_windows_header("<Windows.h>"));
    EXPECT_TRUE(is_windows_header("<oleauto.h>"));
    EXPECT_TRUE(is_windows_header("<dispex.h>"));
    EXPECT_FALSE(is_windows_header("<string>"));
    EXPECT_TRUE(may_see_windows({"src/com/late.cpp", "com", ""}));
    EXPECT_TRUE(may_see_windows({"src/com_server/dll/server.cpp", "com_server", ""}));
    EXPECT_TRUE(may_see_windows({"src/com_suite/session.cpp", "com_suite", ""}));
    EXPECT_TRUE(may_see_windows({"src/desktop/win32/window.cpp", "desktop", ""}));
    EXPECT_FALSE(may_see_windows({"src/desktop/qt/window.cpp", "desktop", ""}));
    EXPECT_FALSE(may_see_windows({"src/automation/members.cpp", "automation", ""}));
}

// ---- Namespaces -----------------------------------------------------------------------------------------------------

/// The names that the headers of a room declare stand in its own namespace: short words are no caller's business. (What
/// they open of `cuvexa` itself holds declarations of what is public; see below.)
TEST(House, headers_declare_in_the_namespace_of_their_room) {
    const std::map<std::string, std::string> namespaces = {{"automation", "cuvexa::automation"},
                                                           {"cli", "cuvexa::cli"},
                                                           {"com", "cuvexa::com"},
                                                           {"com_server", "cuvexa::com_server"},
                                                           {"com_suite", "cuvexa::com_suite"},
                                                           {"company", "cuvexa::company"},
                                                           {"database", "cuvexa::database"},
                                                           {"database/dialect", "cuvexa::dialect"},
                                                           {"database/odbc", "cuvexa::odbc"},
                                                           {"database/postgresql", "cuvexa::postgresql"},
                                                           {"database/sqlite", "cuvexa::sqlite"},
                                                           {"desktop/qt", "cuvexa::qt"},
                                                           {"desktop/win32", "cuvexa::win32"},
                                                           {"dialogs", "cuvexa::dialogs"},
                                                           {"paper", "cuvexa::paper"},
                                                           {"reports", "cuvexa::reports"},
                                                           {"service", "cuvexa::service"},
                                                           {"suite", "cuvexa::reference"}};
    static const std::regex opening(R"(^namespace (cuvexa::\w+) \{)", std::regex::multiline);
    std::set<std::string> seen;
    for (const Source& source : product()) {
        if (!source.path.ends_with(".h") || source.room == "include/cuvexa" || source.room == "core") continue;
        const std::string folder = source.path.substr(4, source.path.rfind('/') - 4);
        const auto own = namespaces.find(source.room == "desktop" ? folder : source.room);
        ASSERT_NE(own, namespaces.end()) << source.path << " stands in a room without a namespace";
        std::smatch found;
        ASSERT_TRUE(std::regex_search(source.text, found, opening)) << source.path;
        EXPECT_EQ(found[1], own->second) << source.path;
        seen.insert(own->first);
    }
    EXPECT_EQ(seen.size(), namespaces.size());
}

// ---- Who may catch --------------------------------------------------------------------------------------------------

TEST(House, failures_are_caught_at_the_boundaries_alone) {
    const std::set<std::string> boundaries = {
        "src/core/operation.h",        // the frame of every operation
        "src/core/report.h",           // trapped accessors and dialogs
        "src/core/unit_of_work.cpp",   // an undoing that must not throw
        "src/suite/audit.cpp",         // a rule that the database cannot compute is a finding
        "src/suite/context.h",         // the services' own frame
        "src/suite/folio_series.cpp",  // a series that another session begins in the same moment
        "src/suite/ledger.cpp",        // a payment number that another session takes in the same moment
    };
    static const std::regex handler(R"(\bcatch\s*\()");
    std::vector<std::string> elsewhere;
    std::set<std::string> unused = boundaries;
    for (const Source& source : product()) {
        if (depth_of(source.room) > depth_of("suite")) continue;  // the doors and the engines
        if (!std::regex_search(source.text, handler)) continue;
        unused.erase(source.path);
        if (!boundaries.contains(source.path)) elsewhere.push_back(source.path);
    }
    EXPECT_THAT(elsewhere, IsEmpty());
    EXPECT_THAT(unused, IsEmpty()) << "a boundary that no longer catches can leave the list";
}

// ---- Names ----------------------------------------------------------------------------------------------------------

std::string without_comments(const std::string& text) {
    return std::regex_replace(text, std::regex("//[^\n]*"), "");
}

/// The name that a line at the left margin declares or defines; of a member its class. Empty when it declares none.
std::string declared_name(const std::string& line) {
    static const std::regex type(R"(^(?:enum class|class|struct|union|enum|using) (\w+))");
    static const std::regex entity(R"((\w+)(?:<[^()=]*>)?(?:::~?\w+)*(?:\[\w*\])?(?:\(| = |\{|;))");
    std::smatch found;
    if (line.empty() || (std::isalpha(static_cast<unsigned char>(line.front())) == 0 && line.front() != '[')) return {};
    if (line.starts_with("namespace") || line.starts_with("using namespace")) return {};
    if (std::regex_search(line, found, type) || std::regex_search(line, found, entity)) return found[1];
    return {};
}

/// The names that a source declares straight into the namespace `cuvexa`. The house's format keeps them at the left
/// margin.
std::set<std::string> declared_in_cuvexa(const Source& source) {
    static const std::regex opening(R"(^(?:inline )?namespace( [\w:]+)? \{$)");
    std::set<std::string> names;
    std::vector<std::string> open;
    std::istringstream lines(source.text);
    for (std::string line; std::getline(lines, line);) {
        std::smatch found;
        if (std::regex_search(line, found, opening)) {
            open.push_back(found[1]);
        } else if (line.starts_with("}  // namespace") && !open.empty()) {
            open.pop_back();
        } else if (open == std::vector<std::string>{" cuvexa"}) {
            if (const std::string name = declared_name(line); !name.empty()) names.insert(name);
        }
    }
    return names;
}

/// Whether a room may declare into `cuvexa`: what callers include, and the core.
bool is_public(const Source& source) {
    return source.room == "include/cuvexa" || source.room == "core";
}

/// All words of those.
std::set<std::string> public_words() {
    std::set<std::string> words;
    static const std::regex word(R"(\w+)");
    for (const Source& source : product()) {
        if (!is_public(source)) continue;
        const std::string text = without_comments(source.text);
        for (std::sregex_iterator at(text.begin(), text.end(), word), end; at != end; ++at) words.insert(at->str());
    }
    return words;
}

TEST(House, an_internal_room_declares_nothing_straight_into_the_public_namespace) {
    const std::set<std::string> known = public_words();
    std::vector<std::string> straight;
    std::size_t looked_at = 0;
    for (const Source& source : product()) {
        if (is_public(source)) continue;
        for (const std::string& name : declared_in_cuvexa(source)) {
            ++looked_at;
            if (!known.contains(name)) straight.push_back(source.path + ": " + name);
        }
    }
    EXPECT_THAT(straight, IsEmpty());
    EXPECT_GT(looked_at, 30u) << "the members of the operations were not found";
}

TEST(House, the_namespace_rule_sees_what_it_should) {
    const auto names = [](const std::string& text) { return declared_in_cuvexa({"src/x/x.cpp", "x", text}); };
    using ::testing::ElementsAre;
    EXPECT_THAT(names("namespace cuvexa {\n\nstd::string cut(int n);\n\n}  // namespace cuvexa\n"), ElementsAre("cut"));
    EXPECT_THAT(
        names("namespace cuvexa {\nnamespace {\n\nint word() {\n    return 1;\n}\n\n}  // namespace\n\n"
              "bool Tesoreria::Nuevo() {\n    return cut(1);\n}\n\nclass Span;\nusing Run = int;\n"
              "inline constexpr int upper = 1;\ntemplate <class T>\nvoid append(T);\n\n}  // namespace cuvexa\n"),
        ElementsAre("Run", "Span", "Tesoreria", "append", "upper"));
    EXPECT_THAT(names("namespace cuvexa::suite {\n\nint word();\n\n}  // namespace cuvexa::suite\n"), IsEmpty());
    EXPECT_THAT(names("namespace cuvexa {\nnamespace x {\n\nint word();\n\n}  // namespace x\n\nint y();\n"),
                ElementsAre("y"));
}

TEST(House, codes_have_names) {
    static const std::regex code(
        R"re("(AC|PXA|AP|DP|AD|TR|FI|PA|CE|CA|BA|AB|0[1-5]|RECIBO_PAGO|DEPOSITO_PAGO|BANCO_MOVIMIENTO|CHEQUE)re"
        R"re(|SOLICITUD_CHEQUE|GASTO_X_COMPROBAR|GASTO_REGISTRO|ANTICIPO_CX[CP]|CUENTA_X_COBRAR|PAGO_CXC|CUENTA_X_PAGAR|POLIZA)")re");
    std::vector<std::string> bare;
    for (const Source& source : product()) {
        if (source.room != "core" && source.room != "suite" && !subsystems.contains(source.room)) continue;
        if (source.path == "src/core/codes.h" || source.path == "src/suite/folio_series.cpp") {
            continue;  // names; prefixes
        }
        const std::string text = without_comments(source.text);
        for (std::sregex_iterator at(text.begin(), text.end(), code), end; at != end; ++at) {
            bare.push_back(source.path + ": " + at->str());
        }
    }
    EXPECT_THAT(bare, IsEmpty()) << "core/codes.h names them";
}

TEST(House, only_the_frames_throw_refusals) {
    static const std::regex thrown(R"(throw Refusal\b)");
    std::vector<std::string> found;
    for (const Source& source : product()) {
        if (std::regex_search(source.text, thrown)) found.push_back(source.path);
    }
    EXPECT_THAT(found, ::testing::UnorderedElementsAre("src/core/operation.h", "src/suite/context.h"));
}

// ---- Numbers and texts ----------------------------------------------------------------------------------------------

TEST(House, subsystems_leave_numbers_to_the_one_conversion_and_never_format_by_locale) {
    static const std::regex conversion(
        R"(\b(ostringstream|stringstream|setprecision|snprintf|sprintf|stod|strtod|atof|localeconv)\b)");
    std::vector<std::string> found;
    for (const Source& source : product()) {
        if (subsystems.contains(source.room) && std::regex_search(source.text, conversion)) {
            found.push_back(source.path);
        }
    }
    EXPECT_THAT(found, IsEmpty());
}

TEST(House, no_operation_opens_a_transaction) {
    static const std::regex transaction(R"((BEGIN|COMMIT|ROLLBACK) TRAN)", std::regex::icase);
    std::vector<std::string> found;
    for (const Source& source : product()) {
        if (subsystems.contains(source.room) && std::regex_search(source.text, transaction)) {
            found.push_back(source.path);
        }
    }
    EXPECT_THAT(found, IsEmpty());
}

// ---- One class, every member ----------------------------------------------------------------------------------------

TEST(House, the_public_members_of_the_class_stand_in_the_published_order) {
    const std::string header = text_of("include/cuvexa/tesoreria.h");
    const char* const published[] = {"FolioMovimiento",
                                     "Cancelar_Deposito",
                                     "Error",
                                     "Validar_Forma_Pago",
                                     "Dp_Folio",
                                     "Ch_Banco_Destino",
                                     "NuevoReciboCaja",
                                     "FinReciboCaja",
                                     "RpEncabezado",
                                     "RpDetalle",
                                     "Add_Recibo_Caja_Detalle",
                                     "Encabezado",
                                     "Detalle",
                                     "Nuevo",
                                     "Add_Cheque_Detalle",
                                     "Crear_Cheque_Pago_Proveedor",
                                     "Crear_Cheque_Devolucion_Anticipo",
                                     "Crear_Cheque_Anticipo_Cxp",
                                     "Crear_Cheque_Devolucion_Cliente",
                                     "Crear_Cheque_Gasto_x_Comprobar",
                                     "Crear_Cheque_Deudor",
                                     "Cancelar_Cheque",
                                     "Aplicar_Cheque",
                                     "Registra_Movimiento_Bancario_Cheque",
                                     "Registra_Movimiento_Banco",
                                     "Cancelar_Documento_Bancos",
                                     "Cancelar_Aplicacion_Cheque",
                                     "Crear_Cheque",
                                     "Registrar_Deposito_Recibo_Caja",
                                     "Genera_Deposito",
                                     "GetSaldo",
                                     "PedirDatosDeposito",
                                     "Cancelar_Movimiento_Bancos",
                                     "Cancelar_Recibo_Caja",
                                     "Crear_Traspaso_Cuenta_Propia",
                                     "Finalizar_Cheque",
                                     "SchEncabezado",
                                     "SchDetalle",
                                     "Add_Solicitud_Cheque",
                                     "Add_Solicitud_Cheque_Detalle",
                                     "Autorizar_Solicitud_Cheque",
                                     "Cancelar_Solicitud_Cheque",
                                     "Afectar_Cheque_Presupuesto",
                                     "PedirDatosFormaPago",
                                     "RpDetalle2"};
    std::size_t at = header.find("class Tesoreria {");
    ASSERT_NE(at, std::string::npos);
    const std::string members = std::regex_replace(header.substr(at), std::regex("//[^\n]*"), "");
    at = 0;
    for (const char* const member : published) {
        std::smatch found;
        const std::string rest = members.substr(at);
        ASSERT_TRUE(std::regex_search(rest, found, std::regex(std::string("\\b") + member + "[(;]")))
            << member << " does not follow the member before it";
        at += static_cast<std::size_t>(found.position(0));
    }
}

// ---- Texts that callers read ----------------------------------------------------------------------------------------

TEST(House, each_source_tag_is_written_in_one_place_under_the_name_of_its_member) {
    static const std::regex tag("(under\\()?\"(Cuvexa\\.dll - )(\\w+)\\(\\)( ?)\"");
    std::map<std::string, int> times;
    for (const Source& source : product()) {
        if (!subsystems.contains(source.room)) continue;
        for (std::sregex_iterator at(source.text.begin(), source.text.end(), tag), end; at != end; ++at) {
            const std::string member = (*at)[3];
            EXPECT_NE(text_of("include/cuvexa/tesoreria.h").find(member), std::string::npos)
                << source.path << " tags with a member that the class does not have: " << member;
            const bool speaks_for_another = (*at)[1].matched;
            if (!speaks_for_another) ++times[member];
        }
    }
    EXPECT_GT(times.size(), 15u);
    for (const auto& [text, count] : times) EXPECT_EQ(count, 1) << text;
}

TEST(House, sources_are_plain_text_without_tabs_or_blanks_at_line_ends) {
    std::vector<std::string> found;
    for (const std::string folder : {"src", "include", "tests"}) {
        for (const Source& source : sources_under(folder)) {
            const bool ends_well = !source.text.empty() && source.text.back() == '\n';
            if (!ends_well || source.text.find('\t') != std::string::npos ||
                source.text.find('\r') != std::string::npos || source.text.find(" \n") != std::string::npos) {
                found.push_back(source.path);
            }
        }
    }
    EXPECT_THAT(found, IsEmpty());
}

}  // namespace
}  // namespace cuvexa::tests
