// A company: one database that holds the schema, in a file or on a server. Everything that works on one opens it here,
// so that all refuse the same, in the same words.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "cuvexa/data_access.h"
#include "cuvexa/database/replica.h"
#include "cuvexa/suite/reference_suite.h"

namespace cuvexa {

/// Why a company cannot be opened or made: a Spanish text for its operator, without any password.
class Company_error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Which company, and how to work on it.
struct Company_options {
    /// A file, or the connection string of a server ("Driver=…;Server=…", "DSN=…").
    std::string database = {};

    /// Of a server whose connection string holds none; when empty, that of the environment variable CUVEXA_PASSWORD.
    std::string password = {};

    /// A file to which one JSON object per statement is appended; none when empty.
    std::string trace = {};

    /// What an acknowledged statement survives, of a file: "full" a power cut, "normal" and "off" less.
    std::string synchronous = "full";

    /// How long a statement waits for another user.
    double wait_s = 10;

    /// When it becomes true, statements on a file that take long end; none when null. It must outlive the company.
    const std::atomic<bool>* interrupt = nullptr;

    /// Whether `database` names a server.
    bool is_server() const;

    /// `database` as it may be shown: without its password.
    std::string shown() const;
};

enum class Access { read, write };

/// What a new company begins with.
enum class Contents {
    schema,          ///< the tables alone
    sample_company,  ///< and the rows of the sample company
};

/// What an upgrade did, or would do: the versions of the schema before and after, which are equal when there is nothing
/// to do.
struct Upgrade {
    int from = 0, to = 0;
};

enum class Upgrade_mode { keep, try_out };

/// Is told how much of some work is done, in per cent. When it throws, the work is undone.
using Work_progress = std::function<void(int)>;

namespace company {
class Session;
}

/// An open company. Used by one thread; a program may hold many.
class Company {
public:
    /// Opens what is there. Throws `Company_error` when nothing is, or when it is no company of this program's version.
    explicit Company(const Company_options& options, Access access = Access::write);

    /// A new one in memory; `options` says nothing of where, only how.
    static Company in_memory(Contents contents, const Company_options& options = {});

    Company(Company&&) noexcept;
    Company& operator=(Company&&) noexcept;
    ~Company();

    /// Whether something stands where the options say: a file, whatever is in it, or a server's database with the
    /// schema.
    static bool stands(const Company_options& options);

    /// Makes a company, whole or not at all. Throws `Company_error` when something stands in its place.
    static void create(const Company_options& options, Contents contents, const Work_progress& progress = {});

    /// The same where nothing stands. False when something does, also when another program was faster.
    static bool create_if_missing(const Company_options& options, Contents contents,
                                  const Work_progress& progress = {});

    /// Brings a company of an earlier version to this program's: whole or not at all. What is only tried out is undone
    /// in the end. Throws `Company_error` when the company is newer, or none.
    static Upgrade upgrade(const Company_options& options, Upgrade_mode mode = Upgrade_mode::keep,
                           const Work_progress& progress = {});

    /// Copies a company in a file, of this or an earlier version, to a new file: as it is at one moment, while others may
    /// write to it; whole, on the disk and found sound, or not at all. Throws `Company_error`, also for a company on a
    /// server.
    static void back_up(const Company_options& options, const std::string& copy, const Work_progress& progress = {});

    /// Makes a company of such a copy, in the same way. Throws `Company_error` when something stands in its place.
    static void restore(const Company_options& options, const std::string& copy, const Work_progress& progress = {});

    /// Lives as long as the company, wherever that is moved.
    Connection& connection() const;

    /// What its operator should know of how it could be opened, in Spanish; empty mostly.
    const std::string& notice() const;

    /// How far behind that is which is read of it from now on; none unless it is read from a server's replica.
    std::optional<Replica> replica() const;

    /// How the database reads dates alike under every setting.
    Date_style date_style() const;

    /// The reference suite over this company, which it keeps open. How dates are written is up to the company.
    std::shared_ptr<Reference_suite> suite(Suite_options options = {}) const;

private:
    explicit Company(std::shared_ptr<company::Session> session);

    std::shared_ptr<company::Session> session_;
};

}  // namespace cuvexa
