#include "cli/list_command.h"

#include "overview/title_list.h"
#include "store/data_folder_lock.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

QStringList namesIn(const std::optional<QString> &list)
{
    QStringList names = list.value_or(QString()).split(u',');
    names.removeAll(QString());
    return names;
}

QJsonArray submissions(const Summary &summary)
{
    QJsonArray marks;
    const QStringList sites = summary.siteList();
    const QStringList versions = summary.versionList();
    for (qsizetype at = 0; at < sites.size(); ++at) {
        if (sites[at].isEmpty())
            continue;
        const QString version = versions.value(at);
        marks.append(QJsonObject{{u"site"_s, sites[at]},
                                 {u"version"_s, version},
                                 {u"current"_s, version == summary.version.value_or(QString())}});
    }
    return marks;
}

QJsonObject json(const Title &title)
{
    const Summary &summary = title.summary;
    return {{u"name"_s, title.name},
            {u"version"_s, summary.version.value_or(QString())},
            {u"releaseDate"_s, summary.releaseDate.value_or(QString())},
            {u"operatingSystems"_s, QJsonArray::fromStringList(namesIn(summary.operatingSystems))},
            {u"validated"_s, summary.validated ? QJsonValue(*summary.validated == u"1") : QJsonValue()},
            {u"submissions"_s, submissions(summary)}};
}

QStringList columns(const Title &title)
{
    const Summary &summary = title.summary;
    const QString state = !summary.validated           ? u"-"_s
                          : *summary.validated == u"1" ? u"validated"_s
                                                       : u"not validated"_s;
    return {title.name, summary.version.value_or(QString()).simplified(),
            summary.releaseDate.value_or(QString()).simplified(),
            namesIn(summary.operatingSystems).join(u", ").simplified(), state};
}

class List final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "The titles: name, version, release date, operating systems and state, a line each");
        command.add_flag("--json", m_json, "As a JSON array");
    }

    [[nodiscard]] bool writes() const override { return false; }

    ExitStatus run() override
    {
        ExitStatus status = Done;
        auto list = loadTitles(OldLayout::Leave);
        if (list && list->hasOldLayout) {
            // Only who holds the folder may change it; nobody waits for it here.
            const DataFolderLock lock(std::chrono::milliseconds(0));
            if (lock.state() == DataFolderLock::State::Held)
                list = loadTitles(OldLayout::Convert);
            else if (lock.state() != DataFolderLock::State::HeldByAnother)
                status = outcome(lock.obstruction());
        }
        if (!list)
            return outcome(list.error());
        QJsonArray array;
        for (const Title &title : list->titles) {
            if (m_json)
                array.append(json(title));
            else
                printColumns(columns(title));
        }
        if (m_json)
            print(QJsonDocument(array));
        for (const Error &failure : list->failures)
            status = outcome(failure);
        return status;
    }

private:
    bool m_json = false;
};

} // namespace

std::unique_ptr<Command> listCommand()
{
    return std::make_unique<List>();
}

} // namespace quillon::cli
