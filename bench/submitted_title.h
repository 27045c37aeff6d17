#pragma once

#include "drawing.h"
#include "pad/pad_writer.h"
#include "platform/atomic_file.h"
#include "platform/settings.h"
#include "shell/toolbar_control.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/summary_file.h"
#include "store/title_folder.h"
#include "submission/default_sites.h"
#include "support/valid_form.h"

namespace quillon {

inline constexpr size_t marks = 200;

/// A title without errors and with marks for most of the sites, half of them at older versions.
inline bool makeTitle()
{
    QStringList sites;
    QStringList versions;
    for (size_t index = 0; index < marks; ++index) {
        sites.append(defaultSites[index].name.toString());
        versions.append(index % 2 == 0 ? QStringLiteral("0.9") : QStringLiteral("1.0"));
    }
    PadForm form;
    fillValidly(form, true);
    Summary summary;
    summary.version = form.value(FieldId::programVersion);
    summary.sites = sites.join(u',');
    summary.versions = versions.join(u',');
    const QString title = QStringLiteral("Title");
    return AddDeleteImportEdit::createNewListing(title) &&
           atomic_file::write(*title_folder::path(title) + u'/' + title_folder::padFile,
                              pad_writer::document(form)) &&
           atomic_file::write(*title_folder::path(title) + u'/' + title_folder::summaryFile,
                              summary_file::text(summary).toUtf8());
}

/// Has the program work in @p home, where it finds that title alone. Whether it could be made.
inline bool prepareHome(const QString &home)
{
    setSettingsHome(home);
    setDataFolder(home);
    (void)AddDeleteImportEdit::checkAppSuppExists();
    setDefaultSites();
    return makeTitle();
}

/// What happens from the press of Submit until the list of sites is drawn.
inline void showSubmitWindow(ToolbarControl &toolbar)
{
    const Drawing drawing(QStringLiteral("sitesTableView"));
    toolbar.submitTBI();
    drawing.wait();
}

} // namespace quillon
