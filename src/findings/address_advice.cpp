#include "findings/advice_rules.h"
#include "findings/field_phrases.h"
#include "pad/pad_form.h"
#include "platform/plain_text.h"
#include "platform/regex.h"

#include <QSet>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::findings {

namespace {

constexpr QStringView http = u"http://";
constexpr QStringView https = u"https://";

constexpr FieldId downloads[] = {FieldId::primaryDownloadURL, FieldId::secondaryDownloadURL,
                                 FieldId::otherDownloadURL1, FieldId::otherDownloadURL2};

/// What stands behind the server's name, without a query and a fragment.
QStringView pathOf(QStringView address)
{
    if (const qsizetype scheme = address.indexOf(u"://"); scheme >= 0)
        address = address.sliced(scheme + 3);
    for (const QChar end : {u'?', u'#'}) {
        if (const qsizetype at = address.indexOf(end); at >= 0)
            address = address.first(at);
    }
    const qsizetype slash = address.indexOf(u'/');
    return slash < 0 ? QStringView() : address.sliced(slash + 1);
}

/// The server's name, in small letters and without "www.", of an address that begins with @p scheme; empty
/// for any other.
QString serverOf(QStringView address, QStringView scheme)
{
    address = address.trimmed();
    if (!address.startsWith(scheme, Qt::CaseInsensitive))
        return {};
    address = address.sliced(scheme.size());
    const qsizetype slash = address.indexOf(u'/');
    const QString server = address.first(slash < 0 ? address.size() : slash).toString().toLower();
    return server.startsWith(u"www.") ? server.sliced(4) : server;
}

using Version = QList<int>;

/// The numbers of the version @p text, without zeros at its end.
Version numbersOf(QString text)
{
    Version numbers;
    for (const QString &number : text.replace(u'_', u'.').split(u'.'))
        numbers.append(number.toInt());
    while (!numbers.isEmpty() && numbers.last() == 0)
        numbers.removeLast();
    return numbers;
}

/// Whether one is the other or begins with it: authors leave the last numbers of a version out of names.
bool isSameVersion(const Version &one, const Version &other)
{
    const qsizetype common = std::min(one.size(), other.size());
    return one.first(common) == other.first(common);
}

/// The versions that stand in @p path, written with points or underscores; no dates, and no versions of the
/// systems that a file is for.
QStringList versionsIn(const QString &path)
{
    static const Regex version(
        u"(?<![0-9])(?<![0-9][._])(?<!win|mac|osx|net|java|jre|jdk|php|qt|python|ubuntu|debian|fedora)"
        u"([0-9]{1,4}(?:[._][0-9]{1,5}){1,3})(?=\\.?[^0-9.]|$)");
    static const Regex date(u"^(?:19|20)[0-9]{2}[._][01]?[0-9][._][0-3]?[0-9]$|"
                            u"^[0-3]?[0-9][._][0-3]?[0-9][._](?:19|20)[0-9]{2}$");
    QStringList versions;
    QStringView rest = path;
    while (const auto match = version.firstMatch(rest)) {
        const Regex::Range found = match->range(1);
        const QStringView text = rest.sliced(found.start, found.length);
        if (!date.firstMatch(text))
            versions.append(text.toString());
        rest = rest.sliced(found.start + found.length);
    }
    return versions;
}

/// What stands behind the server's name, blanks and the like as themselves, without the ending of a file.
QString nameOf(const QString &address)
{
    static const Regex ending(u"\\.[0-9]{0,2}[A-Za-z][A-Za-z0-9]{0,8}$");
    return ending.replaceAll(QUrl::fromPercentEncoding(pathOf(address).toUtf8()), {});
}

} // namespace

void adviseOnVersions(const Subject &subject, Adviser &adviser)
{
    static const Regex number(u"[0-9]+(?:[._][0-9]+)*");
    const QString version = subject.form.value(FieldId::programVersion);
    const auto numbers = number.firstMatch(version);
    if (!numbers)
        return;
    const Version own = numbersOf(numbers->captured().toString());
    for (const FieldId field : downloads) {
        const QString address = subject.form.value(field);
        const QStringList named = versionsIn(nameOf(address));
        const auto isOwn = [&own](const QString &each) { return isSameVersion(numbersOf(each), own); };
        if (named.isEmpty() || std::ranges::any_of(named, isOwn))
            continue;
        adviser.add(field,
                    u"The %1 names version %2, but the program has version %3. Give the address of the new "
                    u"version's file."_s.arg(field_phrases::of(field), named.last(), plainLine(version, 40)));
    }
}

void adviseOnInsecureAddresses(const Subject &subject, Adviser &adviser)
{
    QSet<QString> secure;
    const auto addresses = [&] {
        QList<FieldId> all = {FieldId::companyWebsite};
        for (const PadField &field : fields::web())
            all.append(field.id);
        return all;
    }();
    for (const FieldId field : addresses)
        secure.insert(serverOf(subject.form.value(field), https));
    secure.remove(QString());
    for (const FieldId field : addresses) {
        const QString server = serverOf(subject.form.value(field), http);
        if (secure.contains(server))
            adviser.add(field,
                        u"The %1 begins with http://, another address of %2 with https://. Use https:// for "
                        u"both, if both work."_s.arg(field_phrases::of(field), plainLine(server, 60)));
    }
}

void adviseOnDownloadEndings(const Subject &subject, Adviser &adviser)
{
    // A script may send the file, and so may a page that is called so: only what is surely a page is told of.
    static const Regex page(u"\\.html?$");
    static const Regex mayBeFile(u"\\.[a-z0-9]{0,12}[a-z][a-z0-9]{0,12}$|(?:^|/)downloads?(?:/[^/]*)?$");
    for (const FieldId field : downloads) {
        const QString address = subject.form.value(field).trimmed().toLower();
        const QStringView path = pathOf(address);
        if (!address.contains(u"://") || address.contains(u'?') ||
            (mayBeFile.firstMatch(path) && !page.firstMatch(path)))
            continue;
        adviser.add(field, u"The %1 leads to a page, as far as its end tells. If there is a file to "
                           u"download, give its address, such as one that ends in .exe or .zip."_s.arg(
                               field_phrases::of(field)));
    }
}

} // namespace quillon::findings
