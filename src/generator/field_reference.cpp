#include "generator/field_reference.h"

#include "editor/editor_layout.h"
#include "editor/editor_pages.h"
#include "findings/explanations.h"
#include "findings/rule_pack.h"
#include "pad/pad_form.h"
#include "validation/error_pass.h"
#include "validation/field_rule_table.h"
#include "validation/field_rules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// What @p field is tried with, one after the other: nothing, too little, too much, and what is no address.
QStringList trials(FieldId field)
{
    static constexpr int shortest = 150; // Too much for what has no bound of its own.
    const int tooMuch = qMax(field_rules::of(field).summary.bounds.max + 10, shortest);
    return {u""_s,
            u"x"_s,
            QString(tooMuch, u'x'),
            u"x@y"_s,
            u"http://www.example.com/x"_s,
            u"99999999999999999"_s,
            u"Days"_s};
}

/// What some fields depend on: each of these is tried, with the value that makes the difference.
const QList<std::pair<FieldId, QString>> &circumstances()
{
    static const QList<std::pair<FieldId, QString>> values = {{FieldId::eula, {}},
                                                              {FieldId::expireCheckBox, u"Y"_s},
                                                              {FieldId::otherPrice, u"5"_s},
                                                              {FieldId::otherPricePopUp, u"EUR"_s}};
    return values;
}

/// What is recorded of a field for one reason.
struct Fault
{
    QStringView finding;
    QString explanation; ///< Of the first trial that shows it.
    QStringList messages;
};

/// Adds to @p faults what @p errors say of @p field in @p form.
void note(FieldId field, const PadForm &form, const ErrorPass &errors, QList<Fault> &faults)
{
    const auto error = errors.errors().find(padField(field).control.toString());
    if (error == errors.errors().end())
        return;
    const Finding finding = findings::explained(field, error->second, form);
    auto known = std::ranges::find(faults, finding.id, &Fault::finding);
    if (known == faults.end())
        known = faults.insert(faults.end(), {finding.id, finding.explanation, {}});
    if (!known->messages.contains(finding.recorded))
        known->messages.append(finding.recorded);
}

/// What the full check records of @p field, and what typing does, in the order in which the trials show it.
QList<Fault> faultsOf(FieldId field)
{
    QList<Fault> faults;
    for (const auto &[other, value] : circumstances()) {
        for (const QString &trial : trials(field)) {
            PadForm form;
            form.populatePopUpButtons();
            form.setValue(other, value);
            form.setValue(field, trial);
            ErrorPass checked;
            field_rules::checkEntries(form, checked);
            note(field, form, checked, faults);
            ErrorPass typed; // After it: typing takes out what it does not let in.
            field_rules::textChanged(field_rules::of(field).tag, form, typed);
            note(field, form, typed, faults);
        }
    }
    return faults;
}

QString describe(FieldId id)
{
    const PadField &field = padField(id);
    const FieldRule &rule = field_rules::of(id);
    const QStringView hint = rule.typing.hint.isEmpty() ? rule.summary.hint : rule.typing.hint;
    QString text = u"<h3 id=\"%1\">%2</h3>\n<p><code>%3</code>, <code>%1</code>"_s.arg(
        field.control, accessibleNameOf(id).toHtmlEscaped(), field.element);
    text += hint.isEmpty() ? u"</p>\n"_s : u". %1.</p>\n"_s.arg(hint.toString().toHtmlEscaped());
    for (const Fault &fault : faultsOf(id))
        text += u"<p><b>%1</b><br/>%2 (<code>%3</code>)</p>\n"_s.arg(
            fault.messages.join(u" / "_s).toHtmlEscaped(), fault.explanation.toHtmlEscaped(), fault.finding);
    return text;
}

} // namespace

QString findingReference()
{
    QString text = u"<table>\n"_s;
    for (const FindingRule &rule : findings::rules())
        text += u"<tr><td><code>%1</code></td><td>%2</td><td>%3</td></tr>\n"_s.arg(
            rule.id, findings::name(rule.severity), rule.summary.toString().toHtmlEscaped());
    return text + u"</table>\n"_s;
}

QString packReference()
{
    QString text;
    for (const RulePack &pack : rule_packs::builtIn()) {
        text += u"<h3><code>%1</code>: %2</h3>\n<table>\n"_s.arg(pack.id, pack.title.toHtmlEscaped());
        for (const PackRule &rule : pack.rules)
            text += u"<tr><td><code>%1</code></td><td>%2</td><td>%3</td></tr>\n"_s.arg(
                rule.id, findings::name(rule.severity), rule.summary.toHtmlEscaped());
        text += u"</table>\n"_s;
    }
    return text;
}

QString fieldReference()
{
    QString text;
    for (const EditorPage &page : editorPages) {
        text += u"<h2>%1</h2>\n"_s.arg(page.label);
        for (const FieldGroup &group : groupsOnPage(page.label)) {
            for (const FieldLine &line : group.fields) {
                text += describe(line.field);
                for (const auto &beside : {line.second, line.third})
                    text += beside ? describe(*beside) : QString();
            }
        }
    }
    return text;
}

} // namespace quillon
