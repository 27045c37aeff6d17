#pragma once

#include <QStringView>

#include <array>

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

inline constexpr int layoutLineCount = 93;

/// Lines 3 to 95 of the document, between the root's tags.
extern const std::array<LayoutLine, layoutLineCount> padLayout;

} // namespace quillon
