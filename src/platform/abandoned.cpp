#include "platform/abandoned.h"

#include "platform/atomic_file.h"
#include "platform/folder_handle.h"
#include "platform/unfinished_name.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace quillon {

void removeAbandoned(const QString &folder)
{
    const auto handle = FolderHandle::open(folder);
    const auto entries = handle ? handle->entries() : handle.error();
    if (!entries)
        return;                              // Nothing that the author needs to know.
    static constexpr qint64 patience = 3600; // Seconds.
    const QDateTime latest = QDateTime::currentDateTime().addSecs(-patience);
    for (const FolderHandle::Entry &entry : *entries) {
        const QString path = folder + u'/' + QFile::decodeName(entry.name);
        const bool isOurs = unfinished_name::is(entry.name, unfinished_name::file) ||
                            unfinished_name::is(entry.name, unfinished_name::folder);
        if (isOurs && QFileInfo(path).lastModified() < latest)
            (void)atomic_file::removeAll(path);
    }
}

} // namespace quillon
