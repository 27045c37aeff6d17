#include "submission/submission_marks.h"

#include "ledger/mark_entries.h"
#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"
#include "platform/xml_source.h"
#include "store/add_delete_import_edit.h"
#include "store/storage_status.h"
#include "store/summary_file.h"

#include <QCoreApplication>
#include <QStringList>

#include <numeric>

using namespace Qt::StringLiterals;

namespace quillon::submission_marks {

namespace {

class SubmissionMarksText
{
    Q_DECLARE_TR_FUNCTIONS(SubmissionMarks)
};

constexpr QStringView sitesTag = u"QN_SITES";
constexpr QStringView versionsTag = u"QN_VERSION";
constexpr QStringView currentVersionTag = u"OTS_VERSION";

/// An element of the summary, as it stands in the file and as readers read it.
///
/// The file's own text is edited, rather than a parsed document printed anew: so everything outside the two
/// lists keeps its bytes, blanks and declaration included, and a list that is self-closed, or that pruning
/// left unclosed, is found by what really stands there and comes back closed.
struct Element
{
    Element(const QByteArray &summary, QStringView tag)
    {
        const QByteArrayView found = XmlSource(summary).element(tag.toUtf8());
        source = QString::fromUtf8(found);
        value = TolerantXml(source).first(tag).value_or(QString());
    }

    [[nodiscard]] bool exists() const { return !source.isEmpty(); }

    QString source;
    QString value;
};

QString withoutCommasAtEnd(QString list)
{
    while (list.endsWith(u','))
        list.chop(1);
    return list;
}

QStringList entries(const QString &list)
{
    return withoutCommasAtEnd(list).split(u',');
}

QString elementText(QStringView tag, const QString &list)
{
    return u'<' + tag + u'>' + list + u"</" + tag + u'>';
}

/// The element of a list to which entries were added, each with a "," on one side.
QString cleanElementText(QStringView tag, const QString &list)
{
    const QString start = u'<' + tag + u'>';
    const QString before = u',' + start;
    const QString after = start + u',';
    return elementText(tag, list).replace(after, start).replace(before, start).replace(u",,"_s, u","_s);
}

/// The versions @p versions with that of each entry @p site set to @p current; a "," after every one.
QString withVersionOf(const QString &site, const QStringList &sites, const QStringList &versions,
                      const QString &current)
{
    QString list;
    for (qsizetype index = 0; index < sites.size(); ++index)
        list += (sites[index] == site ? current : versions[index]) + u',';
    return list;
}

/// The entries but the one at @p left, a "," after every one; @p count of them, those that are missing empty.
QString listWithout(qsizetype left, const QStringList &list, qsizetype count)
{
    QString rest;
    for (qsizetype index = 0; index < count; ++index) {
        if (index != left)
            rest += list.value(index) + u',';
    }
    return rest;
}

/// A new title's summary with marks for @p sites, made one after the other.
QString marked(const QStringList &sites)
{
    return std::accumulate(sites.begin(), sites.end(), summary_file::emptyText(), withMark);
}

QStringList sitesOf(const QString &summary)
{
    return summary_file::parse(summary.toUtf8()).siteList();
}

/// Changes the marks as @p edited does, and lets the ledger follow; @p isMarking says that @p site is sent.
Result<> editSummary(QString (*edited)(const QString &summary, const QString &site), const QString &site,
                     bool isMarking)
{
    const auto bytes = AddDeleteImportEdit::returnDataObjectFor(u"general");
    if (!bytes) {
        reportFailure(bytes.error());
        return bytes.error();
    }
    const QString before = decodedXmlText(*bytes);
    const QString after = edited(before, site);
    Result<> changed =
        after == before ? Result<>() : AddDeleteImportEdit::writeToFile(u"general", after.toUtf8(), bytes);
    if (changed.isDone())
        mark_entries::follow(summary_file::parse(*bytes), summary_file::parse(after.toUtf8()),
                             isMarking ? site : QString());
    return changed;
}

} // namespace

QString withMark(const QString &summary, const QString &site)
{
    const QByteArray utf8 = summary.toUtf8();
    const Element sites(utf8, sitesTag);
    const Element versions(utf8, versionsTag);
    const QString current = Element(utf8, currentVersionTag).value;
    const bool isMarked = sites.value.split(u',').contains(site);

    QString work = summary;
    if (sites.exists() && !isMarked) {
        const QString list = withoutCommasAtEnd(sites.value) + u',' + site;
        work.replace(sites.source, cleanElementText(sitesTag, list));
    }
    if (!versions.exists())
        return work;
    if (!isMarked) {
        const QString version = current.isEmpty() ? unknownVersion.toString() : current;
        const QString list = withoutCommasAtEnd(versions.value) + u',' + version;
        return work.replace(versions.source, cleanElementText(versionsTag, list));
    }
    const QStringList siteList = entries(sites.value);
    const QStringList versionList = entries(versions.value);
    if (siteList.size() != versionList.size())
        return work;
    const QString list = withVersionOf(site, siteList, versionList, current);
    return work.replace(versions.source, cleanElementText(versionsTag, list));
}

QString withoutMark(const QString &summary, const QString &site)
{
    const QByteArray utf8 = summary.toUtf8();
    const Element sites(utf8, sitesTag);
    // The search begins with the element as it stands, its tags included; a name that is found in nothing but
    // a tag, or across two entries, has no mark to remove.
    if (site.isEmpty() || !sites.source.contains(site, Qt::CaseInsensitive))
        return summary;
    const QStringList siteList = entries(sites.value);
    qsizetype last = siteList.size() - 1;
    while (last >= 0 && !siteList[last].contains(site, Qt::CaseInsensitive))
        --last;
    if (last < 0)
        return summary;

    QString work = summary;
    const Element versions(utf8, versionsTag);
    work.replace(sites.source, elementText(sitesTag, listWithout(last, siteList, siteList.size())));
    if (versions.exists()) {
        const QString rest = listWithout(last, entries(versions.value), siteList.size());
        work.replace(versions.source, elementText(versionsTag, rest));
    }
    return work.replace(u",<"_s, u"<"_s).replace(u">,"_s, u">"_s).replace(u",,"_s, u","_s);
}

bool canBeKept(const QString &site)
{
    // Names that end markup of every kind: a beginning of it in @p site would swallow those up to it.
    static const QStringList others = {u"next>."_s,  u"next'>."_s,  u"next\">."_s,
                                       u"next?>."_s, u"next-->."_s, u"next]]>."_s};
    const QStringList sites = QStringList{u"first"_s, site} + others;
    const QString among = withoutMark(marked(sites + QStringList{u"last"_s}), u"last"_s);
    return sitesOf(marked({site})) == QStringList{site} && sitesOf(among) == sites;
}

Result<> markSubmitted(const QString &site)
{
    if (!canBeKept(site))
        return Error{.kind = Error::Kind::Refused,
                     .reason = SubmissionMarksText::tr(
                                   "A mark for %1 cannot be kept: the name holds a comma or markup.")
                                   .arg(site)};
    return editSummary(withMark, site, true);
}

Result<> removeMark(const QString &site)
{
    return editSummary(withoutMark, site, false);
}

} // namespace quillon::submission_marks
