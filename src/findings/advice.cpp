#include "findings/advice.h"

#include "findings/advice_rules.h"
#include "findings/explanations.h"

#include <array>

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

} // namespace

QList<Finding> advice(const Subject &subject)
{
    QList<Finding> all;
    for (const AdviceRule &rule : table) {
        Adviser adviser(rule.id);
        rule.advise(subject, adviser);
        all += adviser.findings();
    }
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
