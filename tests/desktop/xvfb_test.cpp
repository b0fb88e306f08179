// The program's dialogs on a real display of their own, driven by keys from outside. Pictures are kept in screenshots/
// of the build directory.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/suite/reference_suite.h"
#include "cuvexa/tesoreria.h"
#include "support/company.h"
#include "support/places.h"
#include "support/programs.h"

namespace cuvexa::tests {
namespace {

namespace fs = std::filesystem;

/// A display that nobody else uses, of the size of a small office screen.
class X_server {
public:
    explicit X_server(const std::string& size) {
        std::array<int, 2> pipe_ends{};
        if (pipe(pipe_ends.data()) != 0) throw std::runtime_error("no pipe");
        child_ = fork();
        if (child_ == 0) {
            close(pipe_ends[0]);
            const std::string descriptor = std::to_string(pipe_ends[1]);
            const std::string screen = size + "x24";
            if (!std::freopen("/dev/null", "w", stderr)) _exit(127);
            execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", screen.c_str(), "-nolisten", "tcp",
                   nullptr);
            _exit(127);
        }
        close(pipe_ends[1]);
        char c = 0;
        while (read(pipe_ends[0], &c, 1) == 1 && c != '\n') display_ += c;
        close(pipe_ends[0]);
        if (display_.empty()) throw std::runtime_error("Xvfb did not start");
        display_ = ":" + display_;
    }
    ~X_server() {
        kill(child_, SIGTERM);
        waitpid(child_, nullptr, 0);
    }
    X_server(const X_server&) = delete;
    X_server& operator=(const X_server&) = delete;

    const std::string& display() const { return display_; }

private:
    pid_t child_ = -1;
    std::string display_;
};

std::string read_file(const fs::path& path) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

class Real_window : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* const program : {"Xvfb", "xdotool", "import"}) CUVEXA_NEEDS_PROGRAM(program);
        if (!fs::exists(tests::in_build("bin/cuvexa"))) GTEST_SKIP() << "there is no program cuvexa";
        folder_ = fs::temp_directory_path() / ("cuvexa-window-" + std::to_string(getpid()));
        fs::create_directories(folder_);
        fs::create_directories(pictures_);
        database_ = folder_ / "sample.db";
        ASSERT_EQ(std::system((program_ + " init --sample --db " + database_.string() + " > /dev/null").c_str()), 0);
    }

    void TearDown() override {
        server_.reset();  // a program that still waits for its user ends with its display
        if (running_.joinable()) running_.join();
        if (!folder_.empty()) fs::remove_all(folder_);
    }

    /// Starts the program on the display, without waiting for it.
    void start(const std::string& arguments, const std::string& environment = "",
               const std::string& size = "1280x960") {
        server_ = std::make_unique<X_server>(size);
        const std::string command = "env -u QT_QPA_PLATFORM -u WAYLAND_DISPLAY XDG_RUNTIME_DIR=" + folder_.string() +
                                    " DISPLAY=" + server_->display() + " " + environment + " timeout 60 " + program_ +
                                    " dialog " + arguments + " --db " + database_.string() +
                                    " --server-date 2024-03-15 > " + out().string() + " 2> " +
                                    (folder_ / "err").string();
        running_ = std::thread([this, command] { status_ = std::system(command.c_str()); });
    }

    /// What the program printed, after it ended.
    std::string answer() {
        running_.join();
        EXPECT_EQ(WEXITSTATUS(status_), 0) << read_file(folder_ / "err");
        return read_file(out());
    }

    /// Waits until the window of that title is there and has the keyboard.
    void window(const std::string& title) {
        ASSERT_EQ(tool("timeout 30 xdotool search --sync --onlyvisible --name '^" + title + "$' > " +
                       (folder_ / "window").string()),
                  0)
            << "no window " << title;
        const std::string has_keyboard = "xdotool getwindowfocus getwindowname 2> /dev/null | grep -qx '" + title + "'";
        for (int tries = 0; tool(has_keyboard) != 0; ++tries) {
            ASSERT_LT(tries, 300) << title << " has not got the keyboard";
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        if (geometry_.empty()) geometry_ = read_geometry();
    }
    void keys(const std::string& names) { EXPECT_EQ(tool("xdotool key --delay 40 " + names), 0); }
    void type(const std::string& text) { EXPECT_EQ(tool("xdotool type --delay 25 '" + text + "'"), 0); }

    /// Keeps a picture of the window that was met first, with all that stands over it.
    void picture(const std::string& name) {
        settle();
        const std::string file = (pictures_ / (name + ".png")).string();
        EXPECT_EQ(tool("import -window root -crop " + geometry_ + " +repage " + file), 0);
        EXPECT_GT(fs::file_size(file), 2000u);
    }

    std::string read_geometry() {
        EXPECT_EQ(tool("xdotool getwindowgeometry --shell $(tail -1 " + (folder_ / "window").string() + ") > " +
                       (folder_ / "geometry").string()),
                  0);
        std::map<std::string, std::string> values;
        std::istringstream lines(read_file(folder_ / "geometry"));
        for (std::string line; std::getline(lines, line);) {
            const auto equals = line.find('=');
            values[line.substr(0, equals)] = line.substr(equals + 1);
        }
        width_ = std::stoi(values["WIDTH"]);
        height_ = std::stoi(values["HEIGHT"]);
        x_ = std::stoi(values["X"]);
        y_ = std::stoi(values["Y"]);
        return values["WIDTH"] + "x" + values["HEIGHT"] + "+" + values["X"] + "+" + values["Y"];
    }

    int tool(const std::string& command) {
        return std::system(("DISPLAY=" + server_->display() + " " + command).c_str());
    }

    /// Only for pictures: what is asserted never depends on it.
    static void settle() { std::this_thread::sleep_for(std::chrono::milliseconds(500)); }

    fs::path out() const { return folder_ / "out"; }

    const std::string program_ = tests::in_build("bin/cuvexa");
    const fs::path pictures_ = tests::in_build("screenshots");
    fs::path folder_;
    fs::path database_;
    std::unique_ptr<X_server> server_;
    std::thread running_;
    int status_ = -1;
    std::string geometry_;
    int width_ = 0, height_ = 0, x_ = 0, y_ = 0;
};

