// The fault library; faults.h says how it is used. Nothing of Qt or of ours is linked here, since all of that
// calls these functions. Where the sanitizers have functions of the same names, each calls the next one.

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace {

// clang-format off
enum Call : unsigned { Open, Read, List, Seek, Stat, Create, Write, Sync, Rename, MakeFolder, Remove, Mode, Truncate, Close, Lock, Link };
constexpr std::array<std::string_view, 16> callNames{
    "open", "read", "getdents64", "lseek", "stat", // What reads; the others write.
    "create", "write", "fsync", "rename", "mkdir", "unlink", "fchmod", "ftruncate", "close", "flock", "link"};
// clang-format on
constexpr unsigned readingCalls = (1U << Create) - 1;
constexpr unsigned allCalls = (1U << callNames.size()) - 1;

/// What becomes of one call.
struct Verdict
{
    int error = 0;          ///< It fails with this, unless 0.
    size_t size = SIZE_MAX; ///< It transfers at most so many bytes.
    bool kills = false;     ///< The process ends, behind a transfer, else instead of the call.
};

struct Rule
{
    unsigned calls = 0;
    long at = 1; ///< Counted down.
    bool lasting = false;
    std::string action = {};
    int error = 0;
    size_t room = 0; ///< For full.
};

[[noreturn]] void refuse(std::string_view what)
{
    std::fprintf(stderr, "libquillon_faults: \"%.*s\" is not understood\n", int(what.size()), what.data());
    std::abort();
}

[[noreturn]] void die()
{
    ::kill(::getpid(), SIGKILL);
    std::abort();
}

/// What stands in @p text before @p mark, which both go from it.
std::string_view taken(std::string_view &text, char mark)
{
    const size_t end = std::min(text.find(mark), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

unsigned callsNamed(std::string_view name)
{
    const auto *const found = std::ranges::find(callNames, name);
    if (found != callNames.end())
        return 1U << (found - callNames.begin());
    return name == "reading"   ? readingCalls
           : name == "writing" ? allCalls & ~readingCalls
                               : (refuse(name), 0);
}

int errorNamed(std::string_view name)
{
    for (int error = 1; error < 200; ++error) {
        const char *const known = ::strerrorname_np(error);
        if (known && name == known)
            return error;
    }
    refuse(name);
}

long number(std::string_view digits)
{
    const long value = std::atol(std::string(digits).c_str());
    return std::to_string(value) == digits && value >= 0 ? value : (refuse(digits), 0);
}

Rule parsed(std::string_view action)
{
    Rule rule;
    std::string_view when = taken(action, '=');
    rule.lasting = when.ends_with('+');
    when.remove_suffix(rule.lasting ? 1 : 0);
    std::string_view calls = taken(when, '@');
    rule.at = when.empty() ? 1 : number(when);
    while (!calls.empty())
        rule.calls |= callsNamed(taken(calls, ','));
    rule.action = action;
    if (action.starts_with("full:")) {
        rule.lasting = true;
        rule.room = size_t(number(action.substr(5)));
    } else if (action != "kill" && action != "stop" && action != "torn" && action != "short") {
        rule.error = errorNamed(action);
    }
    return rule;
}

/// What @p rule, whose turn it is, makes of a call that transfers @p size bytes.
Verdict applied(Rule &rule, size_t size)
{
    if (rule.action == "kill")
        return {.kills = true};
    if (rule.action == "torn" || rule.action == "short")
        return {.size = (size + 1) / 2, .kills = rule.action == "torn"};
    if (rule.error != 0)
        return {.error = rule.error};
    const size_t fits = std::min(size, rule.room);
    rule.room -= fits;
    return {.error = fits == 0 && size > 0 ? ENOSPC : 0, .size = fits};
}

/// The rules of this process.
struct Plan
{
    std::mutex mutex;
    std::atomic<bool> isActive = false;
    std::string below;
    std::vector<Rule> rules;
    long met = 0;

    Plan()
    {
        const char *const folder = std::getenv("QUILLON_FAULTS_BELOW");
        const char *const text = std::getenv("QUILLON_FAULTS");
        if (folder)
            begin(folder, text ? text : "");
    }

    void begin(const char *folder, std::string_view text)
    {
        const std::lock_guard guard(mutex);
        below = folder;
        rules.clear();
        met = 0;
        while (!text.empty())
            rules.push_back(parsed(taken(text, ' ')));
        isActive = !below.empty();
    }

    [[nodiscard]] bool covers(std::string_view path) const
    {
        return path.starts_with(below) && (path.size() == below.size() || path[below.size()] == '/');
    }

    Verdict judge(Call call, const std::string &path, size_t size)
    {
        const std::lock_guard guard(mutex);
        if (!isActive || !covers(path))
            return {};
        Verdict verdict;
        std::string_view action = "-";
        for (Rule &rule : rules) {
            if (!(rule.calls & (1U << call)))
                continue;
            --rule.at;
            if (rule.at > 0 || (rule.at < 0 && !rule.lasting))
                continue;
            if (rule.action == "stop") {
                ++met;
                ::kill(::getpid(), SIGSTOP);
                continue;
            }
            const Verdict now = applied(rule, size);
            if (now.error == 0 && !now.kills && now.size >= size)
                continue;
            verdict = now;
            action = rule.action;
            ++met;
        }
        trace(call, action, path);
        return verdict;
    }

    static void trace(Call call, std::string_view action, const std::string &path)
    {
        const char *const file = std::getenv("QUILLON_FAULTS_TRACE");
        if (!file)
            return;
        const std::string line = std::string(callNames[call]) + ' ' + std::string(action) + ' ' + path + '\n';
        const long trace = ::syscall(SYS_openat, AT_FDCWD, file, O_WRONLY | O_CREAT | O_APPEND, 0600);
        ::syscall(SYS_write, trace, line.data(), line.size());
        ::syscall(SYS_close, trace);
    }
};

/// Made by the first call, which may come before the program's own beginning, and never destroyed.
Plan &plan()
{
    static Plan &plan = *new Plan;
    return plan;
}

std::string linkTarget(const std::string &link)
{
    std::array<char, 4096> target;
    const ssize_t length = ::readlink(link.c_str(), target.data(), target.size());
    return {target.data(), size_t(std::max<ssize_t>(length, 0))};
}

/// The path of @p name in the open folder @p folder; empty when nothing is to happen to it.
std::string pathAt(int folder, const char *name)
{
    if (!plan().isActive || !name)
        return {};
    if (*name == '/')
        return name;
    const int saved = errno;
    std::string path =
        linkTarget(folder == AT_FDCWD ? "/proc/self/cwd" : "/proc/self/fd/" + std::to_string(folder));
    errno = saved;
    return *name ? path + '/' + name : path;
}

std::string pathOf(const char *path)
{
    return pathAt(AT_FDCWD, path);
}

std::string pathOf(int file)
{
    return pathAt(file, "");
}

/// For fcntl: empty unless @p command is about a lock.
std::string lockedPath(int file, int command)
{
    constexpr std::array locks{F_SETLK, F_SETLKW, F_OFD_SETLK, F_OFD_SETLKW};
    return std::ranges::find(locks, command) != locks.end() ? pathOf(file) : std::string();
}

/// Makes the call @p next, unless a rule for @p path forbids it. @p size, one of @p arguments, is how much it
/// transfers; null when it transfers nothing.
template<typename Next, typename... Arguments>
auto pass(Call call, const std::string &path, size_t *size, Next next, Arguments &&...arguments)
{
    const Verdict verdict = path.empty() ? Verdict() : plan().judge(call, path, size ? *size : 0);
    if (verdict.kills && (!size || verdict.size == SIZE_MAX))
        die();
    decltype(next(arguments...)) answer{};
    if (verdict.error != 0) {
        errno = verdict.error;
        if constexpr (!std::is_pointer_v<decltype(answer)>)
            answer = -1;
        return answer;
    }
    if (size)
        *size = std::min(*size, verdict.size);
    answer = next(arguments...);
    if (verdict.kills)
        die();
    return answer;
}

Call opening(int flags)
{
    return (flags & (O_CREAT | O_TRUNC)) || (flags & O_ACCMODE) != O_RDONLY ? Create : Open;
}

} // namespace

extern "C" {

void quillonFaultsBegin(const char *below, const char *rules)
{
    plan().begin(below, rules);
}

void quillonFaultsEnd()
{
    plan().isActive = false;
}

long quillonFaultsMet()
{
    return plan().met;
}

} // extern "C"

// The functions of the C library that programs of ours and Qt call. They have other names here, since the
// headers declare the real ones with attributes of their own, and take their structures as void *. Last
// arguments that may be missing (of open, of fcntl) are handed on unlooked at.

// HIDING(result, name, kind of call, path, transferred size or null, parameters, arguments...)
#define HIDING(result, name, call, path, size, parameters, ...) \
    extern "C" result faulty_##name parameters __asm__(#name); \
    extern "C" result faulty_##name parameters \
    { \
        static const auto next = reinterpret_cast<decltype(&faulty_##name)>(::dlsym(RTLD_NEXT, #name)); \
        return pass(call, path, size, next, __VA_ARGS__); \
    }
#define FAULTY(result, name, call, path, parameters, ...) \
    HIDING(result, name, call, path, nullptr, parameters, __VA_ARGS__)
#define TRANSFER(name, call, parameters, ...) \
    HIDING(ssize_t, name, call, pathOf(file), &size, parameters, __VA_ARGS__)
// The function and its twin for large files.
#define FAULTY_64(result, name, ...) FAULTY(result, name, __VA_ARGS__) FAULTY(result, name##64, __VA_ARGS__)
#define TRANSFER_64(name, ...) TRANSFER(name, __VA_ARGS__) TRANSFER(name##64, __VA_ARGS__)

// clang-format off
FAULTY_64(int, open, opening(flags), pathOf(path), (const char *path, int flags, mode_t mode), path, flags, mode)
FAULTY_64(int, openat, opening(flags), pathAt(at, path), (int at, const char *path, int flags, mode_t mode), at, path, flags, mode)
FAULTY(DIR *, opendir, Open, pathOf(path), (const char *path), path)

TRANSFER(read, Read, (int file, void *bytes, size_t size), file, bytes, size)
TRANSFER_64(pread, Read, (int file, void *bytes, size_t size, off_t from), file, bytes, size, from)
FAULTY(ssize_t, getdents64, List, pathOf(folder), (int folder, void *bytes, size_t size), folder, bytes, size)
FAULTY_64(void *, readdir, List, pathOf(::dirfd(folder)), (DIR *folder), folder)
FAULTY_64(off_t, lseek, Seek, pathOf(file), (int file, off_t offset, int from), file, offset, from)
FAULTY_64(int, stat, Stat, pathOf(path), (const char *path, void *status), path, status)
FAULTY_64(int, lstat, Stat, pathOf(path), (const char *path, void *status), path, status)
FAULTY_64(int, fstat, Stat, pathOf(file), (int file, void *status), file, status)
FAULTY(int, fstatat, Stat, pathAt(at, path), (int at, const char *path, void *status, int flags), at, path, status, flags)
FAULTY(int, statx, Stat, pathAt(at, path), (int at, const char *path, int flags, unsigned mask, void *status), at, path, flags, mask, status)
FAULTY(int, access, Stat, pathOf(path), (const char *path, int mode), path, mode)

TRANSFER(write, Write, (int file, const void *bytes, size_t size), file, bytes, size)
TRANSFER_64(pwrite, Write, (int file, const void *bytes, size_t size, off_t at), file, bytes, size, at)
FAULTY(ssize_t, sendfile, Write, pathOf(file), (int file, int from, off_t *offset, size_t size), file, from, offset, size)
FAULTY(int, fsync, Sync, pathOf(file), (int file), file)
FAULTY(int, fdatasync, Sync, pathOf(file), (int file), file)
FAULTY(int, syncfs, Sync, pathOf(file), (int file), file)
FAULTY(int, rename, Rename, pathOf(to), (const char *from, const char *to), from, to)
FAULTY(int, renameat, Rename, pathAt(at, to), (int old, const char *from, int at, const char *to), old, from, at, to)
FAULTY(int, renameat2, Rename, pathAt(at, to), (int old, const char *from, int at, const char *to, unsigned flags), old, from, at, to, flags)
FAULTY(int, mkdir, MakeFolder, pathOf(path), (const char *path, mode_t mode), path, mode)
FAULTY(int, mkdirat, MakeFolder, pathAt(at, path), (int at, const char *path, mode_t mode), at, path, mode)
FAULTY(int, unlink, Remove, pathOf(path), (const char *path), path)
FAULTY(int, rmdir, Remove, pathOf(path), (const char *path), path)
FAULTY(int, unlinkat, Remove, pathAt(at, path), (int at, const char *path, int flags), at, path, flags)
FAULTY(int, chmod, Mode, pathOf(path), (const char *path, mode_t mode), path, mode)
FAULTY(int, fchmod, Mode, pathOf(file), (int file, mode_t mode), file, mode)
FAULTY_64(int, ftruncate, Truncate, pathOf(file), (int file, off_t size), file, size)
FAULTY(int, close, Close, pathOf(file), (int file), file)
FAULTY(int, flock, Lock, pathOf(file), (int file, int operation), file, operation)
FAULTY_64(int, fcntl, Lock, lockedPath(file, command), (int file, int command, void *value), file, command, value)
FAULTY(int, link, Link, pathOf(to), (const char *from, const char *to), from, to)
FAULTY(int, symlink, Link, pathOf(to), (const char *from, const char *to), from, to)
// clang-format on
