#include "overview/title_operations.h"

#include "journal/journal.h"
#include "journal/originals.h"
#include "journal/titles.h"
#include "overview/merged_export.h"
#include "pad/field_catalogue.h"
#include "pad/import_findings.h"
#include "pad/pad_writer.h"
#include "platform/abandoned.h"
#include "platform/atomic_file.h"
#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"
#include "platform/translated_text.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/site_list.h"
#include "store/storage_status.h"
#include "store/summary_file.h"
#include "store/title_folder.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace quillon::title_operations {

namespace {

class TitleOperationsText
{
    Q_DECLARE_TR_FUNCTIONS(TitleOperations)
};

Q_LOGGING_CATEGORY(titleLog, "quillon.overview")

Error noPadFile(const QString &name)
{
    return {Error::Kind::Unintelligible, name, TitleOperationsText::tr("it is no PAD file")};
}

QString nameConflict(const QString &name)
{
    if (name.isEmpty())
        return TitleOperationsText::tr(
            "No name could be found for the software in this PAD file\nPlease choose a name for this import");
    if (judgeName(name) == NameVerdict::Taken)
        return TitleOperationsText::tr(
                   "A listing with the name %1 already exists\nPlease choose another name.")
            .arg(name);
    return TitleOperationsText::tr("The name %1 cannot be used for a listing\nPlease choose another name.")
        .arg(name.simplified());
}

/// The parallel lists of marks.
struct Marks
{
    QStringList sites;
    QStringList versions;
};

/// The marks of @p summary whose sites are in the catalogue or among the author's @p ownSites.
Marks remainingMarks(const Summary &summary, const StringDictionary &ownSites)
{
    const QStringList versions = summary.versionList();
    Marks rest;
    qsizetype at = 0;
    for (const QString &site : summary.siteList()) {
        if (site.isEmpty() || mwqnSCPreallSitesDict.contains(site) || ownSites.contains(site)) {
            rest.sites.append(site);
            rest.versions += versions.mid(at, 1);
        }
        ++at;
    }
    rest.versions += versions.mid(at);
    return rest;
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
        return TitleOperationsText::tr("You Must Enter a Name for the Software Title");
    case NameVerdict::Taken:
        return TitleOperationsText::tr("This Software Name Already Exists, Please Choose a Unique Name.");
    case NameVerdict::Unusable:
        return TitleOperationsText::tr("This name cannot be used: it holds a \"/\" or is too long.");
    case NameVerdict::Free:
        break;
    }
    return {};
}

Result<> renameTitle(const QString &oldName, const QString &newName)
{
    Result<> renamed = AddDeleteImportEdit::renameExistingQnDataFile(oldName, newName);
    if (renamed.isDone()) {
        (void)Journal::ofDataFolder().changeExisting([&](Database &database) { // The status bar tells.
            return journal_titles::rename(database, oldName, newName);
        });
    }
    return renamed;
}

Result<PadFile> padFile(QByteArray bytes, const QString &name)
{
    QString text = decodedXmlText(bytes);
    if (bytes.size() > maxPadFileSize || !text.contains(padMarker, Qt::CaseInsensitive))
        return noPadFile(name);
    return PadFile{std::move(bytes), PadDocument(std::move(text))};
}

Result<PadFile> readPadFile(const QString &path)
{
    auto bytes = atomic_file::read(path, maxPadFileSize);
    if (bytes)
        return padFile(*std::move(bytes), path);
    const QFileInfo file(path);
    const bool isTooLarge = file.isFile() && file.isReadable() && file.size() > maxPadFileSize;
    return isTooLarge ? noPadFile(path) : bytes.error();
}

