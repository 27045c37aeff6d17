#pragma once

#include "submission/visitor.h"

namespace quillon {

/// Whether there is still something at an address, as far as one visit shows it.
enum class VisitVerdict : quint8
{
    Reachable,
    Moved,     ///< It leads to another place.
    Gone,      ///< There is no such page, or no server of that name.
    CannotSay, ///< Nothing answered for now, or a guard against robots did.
};

/// What a verdict is called in the database and on the command line.
QString name(VisitVerdict verdict);
/// What it is called in a window.
QString title(VisitVerdict verdict);

/// A verdict with its reason in a sentence; of what has moved, the place.
struct VisitJudgement
{
    VisitVerdict verdict = VisitVerdict::CannotSay;
    QString detail = {};
};

/// What @p visit says of the address @p asked.
VisitJudgement judged(const QString &asked, const Visit &visit);

/// Whether the name of the server was not found, which also happens where there is no network at all.
bool isNameUnknown(const Visit &visit);

/// @p visit as it is to be judged while nothing shows that there is a network: an unknown name says nothing.
Visit withoutNetwork(Visit visit);

/// Whether @p visit shows that names of the Internet are found here.
bool showsNetwork(const Visit &visit);

} // namespace quillon
