// Two sessions on one file.
#include <unistd.h>

#include <filesystem>
#include <set>
#include <thread>

#include "suite/fixture.h"

namespace cuvexa::testing {
namespace {

std::vector<std::string> take_folios(const std::string& path, int count) {
    Sqlite_connection connection(path, {.synchronous = Synchronous::off});
    Reference_suite suite(connection);
    std::vector<std::string> folios;
    for (int i = 0; i < count; ++i) folios.push_back(suite.data()->GetNextFolio("MTY", "RECIBO_PAGO"));
    return folios;
}

TEST(Two_sessions, never_get_the_same_folio_and_begin_one_series) {
    const std::string path =
        (std::filesystem::temp_directory_path() / ("cuvexa_folios_" + std::to_string(::getpid()) + ".db")).string();
    {
        Sqlite_connection connection(path, {.synchronous = Synchronous::off, .create = true});
        run_script(connection, schema_sql());
    }
    std::vector<std::string> first, second;
    std::thread other([&] { second = take_folios(path, 200); });
    first = take_folios(path, 200);
    other.join();
    std::set<std::string> all(first.begin(), first.end());
    all.insert(second.begin(), second.end());
    EXPECT_EQ(all.size(), 400u);
    EXPECT_EQ(*all.begin(), "RP-MTY-00000001");
    EXPECT_EQ(*all.rbegin(), "RP-MTY-00000400");
    for (const char* tail : {"", "-wal", "-shm"}) std::filesystem::remove(path + tail);
}

}  // namespace
}  // namespace cuvexa::testing
