#include "findings/advice.h"

#include "findings/advice_rules.h"
#include "findings/explanations.h"

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

} // namespace quillon::findings
