#pragma once

#include <QString>

#include <span>

/// The fixed shape of a PAD 3.10 document, walked by everything that writes one.
namespace quillon {

/// One line below the root: a group's start or end tag, or an element with its value.
struct LayoutLine
{
    enum Kind : quint8
    {
        Open,
        Close,
        Element
    };
    int depth; ///< Tabs before the line.
    Kind kind;
    QStringView tag;
};

/// The lines of the document between the root's tags.
extern const std::span<const LayoutLine> padLayout;

/// The tag of the layout, or the root's, that @p name is in some case; null without one.
QStringView padTag(QStringView name);

/// "<TAG>" and "</TAG>".
QString startTag(QStringView tag);
QString endTag(QStringView tag);

/// What stands before the lines, to the line feed, and after the last one's line feed.
QString layoutOpening();
QString layoutClosing();

/// @p line without the value and the end tag that an element's goes on with.
QString lineStart(const LayoutLine &line);

} // namespace quillon
