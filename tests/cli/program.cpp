#include "cli/program.h"
#include "support/places.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace cuvexa::tests {

namespace {

const std::string program_path = in_build("bin/cuvexa");

}  // namespace

std::string read_file(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

void write_file(const std::filesystem::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

std::vector<nlohmann::json> json_lines(const std::string& text) {
    std::vector<nlohmann::json> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty()) lines.push_back(nlohmann::json::parse(line));
    }
    return lines;
}

void Program::SetUp() {
    std::string name = (std::filesystem::temp_directory_path() / "cuvexa-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    folder = name;
}

void Program::TearDown() {
    std::filesystem::remove_all(folder);
}

Outcome Program::run(const std::string& arguments, const std::string& input) {
    write_file(folder / ".in", input);
    const std::string line =
        "cd '" + folder.string() + "' && '" + program_path + "' " + arguments + " <.in >.out 2>.err";
    const int status = std::system(line.c_str());
    Outcome outcome;
    outcome.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    outcome.out = read_file(folder / ".out");
    outcome.err = read_file(folder / ".err");
    return outcome;
}

std::string Program::output_of(const std::string& arguments, const std::string& input) {
    const Outcome outcome = run(arguments, input);
    EXPECT_EQ(outcome.code, 0) << "cuvexa " << arguments << '\n' << outcome.err;
    EXPECT_EQ(outcome.err, "") << "cuvexa " << arguments;
    return outcome.out;
}

nlohmann::json Program::shown(const std::string& view_and_options) {
    return nlohmann::json::parse(output_of("show " + view_and_options + " --json --db company.db"));
}

void Program::make_company() {
    output_of("init --db company.db --sample --synchronous off");
}

Rpc_session::Rpc_session(const std::filesystem::path& folder, const std::vector<std::string>& arguments) {
    int down[2], up[2];
    // Closed in other children: an end that a second session holds open would keep the first from ending.
    if (pipe2(down, O_CLOEXEC) != 0 || pipe2(up, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    process_ = fork();
    if (process_ == 0) {
        dup2(down[0], 0);
        dup2(up[1], 1);
        if (chdir(folder.c_str()) != 0) _exit(127);
        std::vector<char*> words{const_cast<char*>("cuvexa"), const_cast<char*>("rpc")};
        for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        execv(program_path.c_str(), words.data());
        _exit(127);
    }
    signal(SIGPIPE, SIG_IGN);
    close(down[0]);
    close(up[1]);
    to_ = fdopen(down[1], "w");
    from_ = fdopen(up[0], "r");
}

Rpc_session::~Rpc_session() {
    finish();
    if (from_) fclose(from_);
}

nlohmann::json Rpc_session::ask(const std::string& method, const nlohmann::json& params) {
    const nlohmann::json request{{"jsonrpc", "2.0"}, {"id", next_id_++}, {"method", method}, {"params", params}};
    fprintf(to_, "%s\n", request.dump().c_str());
    fflush(to_);
    char* line = nullptr;
    std::size_t size = 0;
    const ssize_t length = getline(&line, &size, from_);
    const std::string answer(line ? line : "", length > 0 ? static_cast<std::size_t>(length) : 0);
    free(line);
    return answer.empty() ? nlohmann::json() : nlohmann::json::parse(answer);
}

nlohmann::json Rpc_session::call(const std::string& member, const nlohmann::json& arguments) {
    const auto answer = ask("call", {{"object", 1}, {"member", member}, {"args", arguments}});
    EXPECT_TRUE(answer.contains("result")) << answer;
    return answer.contains("result") ? answer["result"]["value"] : nlohmann::json();
}

nlohmann::json Rpc_session::get(const std::string& member) {
    const auto answer = ask("get", {{"object", 1}, {"member", member}});
    EXPECT_TRUE(answer.contains("result")) << answer;
    return answer.contains("result") ? answer["result"]["value"] : nlohmann::json();
}

void Rpc_session::let(const std::string& member, const nlohmann::json& value) {
    const auto answer = ask("let", {{"object", 1}, {"member", member}, {"value", value}});
    EXPECT_TRUE(answer.contains("result")) << answer;
}

void Rpc_session::kill_now() {
    kill(process_, SIGKILL);
    finish();
}

int Rpc_session::finish() {
    if (to_) fclose(to_);
    to_ = nullptr;
    if (process_ <= 0) return -1;
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace cuvexa::tests
