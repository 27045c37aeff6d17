#include "submission/page_questions.h"

#include "platform/alert_sheets.h"

using namespace Qt::StringLiterals;

namespace quillon {

void PageQuestions::runJavaScriptConfirmPanel(const QString &message, BrowserDelegate::Confirmed confirmed)
{
    if (!m_scriptAlerts.mayAsk()) {
        confirmed(false);
        return;
    }
    const Alert question{.message = u"JavaScript Confirm"_s,
                         .informativeText = message.left(ScriptAlerts::longestMessage),
                         .defaultButton = u"OK"_s,
                         .alternateButton = u"Cancel"_s};
    m_alerts.show(SheetWindow::Submission, question, [confirmed = std::move(confirmed)](AlertAnswer answer) {
        confirmed(answer == AlertAnswer::Default);
    });
}

void PageQuestions::runOpenPanelForFileButton(BrowserDelegate::FileChosen chosen)
{
    m_alerts.chooseFiles(SheetWindow::Submission, {.prompt = u"Choose"_s, .extension = {}},
                         [chosen = std::move(chosen)](const QStringList &paths) {
                             if (!paths.isEmpty())
                                 chosen(paths.first());
                         });
}

} // namespace quillon