TEST_F(Real_window, the_deposit_is_refused_then_answered) {
    start("deposit --firm");
    window("Depósito a banco");
    type("srr-usd");
    keys("Return");
    picture("deposit-refused-key");
    keys("F4");
    window("Cuvexa");
    picture("deposit-refusing");
    keys("Return");
    window("Depósito a banco");
    keys("ctrl+a");
    type("srr-mxn");
    keys("Return Return");
    type("18");
    keys("Tab");
    picture("deposit-filled");
    keys("space");
    EXPECT_EQ(answer(), "SRR-MXN|2024-03-18|1\n");
}

TEST_F(Real_window, the_account_is_chosen_from_the_list) {
    start("deposit");
    window("Depósito a banco");
    keys("F2");
    window("Cuentas de banco");
    type("puerto");
    keys("Down");
    geometry_ = read_geometry();
    picture("deposit-list");
    keys("Return");
    window("Depósito a banco");
    keys("F4");
    EXPECT_EQ(answer(), "PTO-MXN|2024-03-15|0\n");
}

TEST_F(Real_window, the_data_of_a_transfer_is_refused_then_answered) {
    start("payment-method 03 --table CLIENTE --document CL01");
    window("Datos de la forma de pago");
    type("SIERRA");
    keys("Return");
    type("0123");
    keys("Return F4");
    window("Cuvexa");
    keys("Return");
    window("Datos de la forma de pago");
    type("0901000123");
    keys("F4");
    window("Cuvexa");
    picture("payment-method-refusing");
    keys("Return");
    window("Datos de la forma de pago");
    type("TR-20240315");
    keys("Return");
    picture("payment-method-filled");
    keys("space");
    EXPECT_EQ(answer(), "Banco de la Sierra|TR-20240315|0901000123|SIERRA\n");
}

TEST_F(Real_window, esc_cancels_and_prints_an_empty_line) {
    start("deposit");
    window("Depósito a banco");
    type("srr-mxn");
    keys("Return Escape");
    EXPECT_EQ(answer(), "\n");
}

TEST_F(Real_window, at_twice_the_size_all_of_it_is_on_the_screen) {
    start("payment-method 03 --table CLIENTE --document CL01", "QT_SCALE_FACTOR=2", "1920x1080");
    window("Datos de la forma de pago");
    picture("payment-method-200");
    EXPECT_GT(width_, 1000);
    EXPECT_GE(x_, 0);
    EXPECT_GE(y_, 0);
    EXPECT_LE(x_ + width_, 1920);
    EXPECT_LE(y_ + height_, 1080);
    keys("Escape");
    EXPECT_EQ(answer(), "\n");
}

TEST_F(Real_window, receipts_are_deposited_with_the_answer) {
    std::string receipt;
    {
        Sqlite_connection connection(database_.string());
        Module module(
            std::make_shared<Reference_suite>(connection, Suite_options{.server_date = make_date(2024, 3, 15)}));
        Tesoreria treasury(module);
        treasury.NuevoReciboCaja();
        treasury.RpEncabezado(Company::receipt_header());
        treasury.RpDetalle(Company::receipt_line(100));
        ASSERT_TRUE(treasury.Add_Recibo_Caja_Detalle()) << treasury.Error();
        receipt = treasury.RpEncabezado().Rp_Folio;
    }
    start("deposit --receipts " + receipt);
    window("Depósito a banco");
    type("srr-mxn");
    keys("Return space F4");
    const std::string printed = answer();
    EXPECT_EQ(printed.substr(0, printed.find('\n')), "SRR-MXN|2024-03-15|1");
    Sqlite_connection connection(database_.string());
    const auto row = connection.execute("SELECT Es_Cve_Estado FROM Recibo_Pago WHERE Rp_Folio = '" + receipt + "'");
    EXPECT_EQ(to_text(row->field("Es_Cve_Estado")), "DP");
}

TEST_F(Real_window, without_a_display_the_program_says_so) {
    const std::string command = "env -u QT_QPA_PLATFORM -u WAYLAND_DISPLAY -u DISPLAY " + program_ +
                                " dialog deposit --db " + database_.string() + " > " + out().string() + " 2> " +
                                (folder_ / "err").string();
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
    EXPECT_EQ(read_file(out()), "");
    EXPECT_EQ(read_file(folder_ / "err"),
              "No es posible mostrar el diálogo: no hay pantalla (DISPLAY y "
              "WAYLAND_DISPLAY "
              "están vacías).\n");
}

}  // namespace
}  // namespace cuvexa::tests
