#pragma once

#include "changes/change_plan.h"

#include <QDate>

/// What a new release changes in its titles.
namespace quillon::release_plan {

/// The file that is released.
struct ReleaseFile
{
    QString name;    ///< Without its folder.
    qint64 size = 0; ///< Bytes.
};

/// The regular file at @p path.
Result<ReleaseFile> fileAt(const QString &path);

/// What the author says of a release.
struct Release
{
    QString version;
    QDate date = QDate::currentDate();
    std::optional<ReleaseFile> file = {}; ///< Gives the sizes; without it they stay.
    std::optional<QString> changes = {};  ///< What is new; without it the old text stays.
    /// One of vocabulary::releaseStatuses(); without it the old one stays.
    std::optional<QString> status = {};
    bool replacesVersionInAddresses = true; ///< The old version by the new one (withNewVersion()).
};

/// Whether titles can be released so; Refused, with a sentence that says what cannot be, and what could.
Result<> judge(const Release &release);

/// What @p release changes in @p titles. Noted is what the author should look at: a file whose name bears
/// another version, addresses that keep the old one.
ChangePlan plan(const Release &release, const QStringList &titles);

/// @p address with @p newVersion wherever @p oldVersion stands in it by itself: no digit, letter, or point
/// with a digit joins it, but a "v" before it. Points may be "_" or "-" in the address, all of them the same,
/// and are so in the new version, too. A version without a point is replaced behind a "v" only.
QString withNewVersion(const QString &address, const QString &oldVersion, const QString &newVersion);

} // namespace quillon::release_plan
