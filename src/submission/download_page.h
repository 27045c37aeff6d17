#pragma once

#include <QString>

#include <optional>

namespace quillon {

/// A file that a page offered for download, and what the author is shown instead. All texts are the page's
/// and may hold anything.
struct OfferedFile
{
    QString name;
    QString type; ///< MIME type.
    QString address;
    std::optional<qint64> size;  ///< In bytes, when the server says it.
    std::optional<QString> text; ///< Its beginning, when the file is text and could be read.
    QString failure = {};        ///< Why it could not be fetched; empty when it could, or need not be.
};

/// Of a text, this many bytes are fetched and shown.
inline constexpr qint64 longestShownText = qint64(1024) * 1024;

/// Whether files of the MIME type @p type can be read as text.
bool isTextType(const QString &type);

/// The page, as HTML, that tells of @p file; a text's own place in it is empty and has the id shownTextId.
QString downloadPage(const OfferedFile &file);
inline constexpr QStringView shownTextId = u"text";

} // namespace quillon
