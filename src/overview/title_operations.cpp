#include "overview/title_operations.h"

#include "pad/field_catalogue.h"
#include "pad/import_findings.h"
#include "pad/pad_writer.h"
#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/site_list.h"
#include "store/storage_status.h"
#include "store/summary_file.h"
#include "store/title_folder.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace quillon::title_operations {

namespace {

Q_LOGGING_CATEGORY(log, "quillon.overview")

QString nameConflict(const QString &name)
{
    if (name.isEmpty())
        return u"No name could be found for the software in this PAD file\nPlease choose a name for this import"_s;
    if (judgeName(name) == NameVerdict::Taken)
        return u"A listing with the name "_s + name + u" already exists\nPlease choose another name."_s;
    return u"The name "_s + name.simplified() +
           u" cannot be used for a listing\nPlease choose another name."_s;
}

} // namespace

NameVerdict judgeName(const QString &name)
{
    if (name.isEmpty())
        return NameVerdict::Empty;
    if (!title_folder::isUsableName(name))
        return NameVerdict::Unusable;
    return title_folder::exists(name) ? NameVerdict::Taken : NameVerdict::Free;
}

QString sentence(NameVerdict verdict)
{
    switch (verdict) {
    case NameVerdict::Empty:
        return u"You Must Enter a Name for the Software Title"_s;
    case NameVerdict::Taken:
        return u"This Software Name Already Exists, Please Choose a Unique Name."_s;
    case NameVerdict::Unusable:
        return u"This name cannot be used: it holds a \"/\" or is too long."_s;
    case NameVerdict::Free:
        break;
    }
    return {};
}

std::optional<QString> padText(const QString &path)
{
    const auto bytes = atomic_file::read(path, maxPadFileSize);
    if (!bytes)
        return std::nullopt;
    QString text = decodedXmlText(*bytes);
    return text.contains(padMarker, Qt::CaseInsensitive) ? std::optional(std::move(text)) : std::nullopt;
}

Import importPadFile(const QString &path, const std::optional<QString> &name)
{
    const std::optional<QString> text = padText(path);
    if (!text)
        return {Import::NotPad,
                {},
                u"The file you selected does not appear to be a valid PAD file and cannot be imported."_s,
                {}};
    const QString chosen =
        name ? *name : TolerantXml(*text).first(padField(FieldId::programName).element).value_or(QString());
    if (const NameVerdict verdict = judgeName(chosen); verdict != NameVerdict::Free)
        return {Import::NeedsName, chosen, name ? sentence(verdict) : nameConflict(chosen), {}};

    const QByteArray content = text->toUtf8();
    if (!AddDeleteImportEdit::importExistingFile(chosen, content))
        return {Import::NotStored, chosen, failedWriteLine(QDir::cleanPath(mwqnAppSuppLoc)), {}};
    return {Import::Imported, chosen, importSucceeded, importFindings(content)};
}

std::optional<QByteArray> exportedPad(const QString &title)
{
    const auto folder = title_folder::path(title);
    const auto stored = folder ? atomic_file::read(*folder + u'/' + title_folder::padFile) : std::nullopt;
    return stored ? std::optional(pad_writer::exported(*stored)) : std::nullopt;
}

std::optional<atomic_file::WriteError> exportPadFile(const QString &title, const QString &path)
{
    const auto content = exportedPad(title);
    if (!content)
        return atomic_file::WriteError{path, u"the title's own PAD file cannot be read"_s};
    const QFileInfo there(path);
    if (!there.exists() && !there.isSymLink())
        return atomic_file::write(path, *content);
    if (!there.isFile())
        return atomic_file::WriteError{path, u"what has that name is no file"_s};
    return atomic_file::write(there.canonicalFilePath(), *content); // A link stays one.
}

bool pruneMarks()
{
    const auto bytes = AddDeleteImportEdit::returnDataObjectFor(u"general");
    if (!bytes || mwqnSCPreallSitesDict.empty())
        return false;
    const Summary summary = summary_file::parse(*bytes);
    QStringList sites = summary.siteList();
    QStringList versions = summary.versionList();
    bool changed = false;
    for (qsizetype at = 0; at < sites.size();) {
        if (sites[at].isEmpty() || mwqnSCPreallSitesDict.contains(sites[at])) {
            ++at;
            continue;
        }
        sites.removeAt(at);
        if (at < versions.size())
            versions.removeAt(at);
        changed = true;
    }
    if (changed && !site_list::isUnderstood(site_list::userSites)) {
        // Nobody can tell now which sites are gone; the marks of the author's own are not to go for that.
        qCWarning(log).noquote() << "marks stay as they are:" << site_list::userSites << "cannot be read";
        return false;
    }
    if (changed) {
        const QString pruned = summary_file::withSubmissions(decodedXmlText(*bytes), sites, versions);
        AddDeleteImportEdit::writeToFile(u"general", pruned.toUtf8());
    }
    return changed;
}

} // namespace quillon::title_operations
