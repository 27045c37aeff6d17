#pragma once

#include "overview/overview_controller.h"
#include "overview/title_commands.h"
#include "store/title_folder.h"
#include "support/recorders.h"
#include "support/temporary_home.h"

#include <QAbstractItemModelTester>

namespace quillon {

/// The list of titles and its commands, on an empty data folder.
class OverviewTest : public TemporaryDataFolder
{
protected:
    void SetUp() override
    {
        TemporaryDataFolder::SetUp();
        overview.awakeFromNib();
    }

    static QByteArray summaryText(const QString &version, const QString &sites = {},
                                  const QString &versions = {}, const QString &date = {})
    {
        return summary_file::text({.version = version,
                                   .releaseDate = date,
                                   .operatingSystems = u"Linux,Win98"_s,
                                   .validated = u"1"_s,
                                   .sites = sites,
                                   .versions = versions})
            .toUtf8();
    }
    static QString summaryOf(const QString &title) { return inData(title + u".qndata/general.qnxmld"); }
    /// A title whose summary file is @p summary.
    void addTitle(const QString &name, const QByteArray &summary)
    {
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(name) && put(summaryOf(name), summary));
        overview.loadSoftwareList();
    }
    QString fileAt(const QString &name, const QByteArray &bytes)
    {
        QString path = home() + u'/' + name;
        put(path, bytes);
        return path;
    }
    QStringList titles() { return overview.softwareTable().swNameArray(); }
    int rowOf(const QString &name) { return int(titles().indexOf(name)); }
    void select(const QString &name) { overview.tableViewSelectionDidChange(rowOf(name)); }
    /// What stands in a cell, of the list unless @p table; pictures by their names.
    QString cell(int row, int column, int role = Qt::DisplayRole, QAbstractItemModel *table = nullptr)
    {
        const QVariant value = (table ? table : &overview.softwareTable())->index(row, column).data(role);
        return value.typeId() == QMetaType::QStringList ? value.toStringList().join(u'|') : value.toString();
    }
    /// The marks of the selected title as "site version, status; site version, status".
    QString marks()
    {
        QStringList shown;
        SubmittedToTable &table = overview.submittedToTable();
        for (int row = 0; row < table.rowCount(); ++row)
            shown += cell(row, SubmittedToTable::Site, Qt::DisplayRole, &table) + u' ' +
                     cell(row, SubmittedToTable::Version, Qt::DisplayRole, &table) + u", " +
                     cell(row, SubmittedToTable::Status, Qt::AccessibleTextRole, &table);
        return shown.join(u"; ");
    }

    RecordingSheets sheets;
    ManualCalls calls;
    OverviewController overview{sheets};
    TitleCommands commands{overview, sheets, calls};
    QAbstractItemModelTester softwareTester{&overview.softwareTable(),
                                            QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester submittedTester{&overview.submittedToTable(),
                                             QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace quillon
