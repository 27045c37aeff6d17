#pragma once

#include "submission/form_matching.h"

/// Fields of a page that were confirmed before, also when the page has changed since.
namespace quillon::form_matching {

/// What is known of one field of a page.
struct MemoryMatch
{
    qsizetype memory = -1; ///< Its place among what is remembered; -1 for none.
    int score = 0;         ///< More than signs alone can have.
    QString why = {};
    bool isSure = false; ///< Its signs agree rather than differ, and nothing else there has as many.
};

/// One for each of @p fields: a field and a memory belong together when more signs agree than with any other.
QList<MemoryMatch> matchedWith(const QList<PageField> &fields, const QList<Remembered> &remembered);

} // namespace quillon::form_matching
