#pragma once

#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/summary_file.h"
#include "store/title_folder.h"

#include <QDir>
#include <QFile>

namespace quillon {

/// Fills a new data folder with @p count titles, plainly and without syncs, and gives the summary files'
/// paths.
inline QStringList fillDataFolder(const QString &home, int count)
{
    setDataFolder(home);
    (void)AddDeleteImportEdit::checkAppSuppExists();
    QStringList summaries;
    for (int number = 0; number < count; ++number) {
        const QString folder = *title_folder::path(QStringLiteral("Title %1").arg(number));
        QDir().mkdir(folder);
        Summary summary;
        summary.version = QStringLiteral("1.%1").arg(number);
        summary.releaseDate = QStringLiteral("2009-%1-%2").arg(number % 12 + 1).arg(number % 28 + 1);
        summary.operatingSystems = QStringLiteral("Linux,Mac OS X,Win7 x64,WinXP");
        summary.validated = QStringLiteral("1");
        summary.sites = QStringLiteral("Download 3000,FileCluster,Softpedia");
        summary.versions = QStringLiteral("1.0,1.1,1.2");
        const QString path = folder + u'/' + title_folder::summaryFile;
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(summary_file::text(summary).toUtf8()) < 0)
            std::abort();
        summaries.append(path);
    }
    return summaries;
}

} // namespace quillon
