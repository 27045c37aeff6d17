#pragma once

#include "platform/result.h"

#include <QList>
#include <QString>
#include <QUrl>

namespace quillon {

/// A page of the manual, as the contents list it.
struct ManualPage
{
    QString group; ///< The heading above it in the contents.
    QString file;  ///< Its name in the manual's folder.
    QString title;
};

/// A heading of the manual and the text up to the next one.
struct ManualSection
{
    QString file;
    QString anchor;  ///< The heading's id; empty for none.
    QString heading; ///< The first of a page is the page's title.
    QString text = {};
};

/// A section in which all words that were looked for stand.
struct ManualHit
{
    ManualSection section;
    QString excerpt; ///< The text around the first word that stands in it.
};

/// The text of the manual, read from its pages: what it consists of, and where something stands in it. Pages
/// are well-formed XML; "index.html" names all others under their headings.
class ManualPages
{
public:
    /// All pages in @p folder that its index names. The error is that of the first that cannot be read.
    static Result<ManualPages> read(const QString &folder);

    /// In the order of the index, which itself is not among them.
    [[nodiscard]] const QList<ManualPage> &pages() const { return m_pages; }
    [[nodiscard]] const QList<ManualSection> &sections() const { return m_sections; }

    /// The heading of @p section, and the page's title where that is another.
    [[nodiscard]] QString placeOf(const ManualSection &section) const;

    /// The sections that hold each of @p words, whatever its case; those first that hold all in the heading.
    [[nodiscard]] QList<ManualHit> find(const QString &words) const;

private:
    Result<> readIndex(const QString &folder);
    Result<> readPage(const QString &folder, ManualPage &page);

    QList<ManualPage> m_pages;
    QList<ManualSection> m_sections;
};

/// Where the manual lies.
namespace manual {

/// The folder of the installed pages, seen from the program.
QString folder();

/// The address of @p page, which may end in "#" and an anchor.
QUrl address(const QString &page);

/// Whether @p address is that of a page of the manual.
bool isPage(const QUrl &address);

/// Whether @p address is that of a picture on such a page.
bool isPicture(const QUrl &address);

} // namespace manual

} // namespace quillon
