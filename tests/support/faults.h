#pragma once

#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>

/// The fault library (faults.cpp) stands between a program and the C library, and lets chosen calls fail, or
/// end the process there, as a bad disk or a loss of power would.
///
/// Test programs are linked to it. For the process of the test itself:
///
///     const FaultPlan plan(home(), "read@2=EIO");
///     EXPECT_FALSE(readAll());
///     EXPECT_TRUE(plan.met());
///
/// Child processes are told by faultEnvironment(), which cli() of CommandLineTest uses for its second
/// argument; with QUILLON_FAULTS_TRACE they write a line for each call on something in the folder to that
/// file: the call, what a rule made of it ("-": nothing) and the path. Calls on anything else are left alone.
///
/// Rules stand with one blank between them. Each is CALL[,CALL...][@N][+]=ACTION: what becomes of the N-th of
/// these calls in the process (without @N: the first) or, with +, of each from there on. The calls:
///
/// - reading (all that read): open, read, getdents64 (also readdir), lseek, stat (also access)
/// - writing (all others): create (open that makes, empties or may write), write, fsync (also fdatasync,
///   syncfs), rename, mkdir, unlink (also rmdir), fchmod, ftruncate, close, flock (also locks of fcntl), link
///   (also symlink)
///
/// The actions:
///
/// - EIO or the name of any other error: the call is not made, and fails so
/// - kill: the call is not made, and the process is killed
/// - stop: the process stops before the call, until somebody sends it SIGCONT
/// - torn: a write gets half of its bytes, and the process is killed
/// - short: a read or write gets half of its bytes
/// - full:N: writes get N bytes in all, then ENOSPC
///
/// Rules that make no sense end the process: a plan that injects nothing would prove nothing.
extern "C" {
void quillonFaultsBegin(const char *below, const char *rules);
void quillonFaultsEnd();
long quillonFaultsMet();
}

namespace quillon {

/// Faults in this process for as long as this lives; one at a time.
class FaultPlan
{
public:
    /// @p below must be there.
    FaultPlan(const QString &below, const QByteArray &rules)
    {
        quillonFaultsBegin(QFile::encodeName(QFileInfo(below).canonicalFilePath()).constData(),
                           rules.constData());
    }
    FaultPlan(const FaultPlan &) = delete;
    FaultPlan &operator=(const FaultPlan &) = delete;
    ~FaultPlan() { quillonFaultsEnd(); }

    /// Whether a rule was applied at least once.
    [[nodiscard]] bool met() const { return quillonFaultsMet() > 0; }
};

/// The variables that inject @p rules into a child process that uses @p below.
inline QProcessEnvironment faultEnvironment(const QString &below, const QString &rules)
{
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(QUILLON_FAULTS_LIBRARY));
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0"));
    environment.insert(QStringLiteral("QUILLON_FAULTS_BELOW"), QFileInfo(below).canonicalFilePath());
    environment.insert(QStringLiteral("QUILLON_FAULTS"), rules);
    return environment;
}

} // namespace quillon
