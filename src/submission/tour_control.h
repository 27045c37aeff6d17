#pragma once

#include "ledger/tour.h"

#include <QObject>

namespace quillon {

class SubmitControl;

/// The tour through the sites in the submission window: it follows the author's own selections and marks, and
/// leads on. The page on show is left alone until the author asks for the next one.
class TourControl : public QObject
{
    Q_OBJECT
public:
    /// @p control must outlive it.
    explicit TourControl(SubmitControl &control);

    /// Whether anything is to be brought up to date.
    [[nodiscard]] bool isOffered() const { return m_tour && !m_tour->at().isEmpty(); }
    /// Where the tour stands, one line; also why that is not known. Empty when it is not offered.
    [[nodiscard]] const QString &line() const { return m_line; }

    /// Goes to the site at which the author stopped; from there to the one after it.
    void next();
    /// Leaves the site out for this version.
    void skip() { answer(tours::Answer::Skip); }
    /// Puts the site off until all others are done.
    void later() { answer(tours::Answer::Later); }

    /// Takes the title's marks and ledger as they are now.
    void refresh();

Q_SIGNALS:
    void changed();

private:
    void refreshSoon();
    void follow();
    void answer(tours::Answer answer);
    void goToStop();
    [[nodiscard]] bool isAtStop() const;
    [[nodiscard]] QString newLine() const;

    SubmitControl &m_control;
    std::optional<Tour> m_tour;
    QString m_line;
    bool m_isStale = false; ///< It is going to be refreshed.
};

} // namespace quillon
