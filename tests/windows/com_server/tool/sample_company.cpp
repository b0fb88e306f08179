// For tests in scripts: a database of the sample company, and what it holds.
//
//   cuvexa_windows_sample_company FILE                     makes it
//   cuvexa_windows_sample_company FILE QUERY COLUMN...     prints the rows, their columns parted by "|"
#include <cstdio>
#include <exception>
#include <string>

#include "com/pointers.h"
#include "cuvexa/database/script.h"
#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/suite/schema.h"

int wmain(int count, wchar_t** arguments) {
    using namespace cuvexa;
    if (count == 1 || count == 3) return 2;
    try {
        const std::string file = com::utf8(arguments[1]);
        if (count == 2) {
            Sqlite_connection connection(file, {.synchronous = Synchronous::off, .create = true});
            run_script(connection, schema_sql());
            run_script(connection, sample_company_sql());
            return 0;
        }
        Sqlite_connection connection(file);
        const auto rows = connection.execute(com::utf8(arguments[2]));
        for (; !rows->eof(); rows->move_next()) {
            for (int at = 3; at < count; ++at) {
                std::printf("%s%s", at > 3 ? "|" : "", to_text(rows->field(com::utf8(arguments[at]))).c_str());
            }
            std::printf("\n");
        }
        return 0;
    } catch (const std::exception& failure) {
        std::printf("%s\n", failure.what());
        return 1;
    }
}