Import importPadFile(const QString &path, const std::optional<QString> &name)
{
    const Result<PadFile> file = readPadFile(path);
    if (!file)
        return {file.isError(Error::Kind::Unintelligible) ? Import::NotPad : Import::NotRead,
                {},
                TitleOperationsText::tr(
                    "The file you selected does not appear to be a valid PAD file and cannot be imported."),
                {},
                file.error()};
    const PadDocument &document = file->document;
    const QString chosen =
        name ? *name : document.xml().first(padField(FieldId::programName).element).value_or(QString());
    if (const NameVerdict verdict = judgeName(chosen); verdict != NameVerdict::Free)
        return {Import::NeedsName, chosen, name ? sentence(verdict) : nameConflict(chosen), {}};

    const Result<> stored = AddDeleteImportEdit::importExistingFile(chosen, document);
    if (!stored.isDone())
        return {Import::NotStored, chosen, failureLine(stored.error()), {}, stored};
    const bool isKept =
        bool(originals::keep(chosen, {file->bytes, QFileInfo(path).fileName()}, originals::Keeping::Newest));
    return {Import::Imported,         chosen, translated("TitleOperations", importSucceeded),
            importFindings(document), stored, isKept};
}

Result<QByteArray> exportedPad(const QString &title, Export content)
{
    const auto original = content == Export::Stored ? originals::Original() : originals::of(title);
    if (!original || content == Export::Original)
        return original ? original->bytes : Result<QByteArray>(original.error());
    const auto folder = title_folder::path(title);
    if (!folder)
        return Error{Error::Kind::Missing, title, TitleOperationsText::tr("there is no such title")};
    const auto stored = atomic_file::read(*folder + u'/' + title_folder::padFile);
    if (!stored)
        return stored.error();
    return content == Export::Merged ? mergedExport(original->bytes, *stored) : pad_writer::exported(*stored);
}

Result<> exportPadFile(const QString &title, const QString &path, Export content)
{
    const auto bytes = exportedPad(title, content);
    if (!bytes) {
        const QString &reason = bytes.error().reason;
        return Error{bytes.error().kind, path,
                     content == Export::Stored
                         ? TitleOperationsText::tr("the title's own PAD file cannot be read: %1").arg(reason)
                         : reason};
    }
    const QFileInfo there(path);
    const bool isNew = !there.exists() && !there.isSymLink();
    if (!isNew && !there.isFile())
        return Error{Error::Kind::Refused, path, TitleOperationsText::tr("what has that name is no file")};
    const QString place = isNew ? path : there.canonicalFilePath(); // A link stays one.
    Result<> written = atomic_file::write(place, *bytes);
    if (written)
        removeAbandoned(QFileInfo(place).absolutePath());
    return written;
}

bool pruneMarks()
{
    const auto bytes = AddDeleteImportEdit::returnDataObjectFor(u"general");
    if (!bytes || mwqnSCPreallSitesDict.empty())
        return false;
    const Summary summary = summary_file::parse(*bytes);
    const qsizetype count = summary.siteList().size();
    if (remainingMarks(summary, {}).sites.size() == count)
        return false;
    // The catalogue may have been built while they could not be read.
    const auto ownSites = site_list::stored(site_list::userSites);
    if (!ownSites && !ownSites.isError(Error::Kind::Missing)) {
        qCWarning(titleLog).noquote() << "marks stay as they are:" << failureLine(ownSites.error());
        return false;
    }
    const Marks rest = remainingMarks(summary, ownSites.valueOr({}));
    if (rest.sites.size() == count)
        return false;
    const QString text = decodedXmlText(*bytes);
    const QString pruned = summary_file::withSubmissions(text, rest.sites, rest.versions);
    return AddDeleteImportEdit::writeToFile(u"general", pruned.toUtf8(), bytes).isDone() && pruned != text;
}

void pruneAndCheck(const std::function<void(bool isPruned)> &check)
{
    const bool isPruned = pruneMarks();
    check(isPruned);
    // Of lists of different lengths something may be left that reads as a mark once the check has rewritten
    // them.
    if (isPruned && pruneMarks())
        check(true);
}

} // namespace quillon::title_operations
