#include "editor/editor_session.h"

#include "platform/alert_sheets.h"
#include "store/process_state.h"
#include "store/title_folder.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class EditorSessionText
{
    Q_DECLARE_TR_FUNCTIONS(EditorSession)
};

/// Tells nobody, and is never asked for files.
class NoSheets final : public AlertSheets
{
public:
    void show(SheetWindow, const Alert &, Answered) override {}
    void chooseFiles(SheetWindow, const FileRequest &, FilesChosen) override {}
    void chooseSaveFile(SheetWindow, const FileRequest &, FileChosen) override {}
};

AlertSheets &noSheets()
{
    static NoSheets sheets;
    return sheets;
}

} // namespace

EditorSession::EditorSession(AlertSheets &sheets) : m_editor(sheets), m_formerTitle(mwqnSelSW) {}

EditorSession::EditorSession() : EditorSession(noSheets()) {}

void EditorSession::close() const
{
    m_formerTitle ? selectTitle(*m_formerTitle) : clearSelectedTitle();
}

Result<> EditorSession::open(const QString &title)
{
    if (!title_folder::exists(title))
        return Error{Error::Kind::Missing, title, EditorSessionText::tr("there is no such title")};
    selectTitle(title);
    m_editor.form().clear(); // What the file lacks would stay as the last title had it.
    m_editor.loadPADData();
    return m_editor.loaded();
}

} // namespace quillon
