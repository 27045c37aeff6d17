#pragma once

#include "pad/field_catalogue.h"

#include <QMap>
#include <QStringList>

namespace quillon {

class PadDocument;

/// The texts of a PAD document that no field reads, by where they stand.
struct UnreadTexts
{
    /// Texts of one place.
    struct Texts
    {
        qsizetype count = 0;
        QString example = {}; ///< The first of them.

        void add(const QString &text)
        {
            if (count++ == 0)
                example = text;
        }
    };

    /// What stands in a language of which there is another.
    struct Language
    {
        Texts texts = {};
        QStringList kept = {}; ///< The languages that are read in its place.
    };

    QMap<QString, Texts> unknown;      ///< By the tag of the outermost element that PAD does not have.
    QMap<QString, Texts> stray;        ///< Beside the elements of a group, by its tag.
    QMap<QString, Language> languages; ///< By the tag of the language.
    QMap<FieldId, Texts> repeated;     ///< In more elements of a field, with other values than the one read.
};

/// What of @p document no field reads. What Quillon writes by itself into each document's head is left out.
UnreadTexts unreadTexts(const PadDocument &document);

} // namespace quillon
