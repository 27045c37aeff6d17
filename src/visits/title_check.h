#pragma once

#include "pad/field_catalogue.h"
#include "visits/online_check.h"
#include "visits/visit_verdict.h"

namespace quillon {

/// What is expected behind an address of a title.
enum class Expected : quint8
{
    Page,     ///< Anything that can be reached.
    Download, ///< A file of the size that the title states.
    Picture,
    Icon, ///< A picture of 32 × 32 pixels.
    PadFile
};

/// What a title says of itself.
struct Stated
{
    QByteArray pad;   ///< As it is exported.
    qint64 size = -1; ///< Of the download, in bytes; negative when it is not stated.
};

/// What came of a visit in a word or two, and in a sentence.
struct OnlineFinding
{
    QString result;
    QString detail;
};

/// What @p visit says of the address @p asked, at which @p expected is to be found. A guard against robots,
/// or a server that tells no size, is no fault of the title's.
OnlineFinding onlineFinding(Expected expected, const Stated &stated, const QString &asked,
                            const Visit &visit);

/// Visits the addresses that a title states, and compares what is there with what the title says of it.
/// Nothing is judged an error by it, and nothing is stored.
class TitleCheck : public OnlineCheck
{
    Q_OBJECT
public:
    /// Checks the title with the exported PAD file @p pad.
    TitleCheck(const QByteArray &pad, std::unique_ptr<Visitor> visitor, DelayedCalls &delayedCalls,
               QObject *parent = nullptr);

protected:
    void take(int row, const Visit &visit) override;

private:
    Stated m_stated;
    QList<Expected> m_expected; ///< For each row.
};

} // namespace quillon
