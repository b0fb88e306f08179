// Files whose names are UTF-8, also where the system's narrow texts are not; and how a database file is made.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace cuvexa::company {

std::filesystem::path path(const std::string& name);

/// Throws `Company_error` when a database of that name cannot be made: something stands there, or what a deleted one
/// left, or its folder is missing.
void refuse_in_place(const std::string& file);

/// A database file in the making, in a folder of its own beside its place; gone in the end, with what the engine put
/// there. What programs that were killed left of theirs is removed when another begins.
class Draft {
public:
    explicit Draft(const std::string& file);
    ~Draft();
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    const std::string& name() const { return name_; }

    /// Gives it its name, once it is known to be whole: nobody has it open, its log is in it, the engine finds it
    /// sound, and it has reached the disk, its name as well. Throws `Company_error` or `Database_error`, and then there
    /// is no such file; also when another program has made one of that name meanwhile.
    void become(const std::string& file);

private:
    class Folder;

    std::unique_ptr<Folder> folder_;
    std::string name_;
};

}  // namespace cuvexa::company
