#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace quillon {

class PadDocument;

/// What a summary file says; none where it lacks the element.
struct Summary
{
    std::optional<QString> version;
    std::optional<QString> releaseDate;      ///< As stored: day/month/year or year-month-day, or anything.
    std::optional<QString> operatingSystems; ///< Names joined by ",".
    std::optional<QString> validated;        ///< "1" when the title had no errors.
    std::optional<QString> sites;            ///< Names joined by ",", perhaps with a "," at the end.
    std::optional<QString> versions;         ///< One for each site.

    /// The sites and versions as lists; one empty entry where there are none, as splitting an empty text
    /// gives.
    [[nodiscard]] QStringList siteList() const { return sites.value_or(QString()).split(u','); }
    [[nodiscard]] QStringList versionList() const { return versions.value_or(QString()).split(u','); }
};

/// The small file beside each PAD file that carries what the software list shows, and the submission marks.
///
/// It is edited as text; values go in without XML escaping, and every reader takes malformed text.
namespace summary_file {

/// The summary of a new title.
QString emptyText();

/// The summary of an imported PAD file. Values are a template's replacement text, so that a "$1" in one of
/// them is expanded (to nothing) as it goes in.
QString textForImport(const PadDocument &document);

/// What the editor writes: all elements in their lines, without an XML declaration.
QString text(const Summary &summary);

/// What the file's @p bytes say. A missing or malformed file has no element.
Summary parse(const QByteArray &bytes);

/// @p text with its two submission lists replaced. The rebuilt list of versions is closed by a start tag,
/// which readers take; the next rewrite by the editor mends it.
QString withSubmissions(const QString &text, const QStringList &sites, const QStringList &versions);

} // namespace summary_file

} // namespace quillon
