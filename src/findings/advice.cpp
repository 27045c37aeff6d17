#include "findings/advice.h"

#include "findings/advice_rules.h"
#include "findings/explanations.h"
#include "findings/field_phrases.h"
#include "findings/rule_pack.h"
#include "pad/pad_form.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quillon::findings {

namespace {

struct AdviceRule
{
    QStringView id;
    void (*advise)(const Subject &subject, Adviser &adviser);
};

constexpr AdviceRule table[] = {
    {u"size-mismatch", adviseOnSizes},
    {u"date-impossible", adviseOnImpossibleDate},
    {u"release-in-future", adviseOnFutureRelease},
    {u"release-old", adviseOnOldRelease},
    {u"copyright-old", adviseOnOldCopyright},
    {u"version-mismatch", adviseOnVersions},
    {u"address-http", adviseOnInsecureAddresses},
    {u"download-ending", adviseOnDownloadEndings},
    {u"descriptions-same", adviseOnSameDescriptions},
    {u"text-cut", adviseOnCutTexts},
    {u"keyword-twice", adviseOnKeywords},
    {u"language-wrong", adviseOnLanguage},
    {u"xml-unreadable", adviseOnXml},
};

QList<Finding> adviceOf(const RulePack &pack, const PadForm &form)
{
    QList<Finding> all;
    for (const PackRule &rule : pack.rules) {
        for (const FieldId field : rule.fields) {
            if (rule.passes(form.value(field)))
                continue;
            QString explanation = rule.explanation;
            explanation.replace(u"{field}"_s, field_phrases::of(field).toString());
            all.append(
                {.id = rule.id, .severity = rule.severity, .field = field, .explanation = explanation});
        }
    }
    return all;
}

} // namespace

QList<Finding> advice(const Subject &subject)
{
    QList<Finding> all;
    for (const AdviceRule &rule : table) {
        Adviser adviser(rule.id);
        rule.advise(subject, adviser);
        all += adviser.findings();
    }
    for (const RulePack &pack : subject.packs)
        all += adviceOf(pack, subject.form);
    return all;
}

QList<Finding> all(const StringDictionary &recorded, const Subject &subject)
{
    return explained(recorded, subject.form) + advice(subject);
}

QString sentence(const Finding &finding)
{
    static constexpr std::array<QStringView, 3> words = {u"", u"Warning: ", u"Hint: "};
    return words[size_t(finding.severity)] + finding.explanation;
}

QString told(FieldId field, const StringDictionary &recorded, const Subject &subject)
{
    QStringList lines;
    for (const Finding &finding : all(recorded, subject)) {
        if (finding.field != field)
            continue;
        if (!finding.recorded.isEmpty())
            lines.append(finding.recorded);
        lines.append(sentence(finding));
    }
    return lines.join(u'\n');
}

} // namespace quillon::findings
