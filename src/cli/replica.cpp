#include "cli/replica.h"

#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>

namespace cuvexa::cli {

namespace {

std::string seconds(double number) {
    char text[400];
    std::snprintf(text, sizeof text, "%.1f", number);
    return text;
}

nlohmann::ordered_json described(const Replica& replica) {
    nlohmann::ordered_json object;
    object["behind_at_most_s"] = nullptr;
    if (replica.behind_s) object["behind_at_most_s"] = std::round(*replica.behind_s * 1000) / 1000;
    object["unapplied_bytes"] = replica.unapplied_bytes;
    object["receives"] = replica.receives;
    return object;
}

}  // namespace

void print_replica(std::ostream& out, const std::optional<Replica>& replica) {
    if (!replica) return;
    out << "Leído de una réplica, "
        << (replica->behind_s ? "a lo más " + seconds(*replica->behind_s) + " s detrás del primario"
                              : "no se sabe qué tan detrás del primario")
        << "; bytes recibidos sin aplicar: " << replica->unapplied_bytes
        << (replica->receives ? "" : "; sin conexión con el primario") << '\n';
}

void print_json_read(std::ostream& out, const std::optional<Replica>& replica, std::string_view name,
                     const std::function<void()>& print) {
    if (!replica) return print();
    out << "{\"replica\": " << described(*replica).dump() << ",\n\"" << name << "\": ";
    print();
    out << "}\n";
}

}  // namespace cuvexa::cli
