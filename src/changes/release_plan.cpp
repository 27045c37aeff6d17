#include "changes/release_plan.h"

#include "journal/history.h"
#include "pad/file_size.h"
#include "pad/vocabularies.h"
#include "platform/regex.h"
#include "platform/translated_text.h"
#include "validation/field_rules.h"
#include "validation/text_filters.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::release_plan {

namespace {

class ReleasePlanText
{
    Q_DECLARE_TR_FUNCTIONS(ReleasePlan)
};

constexpr QStringView versionExtra = u"0-9 ._-"; // As typing takes it.

/// The changes of one title as they come in, each from what it holds.
class Changes
{
public:
    explicit Changes(const FormValues &values) : m_values(values) {}

    void set(FieldId field, const QString &value) { m_changes.append({field, of(field), value}); }
    [[nodiscard]] const QString &of(FieldId field) const { return m_values[size_t(field)]; }
    [[nodiscard]] const QList<Change> &all() const { return m_changes; }

private:
    const FormValues &m_values;
    QList<Change> m_changes;
};

QString twoDigits(int number)
{
    return u"%1"_s.arg(number, 2, 10, QLatin1Char('0'));
}

void setDate(QDate date, Changes &changes)
{
    changes.set(FieldId::releaseDateDay, twoDigits(date.day()));
    changes.set(FieldId::releaseDateMonth, twoDigits(date.month()));
    changes.set(FieldId::releaseDateYear, QString::number(date.year()));
}

void setSizes(qint64 size, Changes &changes)
{
    const QString bytes = QString::number(size);
    changes.set(FieldId::sizeInBytes, bytes);
    changes.set(FieldId::programSizeKB, file_size::withoutUnit(file_size::kilobytes(bytes)));
    changes.set(FieldId::programSizeMB, file_size::withoutUnit(file_size::megabytes(bytes)));
}

/// The versions that a file's name bears.
QStringList versionsIn(const QString &fileName)
{
    static const Regex version(uR"((?<![0-9])[0-9]+(?:[._-][0-9]+)+(?![0-9]))");
    static const Regex architecture(u"(?i)x(?:86[_-]64|86|64|32)");
    QString rest = architecture.replaceAll(fileName, u"");
    QStringList versions;
    while (const auto match = version.firstMatch(rest)) {
        versions.append(match->captured().toString().replace(u'_', u'.').replace(u'-', u'.'));
        rest = rest.sliced(match->range().start + match->range().length);
    }
    return versions;
}

void noteFile(const Release &release, QStringList &notes)
{
    const QStringList versions = release.file ? versionsIn(release.file->name) : QStringList();
    const QString wanted = QString(release.version).replace(u'_', u'.').replace(u'-', u'.');
    if (!versions.isEmpty() && !versions.contains(wanted) && !release.file->name.contains(release.version))
        notes.append(ReleasePlanText::tr("The name of the file %1 has the version %2 in it, not %3.")
                         .arg(release.file->name, versions.first(), release.version));
}

void setAddresses(const Release &release, Changes &changes, QStringList &notes)
{
    const QString &oldVersion = changes.of(FieldId::programVersion);
    QStringList kept;
    for (const PadField &field : fields::web()) {
        const QString &address = changes.of(field.id);
        const QString replaced = withNewVersion(address, oldVersion, release.version);
        if (replaced == address)
            continue;
        if (release.replacesVersionInAddresses && !release.version.contains(u' '))
            changes.set(field.id, replaced);
        else
            kept.append(field.element.toString());
    }
    if (!kept.isEmpty())
        notes.append(ReleasePlanText::tr("The version %1 stays in %2.").arg(oldVersion, kept.join(u", "_s)));
}

TitlePlan planOne(const Release &release, const TitleState &state)
{
    Changes changes(state.judged.values);
    QStringList notes;
    changes.set(FieldId::programVersion, release.version);
    setDate(release.date, changes);
    if (release.file)
        setSizes(release.file->size, changes);
    if (release.changes)
        changes.set(FieldId::changeInformationView, *release.changes);
    if (release.status)
        changes.set(FieldId::programStatusPopUp, *release.status);
    noteFile(release, notes);
    setAddresses(release, changes, notes);
    return change_plans::planned(state, changes.all(), notes);
}

Error refused(const QString &reason)
{
    return {Error::Kind::Refused, {}, reason};
}

} // namespace

Result<ReleaseFile> fileAt(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return Error{Error::Kind::Missing, path, ReleasePlanText::tr("there is no such file")};
    if (!file.isFile())
        return Error{Error::Kind::Unreadable, path, ReleasePlanText::tr("it is no regular file")};
    return ReleaseFile{file.fileName(), file.size()};
}

Result<> judge(const Release &release)
{
    const Bounds lengths = field_rules::of(FieldId::programVersion).summary.bounds;
    const Bounds years = field_rules::of(FieldId::releaseDateYear).summary.bounds;
    if (!lengths.hold(release.version.size()) ||
        text_filters::leadingLetters(release.version, versionExtra) != release.version ||
        release.version.trimmed() != release.version)
        return refused(ReleasePlanText::tr("A version has %1 to %2 letters, digits, blanks, and “.”, “_”, "
                                           "“-”; blanks stand inside only.")
                           .arg(lengths.min)
                           .arg(lengths.max));
    if (!release.date.isValid() || !years.hold(release.date.year()))
        return refused(ReleasePlanText::tr("A release has a date, year-month-day, in the years %1 to %2.")
                           .arg(years.min)
                           .arg(years.max));
    if (release.status && !vocabulary::releaseStatuses().contains(*release.status))
        return refused(ReleasePlanText::tr("A release's status is one of: %1.")
                           .arg(vocabulary::releaseStatuses().join(u", "_s)));
    return {};
}

ChangePlan plan(const Release &release, const QStringList &titles)
{
    ChangePlan plan{.origin = history::origin::release,
                    .label = fixedEnglish(u"Release %1").arg(release.version),
                    .titles = {}};
    change_plans::planEach(plan, titles,
                           [&release](const TitleState &state) { return planOne(release, state); });
    return plan;
}

QString withNewVersion(const QString &address, const QString &oldVersion, const QString &newVersion)
{
    if (oldVersion.trimmed().isEmpty() || oldVersion == newVersion)
        return address;
    const bool hasPoint = oldVersion.contains(u'.');
    const QString joined = hasPoint ? u"._-"_s : u"."_s;
    QString replaced = address;
    for (const QChar point : joined) {
        const QString written = QString(oldVersion).replace(u'.', point);
        if (!replaced.contains(written))
            continue; // Most addresses hold none, and a pattern takes long to make.
        const Regex version(u"(?<![0-9A-Za-z])(?<![0-9]\\%1)([vV]%2)%3(?![0-9A-Za-z])(?!\\%1[0-9])"_s.arg(
            point, hasPoint ? u"?"_s : QString(), Regex::escaped(written)));
        const QString after = u"${1}"_s + QString(newVersion).replace(u'.', point);
        replaced = version.replaceAll(replaced, after);
    }
    return replaced;
}

} // namespace quillon::release_plan
