#pragma once

#include "platform/translated_text.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <array>
#include <optional>

namespace quillon {

/// What a page says of a field, each text in one line: what it may be known by.
struct FieldSigns
{
    QString label; ///< Of the labels that belong to it.
    QString name;
    QString id;
    QString autocomplete;
    QString placeholder;
    QString around; ///< The text before it: a cell, a heading of a column, a line.
    QString group;  ///< The heading of the part of the form that it stands in.

    bool operator==(const FieldSigns &) const = default;
};

/// One of the signs, for code that walks all of them.
struct SignKind
{
    QStringView name; ///< As scripts and the journal call it.
    QString FieldSigns::*text;
};

inline constexpr std::array<SignKind, 7> signKinds = {{
    {QUILLON_TR_NOOP("FormMatching", "label"), &FieldSigns::label},
    {QUILLON_TR_NOOP("FormMatching", "name"), &FieldSigns::name},
    {QUILLON_TR_NOOP("FormMatching", "id"), &FieldSigns::id},
    {QUILLON_TR_NOOP("FormMatching", "autocomplete"), &FieldSigns::autocomplete},
    {QUILLON_TR_NOOP("FormMatching", "placeholder"), &FieldSigns::placeholder},
    {QUILLON_TR_NOOP("FormMatching", "around"), &FieldSigns::around},
    {QUILLON_TR_NOOP("FormMatching", "group"), &FieldSigns::group},
}};

/// A field of a page that is visible, empty and takes text or a choice.
struct PageField
{
    int number = 0; ///< By which the page's script knows it.
    FieldSigns signs = {};
    QString type = {};        ///< "select", "rich", "textarea", or an input's type in HTML.
    int maxLength = -1;       ///< In UTF-16 units; -1 for no limit.
    QStringList options = {}; ///< The texts of a choice.

    /// What the author reads of it; never empty.
    [[nodiscard]] QString caption() const;
};

/// The fields of a page, as a script of ours has found them.
struct PageForm
{
    int number = 0; ///< Of this look; the page no longer knows the one before.
    QList<PageField> fields = {};
    bool isCut = false; ///< There are more fields, or larger parts of the page, than are looked at.
};

/// What the script's @p answer tells; none when the page could not be looked at. Fields that a script cannot
/// have meant, such as passwords, are left out.
std::optional<PageForm> pageForm(const QVariant &answer);

} // namespace quillon
