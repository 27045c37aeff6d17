#pragma once

#include "cli/output.h"
#include "platform/result.h"
#include "platform/text_decoding.h"

#include <QString>

#include <CLI/CLI.hpp>

namespace quillon::cli {

/// How a command ended; the process's exit status.
enum ExitStatus
{
    Done = 0,       ///< Done, or valid.
    AnswerIsNo = 1, ///< Errors were found.
    WrongUsage = 2, ///< The command line makes no sense; nothing was changed.
    Refused = 3,    ///< No such title, a name that is taken, the application is running.
    FileFailed = 4, ///< A file could not be read or written.
};

/**
 * One command: its help, its options and what it does stand together in one class; its name stands in the
 * list of all.
 */
class Command
{
public:
    virtual ~Command() = default;

    /// Gives the parser's @p command its help, and its options, which are bound to this object's members.
    virtual void describe(CLI::App &command) = 0;

    /// Whether the command may change what is stored, so that it needs the data folder for itself.
    [[nodiscard]] virtual bool writes() const = 0;

    virtual ExitStatus run() = 0;
};

/// Texts of the command line are UTF-8, and end at a NUL as they did there.
inline QString text(const std::string &argument)
{
    return exactText(argument.c_str());
}

/// Whether there is a title @p name; complains when there is none.
bool titleExists(const QString &name);

/// Done, or the complaint about the file or folder that could not be read or written.
ExitStatus outcome(const Result<> &result);

/// The same of what refuses in sentences: such a sentence alone, and Refused.
ExitStatus outcomeOrRefusal(const Result<> &result);

} // namespace quillon::cli
