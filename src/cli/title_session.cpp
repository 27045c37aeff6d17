#include "cli/title_session.h"

#include "overview/title_operations.h"
#include "sites/site_editing.h"
#include "store/process_state.h"
#include "store/storage_status.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

QString name(Colour colour)
{
    return colour == Colour::Red ? u"red"_s : u"black"_s;
}

/// The whole text in stretches of one colour.
QJsonArray textColours(const Control &control)
{
    QJsonArray stretches;
    const auto *text = qobject_cast<const TextControl *>(&control);
    if (!text)
        return stretches;
    const auto append = [&stretches](qsizetype start, qsizetype end, Colour colour) {
        if (start < end)
            stretches.append(QJsonObject{{u"start"_s, qint64(start)},
                                         {u"length"_s, qint64(end - start)},
                                         {u"colour"_s, name(colour)}});
    };
    qsizetype at = 0;
    for (const ColourRun &run : text->redRuns()) {
        append(at, run.start, Colour::Black);
        append(run.start, run.start + run.length, Colour::Red);
        at = run.start + run.length;
    }
    append(at, text->text().size(), Colour::Black);
    return stretches;
}

QJsonObject json(const PadForm &form, FieldId id)
{
    const PadField &field = padField(id);
    const Control &control = form.control(id);
    return {{u"field"_s, field.control.toString()},
            {u"element"_s, field.element.toString()},
            {u"value"_s, form.value(id)},
            {u"hint"_s, control.hint()},
            {u"hintColour"_s, name(control.hintColour())},
            {u"labelColour"_s, name(control.caption().colour())},
            {u"textColours"_s, textColours(control)}};
}

/// The element and its value, an "!" before what is in error; below it the hint.
void printField(const PadForm &form, FieldId id)
{
    const Control &control = form.control(id);
    const bool wrong = control.caption().colour() == Colour::Red;
    print((wrong ? u"! "_s : u"  "_s) + padField(id).element + u": " + form.value(id));
    if (!control.hint().isEmpty())
        print(u"      "_s + control.hint());
}

} // namespace

void ToldAlerts::show(SheetWindow, const Alert &alert, Answered answered)
{
    messages.append(alert.message);
    complain(alert.message);
    if (answered)
        answered(AlertAnswer::Default);
}

void buildCatalogue()
{
    mwqnSCPreallSitesDict = site_editing::currentCatalogue().urlByName;
}

ExitStatus TitleSession::open(const QString &name)
{
    if (!titleExists(name))
        return Refused;
    buildCatalogue();
    selectTitle(name);
    Result<> loaded;
    title_operations::pruneAndCheck([&](bool) {
        loaded = m_session.open(name);
        editor().checkEntriesForErrors();
    });
    return outcome(loaded);
}

ExitStatus TitleSession::stored()
{
    for (const Error &failure : std::as_const(mwqnFailedWrites))
        complain(failureLine(failure));
    return mwqnFailedWrites.isEmpty() ? Done : FileFailed;
}

QList<FieldId> allFields()
{
    QList<FieldId> fields;
    for (const PadField &field : padFields)
        fields.append(field.id);
    return fields;
}

void showFields(TitleSession &session, const QString &title, const QList<FieldId> &fields, bool asJson)
{
    const PadForm &form = session.editor().form();
    if (!asJson) {
        for (const FieldId field : fields)
            printField(form, field);
        return;
    }
    QJsonArray array;
    for (const FieldId field : fields)
        array.append(json(form, field));
    print(QJsonDocument(QJsonObject{{u"name"_s, title},
                                    {u"fields"_s, array},
                                    {u"sizeKB"_s, form.text(FieldId::programSizeKB).text()},
                                    {u"sizeMB"_s, form.text(FieldId::programSizeMB).text()},
                                    {u"alerts"_s, QJsonArray::fromStringList(session.alerts())}}));
}

} // namespace quillon::cli
