#include "submission/page_questions.h"

#include "platform/alert_sheets.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class PageQuestionsText
{
    Q_DECLARE_TR_FUNCTIONS(PageQuestions)
};

} // namespace

void PageQuestions::runJavaScriptConfirmPanel(const QString &message, BrowserDelegate::Confirmed confirmed)
{
    if (!m_scriptAlerts.mayAsk()) {
        confirmed(false);
        return;
    }
    const Alert question{.message = PageQuestionsText::tr("JavaScript Confirm"),
                         .informativeText = message.left(ScriptAlerts::longestMessage),
                         .defaultButton = PageQuestionsText::tr("OK"),
                         .alternateButton = PageQuestionsText::tr("Cancel")};
    m_alerts.show(SheetWindow::Submission, question, [confirmed = std::move(confirmed)](AlertAnswer answer) {
        confirmed(answer == AlertAnswer::Default);
    });
}

void PageQuestions::runOpenPanelForFileButton(BrowserDelegate::FileChosen chosen)
{
    m_alerts.chooseFiles(SheetWindow::Submission,
                         {.prompt = PageQuestionsText::tr("Choose"), .extension = {}},
                         [chosen = std::move(chosen)](const QStringList &paths) {
                             if (!paths.isEmpty())
                                 chosen(paths.first());
                         });
}

} // namespace quillon
