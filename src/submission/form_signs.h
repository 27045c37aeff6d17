#pragma once

#include <QStringList>
#include <QStringView>

#include <span>

/// What forms call their fields.
namespace quillon::form_signs {

/// Words that speak for a value, wherever they stand.
struct Phrase
{
    QStringView value; ///< The id of a title's value; "description" for that of the fitting length, "" for
                       ///< something that no title has.
    QStringView words; ///< One or more in a row, with a blank between, in the form that words() gives.
    int weight;        ///< 1: may mean others as well; 2: most likely; 3: nothing else is called so.
};

/// All phrases.
std::span<const Phrase> phrases();

/// The value that the word @p token of an autocomplete attribute stands for; empty for none.
QStringView valueOfToken(QStringView token);

/// Whether a field that is called @p words asks for a proof of being human, a password or a search: nothing
/// is proposed for it.
bool isForbidden(const QStringList &words);

/// Whether a field that is called @p words wants something once more.
bool isRepeated(const QStringList &words);

/// @p text in lower case, without punctuation, names like "companyName2" taken apart, and common spellings
/// made one.
QStringList words(const QString &text);

} // namespace quillon::form_signs
