#pragma once

#include "findings/advice.h"

/// The single rules of advice; advice.cpp has their table.
namespace quillon::findings {

/// Where rules write down what they advise.
class Adviser
{
public:
    explicit Adviser(QStringView id) : m_rule(rule(id)) {}

    void add(FieldId field, const QString &explanation)
    {
        m_findings.append({m_rule.id, m_rule.severity, field, {}, explanation});
    }

    [[nodiscard]] const QList<Finding> &findings() const { return m_findings; }

private:
    const FindingRule &m_rule;
    QList<Finding> m_findings;
};

// What is told of each stands in finding_rules.cpp.
void adviseOnSizes(const Subject &subject, Adviser &adviser);
void adviseOnImpossibleDate(const Subject &subject, Adviser &adviser);
void adviseOnFutureRelease(const Subject &subject, Adviser &adviser);
void adviseOnOldRelease(const Subject &subject, Adviser &adviser);
void adviseOnOldCopyright(const Subject &subject, Adviser &adviser);
void adviseOnVersions(const Subject &subject, Adviser &adviser);
void adviseOnInsecureAddresses(const Subject &subject, Adviser &adviser);
void adviseOnDownloadEndings(const Subject &subject, Adviser &adviser);
void adviseOnSameDescriptions(const Subject &subject, Adviser &adviser);
void adviseOnCutTexts(const Subject &subject, Adviser &adviser);
void adviseOnKeywords(const Subject &subject, Adviser &adviser);
void adviseOnLanguage(const Subject &subject, Adviser &adviser);
void adviseOnXml(const Subject &subject, Adviser &adviser);

} // namespace quillon::findings
