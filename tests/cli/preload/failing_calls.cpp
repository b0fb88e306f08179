// Loaded before the C library: one of a program's calls of the system fails, the one of a given number, or all from it on.
//
//   CUVEXA_FAIL=files:17    the 17th write, sync, truncation, making or naming of a file
//   CUVEXA_FAIL=files:17+   and all after it: a full disk
//   CUVEXA_FAIL=memory:17   the 17th request for memory after the first look at the standard input
//   CUVEXA_FAIL=…:0         none
//   CUVEXA_CALLS=FILE       in the end the number of calls is written there
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
}

namespace {

enum class Kind { none, files, memory };

Kind kind = Kind::none;
long failing = 0;
bool from_then_on = false;
std::atomic<long> calls = 0;
std::atomic<bool> listening = false;

[[gnu::constructor]] void begin() {
    const char* const what = std::getenv("CUVEXA_FAIL");
    if (what == nullptr) return;
    kind = std::strncmp(what, "memory:", 7) == 0 ? Kind::memory : Kind::files;
    const char* const number = std::strchr(what, ':') + 1;
    failing = std::atol(number);
    from_then_on = std::strchr(number, '+') != nullptr;
    listening = kind == Kind::files;
}

[[gnu::destructor]] void end() {
    const char* const file = std::getenv("CUVEXA_CALLS");
    const long counted = calls;
    kind = Kind::none;
    if (file == nullptr) return;
    if (std::FILE* out = std::fopen(file, "w")) {
        std::fprintf(out, "%ld\n", counted);
        std::fclose(out);
    }
}

bool is_to_fail(Kind of) {
    if (of != kind || !listening) return false;
    const long number = ++calls;
    return failing > 0 && (number == failing || (from_then_on && number > failing));
}

template <class Function>
Function* real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

int failed(int why) {
    errno = why;
    return -1;
}

/// What the program tells its user is no file.
bool is_file(int descriptor) {
    return descriptor > STDERR_FILENO;
}

}  // namespace

#define CALL(name, ...) (real(&name, #name)(__VA_ARGS__))

extern "C" {

void* malloc(std::size_t size) {
    return is_to_fail(Kind::memory) ? nullptr : __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
    return is_to_fail(Kind::memory) ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size) {
    return is_to_fail(Kind::memory) ? nullptr : __libc_realloc(block, size);
}

ssize_t read(int from, void* bytes, std::size_t size) {
    if (from == STDIN_FILENO && kind == Kind::memory) listening = true;
    return CALL(read, from, bytes, size);
}
ssize_t write(int to, const void* bytes, std::size_t size) {
    return is_file(to) && is_to_fail(Kind::files) ? failed(ENOSPC) : CALL(write, to, bytes, size);
}
ssize_t pwrite(int to, const void* bytes, std::size_t size, off_t at) {
    return is_to_fail(Kind::files) ? failed(ENOSPC) : CALL(pwrite, to, bytes, size, at);
}
ssize_t pwrite64(int to, const void* bytes, std::size_t size, off64_t at) {
    return is_to_fail(Kind::files) ? failed(ENOSPC) : CALL(pwrite64, to, bytes, size, at);
}
int fsync(int file) {
    return is_to_fail(Kind::files) ? failed(EIO) : CALL(fsync, file);
}
int fdatasync(int file) {
    return is_to_fail(Kind::files) ? failed(EIO) : CALL(fdatasync, file);
}
int ftruncate(int file, off_t size) noexcept {
    return is_to_fail(Kind::files) ? failed(EIO) : CALL(ftruncate, file, size);
}
int ftruncate64(int file, off64_t size) noexcept {
    return is_to_fail(Kind::files) ? failed(EIO) : CALL(ftruncate64, file, size);
}
int mkdir(const char* name, mode_t mode) noexcept {
    return is_to_fail(Kind::files) ? failed(ENOSPC) : CALL(mkdir, name, mode);
}
int link(const char* from, const char* to) noexcept {
    return is_to_fail(Kind::files) ? failed(EIO) : CALL(link, from, to);
}
int rename(const char* from, const char* to) noexcept {
    return is_to_fail(Kind::files) ? failed(EIO) : CALL(rename, from, to);
}

}  // extern "C"
