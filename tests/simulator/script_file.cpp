#include "simulator/script_file.h"

#include <array>
#include <istream>
#include <ostream>
#include <stdexcept>

namespace cuvexa::simulator {
namespace {

constexpr std::array<const char*, 7> kinds = {"create", "call", "get", "let", "sql", "clock", "session"};

Step::Kind kind_named(const std::string& name) {
    for (std::size_t at = 0; at < kinds.size(); ++at) {
        if (kinds[at] == name) return static_cast<Step::Kind>(at);
    }
    throw std::runtime_error("no step is called " + name);
}

/// A text as one word of the shell.
std::string shell_word(const std::string& text) {
    std::string word = "'";
    for (const char c : text) word += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return word + "'";
}

constexpr auto beginning = R"(#!/bin/bash
# A difference between the component and its model, shown with: bash THIS_FILE [PROGRAM]
# PROGRAM is the program cuvexa; without it, that of the path. Needs the program sqlite3.
set -eu
cuvexa=${1:-cuvexa}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$cuvexa" init --db "$folder/company.db" --sample

# session OPTION...: begins a session; the one before ends.
session() {
    end
    coproc RPC { "$cuvexa" rpc --db "$folder/company.db" "$@"; }
    pid=$RPC_PID
}
end() {
    [ -n "${pid:-}" ] || return 0
    eval "exec ${RPC[1]}>&-"
    wait "$pid"
    pid=
}
# ask: sends the requests of its input one by one and shows each answer.
ask() {
    while IFS= read -r request; do
        printf '→ %s\n' "$request"
        printf '%s\n' "$request" >&"${RPC[1]}"
        IFS= read -r answer <&"${RPC[0]}"
        printf '← %s\n' "$answer"
    done
}
sql() {
    sqlite3 "$folder/company.db"
}

)";

/// Writes the steps in their order; requests that follow each other make one conversation.
class Session_writer {
public:
    Session_writer(const std::map<int, Made>& made, std::ostream& out) : made_(made), out_(out) {
        out_ << beginning << "session --user CAJA1 --server-date 2024-03-15T10:20:30\n";
    }

    void write(const Step& step) {
        switch (step.kind) {
            case Step::Kind::sql:
                finish_asking();
                out_ << "sql <<'SQL'\n" << resolved(step.name, made_) << ";\nSQL\n";
                break;
            case Step::Kind::clock:
                finish_asking();
                out_ << "# Here the server's date became " << iso_date(step.at) << ".\n";
                break;
            case Step::Kind::session:
                finish_asking();
                objects_.clear();
                out_ << "session --user " << shell_word(step.name) << " --server-date " << iso_date(step.at) << "\n";
                break;
            default:
                request(step);
        }
    }

    void finish_asking() {
        if (asking_) out_ << "JSON\n";
        asking_ = false;
    }

private:
    void request(const Step& step) {
        nlohmann::ordered_json params;
        if (step.kind == Step::Kind::create) {
            objects_.emplace(step.id, objects_.size() + 1);
            params["class"] = step.name;
        } else {
            if (!objects_.contains(step.object)) return;
            params["object"] = objects_.at(step.object);
            params["member"] = step.name;
            Json arguments = resolved(step.arguments, made_);
            for (Json& argument : arguments) {
                if (argument.is_object() && argument.contains("object")) {
                    argument["object"] = objects_[argument["object"].get<int>()];
                }
            }
            if (step.kind == Step::Kind::call) params["args"] = std::move(arguments);
            if (step.kind == Step::Kind::let) params["value"] = std::move(arguments.at(0));
        }
        if (step.fault) {
            finish_asking();
            out_ << "# What went wrong with the next call: " << name_of(step.fault->kind) << ", at " << step.fault->at
                 << (step.fault->atomic ? ", in a unit of work" : "") << ".\n";
        }
        ask(kinds[static_cast<std::size_t>(step.kind)], std::move(params));
        if (step.kind == Step::Kind::call) ask("get", {{"object", objects_.at(step.object)}, {"member", "Error"}});
    }

    void ask(const char* method, nlohmann::ordered_json params) {
        if (!asking_) out_ << "ask <<'JSON'\n";
        asking_ = true;
        const nlohmann::ordered_json request = {
            {"jsonrpc", "2.0"}, {"id", ++requests_}, {"method", method}, {"params", std::move(params)}};
        out_ << request.dump() << "\n";
    }

    const std::map<int, Made>& made_;
    std::ostream& out_;
    std::map<int, std::size_t> objects_;
    int requests_ = 0;
    bool asking_ = false;
};

}  // namespace

namespace {

using Line = nlohmann::ordered_json;

Line line_of(const Step& step) {
    Line line = {{"id", step.id}, {"kind", kinds[static_cast<std::size_t>(step.kind)]}};
    if (step.object != 0) line["object"] = step.object;
    if (!step.name.empty()) line["name"] = step.name;
    if (!step.arguments.empty()) line["arguments"] = step.arguments;
    if (step.at.days != 0) line["at"] = iso_date(step.at);
    if (step.fault) {
        line["fault"] = {{"kind", name_of(step.fault->kind)}, {"at", step.fault->at}, {"atomic", step.fault->atomic}};
    }
    return line;
}

Step step_of(const Json& line) {
    Step step;
    step.id = line.at("id");
    step.kind = kind_named(line.at("kind"));
    step.object = line.value("object", 0);
    step.name = line.value("name", "");
    step.arguments = line.value("arguments", Json::array());
    if (line.contains("at")) step.at = parse_date(line.at("at").get<std::string>()).value();
    if (line.contains("fault")) {
        const Json& fault = line["fault"];
        step.fault = Fault{fault_named(fault.at("kind")).value(), fault.at("at"), fault.at("atomic")};
    }
    return step;
}

/// Calls `take` with each line.
template <class Take>
void read_lines(std::istream& in, const Take& take) {
    for (std::string text; std::getline(in, text);) {
        if (!text.empty()) take(Json::parse(text));
    }
}

}  // namespace

void write_script(const Script& script, std::ostream& out) {
    for (const Step& step : script) out << line_of(step).dump() << "\n";
}

Script read_script(std::istream& in) {
    Script script;
    read_lines(in, [&](const Json& line) { script.push_back(step_of(line)); });
    return script;
}

void write_crowd_script(const Crowd_script& script, std::ostream& out) {
    for (const auto& [round, session, step] : script) {
        Line line = {{"round", round}, {"session", session + 1}};
        line.update(line_of(step));
        out << line.dump() << "\n";
    }
}

Crowd_script read_crowd_script(std::istream& in) {
    Crowd_script script;
    read_lines(in, [&](const Json& line) {
        const std::size_t session = line.at("session");
        script.push_back({line.at("round"), session - 1, step_of(line)});
    });
    return script;
}

void write_session(const Script& script, const std::map<int, Made>& made, const std::vector<std::string>& differences,
                   std::ostream& out) {
    Session_writer writer(made, out);
    for (const Step& step : script) writer.write(step);
    writer.finish_asking();
    out << "end\n\n# Then the two differed:\n";
    for (const std::string& difference : differences) {
        std::string text = difference;
        for (auto at = text.find_first_of("\r\n"); at != text.npos; at = text.find_first_of("\r\n", at)) text[at] = '|';
        out << "# " << text << "\n";
    }
}

}  // namespace cuvexa::simulator
