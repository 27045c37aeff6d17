#include "sites/site_renaming.h"

#include "platform/atomic_file.h"
#include "platform/folder_handle.h"
#include "platform/regex.h"
#include "platform/text_decoding.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "store/summary_file.h"
#include "store/title_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

QStringList marks(const QByteArray &summary)
{
    QString sites = summary_file::parse(summary).sites.value_or(QString());
    while (sites.endsWith(u','))
        sites.chop(1);
    return sites.split(u',');
}

/// The file of a site's picture in @p folder; none for a name that could lead out of it.
std::optional<QString> imagePath(const QString &folder, const QString &site)
{
    const QString file = site + u".png"_s;
    static constexpr qsizetype maxFileNameBytes = 255;
    if (site.contains(u'/') || site.contains(QChar(u'\0')) || file.toUtf8().size() > maxFileNameBytes)
        return std::nullopt;
    return folder + file;
}

/// The picture at @p path; resources are files to Qt alone.
Result<QByteArray> image(const std::optional<QString> &path)
{
    if (path && !path->startsWith(u':'))
        return atomic_file::read(*path);
    QFile file(path.value_or(QString()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : Result<QByteArray>(Error{Error::Kind::Missing});
}

void renameMark(const QString &titleFolder, const QString &from, const QString &to)
{
    const QString path = titleFolder + u'/' + title_folder::summaryFile;
    const auto bytes = atomic_file::read(path);
    if (bytes.isError(Error::Kind::Unreadable))
        reportFailure(bytes.error());
    if (!bytes)
        return;
    const QString text = decodedXmlText(*bytes);
    const QString renamed = withRenamedMark(text, from, to);
    if (renamed != text)
        (void)storeFile(path, renamed.toUtf8(), bytes);
}

} // namespace

QString withRenamedMark(const QString &summary, const QString &from, const QString &to)
{
    if (!marks(summary.toUtf8()).contains(from))
        return summary;
    struct Neighbours
    {
        QStringView before;
        QStringView after;
    };
    static constexpr std::array<Neighbours, 3> patterns = {{{u">", u","}, {u",", u","}, {u",", u"<"}}};
    QString text = summary;
    for (const auto &[before, after] : patterns)
        text = Regex(QString(before + from + after)).replaceAll(text, QString(before + to + after));
    return text;
}

void renameSite(const QString &from, const QString &to)
{
    if (from == to)
        return;
    const auto dataFolder = FolderHandle::open(mwqnAppSuppLoc);
    const auto entries = dataFolder ? dataFolder->entries() : dataFolder.error();
    if (!entries)
        return reportFailure(entries.error());
    bool anyTitle = false;
    for (const FolderHandle::Entry &entry : *entries) {
        const QString path = mwqnAppSuppLoc + QFile::decodeName(entry.name);
        if (!path.endsWith(title_folder::extension) || !QFileInfo(path).isDir())
            continue;
        anyTitle = true;
        renameMark(path, from, to);
    }
    if (anyTitle)
        renameSiteImage(from, to);
}

void renameSiteImage(const QString &from, const QString &to, const QString &resources)
{
    if (from == to)
        return;
    const QString folder = mwqnAppSuppLoc + u"Site Images/"_s;
    if (!QDir().mkpath(folder))
        return reportFailure({.path = QDir::cleanPath(folder), .reason = u"the folder could not be made"_s});
    const auto oldPath = imagePath(folder, from);
    const auto newPath = imagePath(folder, to);
    const auto own = image(imagePath(resources, from));
    const auto picture = own ? own : image(oldPath);
    if (!picture || !oldPath || !newPath)
        return;
    // A site that is called as one with a picture of the program's own shows that one.
    const bool isShadowed = !own && image(imagePath(resources, to));
    if (isShadowed ? !QFile::exists(*newPath) || QFile::remove(*newPath)
                   : bool(storeFile(*newPath, *picture)))
        QFile::remove(*oldPath);
}

} // namespace quillon
