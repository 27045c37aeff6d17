#include "overview/taking_over.h"

#include "overview/example_title.h"
#include "platform/translated_text.h"
#include "store/process_state.h"
#include "store/title_folder.h"

#include <QDateTime>
#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::taking_over {

namespace {

/// The names of all titles, the one whose PAD file was stored last first.
QStringList byTime()
{
    QList<std::pair<QDateTime, QString>> found;
    const QString pattern = u'*' + title_folder::extension;
    for (const QString &folder : QDir(mwqnAppSuppLoc).entryList({pattern}, QDir::Dirs | QDir::Hidden)) {
        const QFileInfo pad(mwqnAppSuppLoc + folder + u'/' + title_folder::padFile);
        found.append({pad.lastModified(), folder.chopped(title_folder::extension.size())});
    }
    std::sort(found.rbegin(), found.rend());
    QStringList names;
    for (const auto &[time, name] : found)
        names.append(name);
    return names;
}

} // namespace

bool isBare(const FormValues &values)
{
    return std::ranges::all_of(
        fields::company(), [&values](const PadField &field) { return values[size_t(field.id)].isEmpty(); });
}

std::optional<TitleState> lastTitle(const QString &title)
{
    for (const QString &name : byTime()) {
        if (name == title || name == example_title::name)
            continue;
        auto state = change_plans::stateOf(name); // One that cannot be read has nothing to offer.
        if (state && !isBare(state->judged.values))
            return *std::move(state);
    }
    return std::nullopt;
}

QList<Change> changes(const FormValues &present, const TitleState &from)
{
    QList<Change> all;
    for (const PadField &field : fields::company()) {
        const QString &before = present[size_t(field.id)];
        const QString &after = from.judged.values[size_t(field.id)];
        if (before != after)
            all.append({.field = field.id, .before = before, .after = after});
    }
    return all;
}

QString label(const TitleState &from)
{
    return fixedEnglish(u"Company, author, contact and support as in %1").arg(from.title);
}

} // namespace quillon::taking_over
