#pragma once

#include <QStringList>

#include <CLI/CLI.hpp>

namespace quillon::cli {

/// What can stand in a place of a command line.
struct Candidates
{
    QStringList words = {};
    bool files = false; ///< The name of a file or a folder as well.
};

/// What the last of @p words, which are the arguments of @p program, can become: commands, options, and the
/// titles, fields and sites of the data folder, or of the home folder that they name. It is taken from the
/// program's own table of commands and options, and begins with what is typed.
Candidates candidates(const CLI::App &program, const QStringList &words);

} // namespace quillon::cli
